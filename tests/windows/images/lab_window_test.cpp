#include "windows/images/frm_pcx_lab.h"

#include "decoder/pcx_files.h"
#include "decoder/sample_images.h"
#include "frame/program_scope.h"
#include "frame/run_scope.h"
#include "graphics/picture_lab.h"
#include "mutated.h"
#include "platform/images/bitmap_file.h"
#include "windows/images/drop_files.h"
#include "windows/images/picture_viewer.h"
#include "windows/parts/dialog_support.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

namespace {

const QString BadImageText = QStringLiteral("Wrong type or corrupted image");

QImage Colourful(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y, qRgb(1 + x % 250, 1 + y % 250, 1 + (x * 7 + y) % 250));
    return picture;
}

} // namespace

class LabWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        Run.Start();
        ResetLab();
    }

    QString WriteBmp(const QString& name, const QImage& picture) const
    {
        return folder.Write(name, BitmapFile(picture));
    }

    static void Open(std::function<void(QWidget&)> act)
    {
        OnModal(std::move(act));
        frmPCXLab::Run(nullptr);
    }

    void Load(QWidget& window, const QString& path)
    {
        Run.Scope.Answers.Next.push_back(path);
        Part<QPushButton>(window, "cmdLoad").click();
    }

    static void Press(QWidget& window, const char* button) { Part<QPushButton>(window, button).click(); }

    static QScrollBar& Bar(QWidget& window, const char* name) { return Part<QScrollBar>(window, name); }

    TestFolder folder;
    ProgramScope Run;
};

// Catches: bars that scroll what fits or not all of what does not, a picture on one side only, told lines that replace
// each other, a reduction offered for no picture.
TEST_F(LabWindow, LoadingShowsBothSides)
{
    const QString fits = WriteBmp(QStringLiteral("fits.bmp"), Colourful({385, 491}));
    const QString larger = WriteBmp(QStringLiteral("larger.bmp"), Colourful({386, 591}));
    Open([&](QWidget& window) {
        EXPECT_FALSE(Part<QGroupBox>(window, "frameConvert").isVisible());
        EXPECT_FALSE(Part<QPushButton>(window, "cmdSave").isEnabled());
        window.resize(window.sizeHint());
        Load(window, fits);
        EXPECT_TRUE(Part<QGroupBox>(window, "frameConvert").isVisible());
        for (const char* bar : {"PCXScrollH0", "PCXScrollV0", "PCXScrollH1", "PCXScrollV1"})
            EXPECT_EQ(Bar(window, bar).maximum(), 0) << bar;
        Load(window, larger);
        for (const char* bar : {"PCXScrollH0", "PCXScrollH1"})
            EXPECT_EQ(Bar(window, bar).maximum(), 1) << bar;
        EXPECT_EQ(Bar(window, "PCXScrollV1").maximum(), 100);
        EXPECT_EQ(Bar(window, "PCXScrollV1").pageStep(), 100);
        Bar(window, "PCXScrollV1").setValue(50);
        EXPECT_EQ(Bar(window, "PCXScrollV0").value(), 0) << "each side scrolls for itself";
        EXPECT_EQ(
            Part<QPlainTextEdit>(window, "txtInfo").toPlainText(),
            QStringLiteral("fits.bmp\nWindows Bitmap  (bmp)\nWidth: 385   Height: 491   Colours: 16 Million (24 Bit)\n"
                           "larger.bmp\nWindows Bitmap  (bmp)\n"
                           "Width: 386   Height: 591   Colours: 16 Million (24 Bit)\n"));
        EXPECT_EQ(Part<QPushButton>(window, "cmdSave").text(), QStringLiteral("Save PCX (24 Bit)"));
        Load(window, QString());
        EXPECT_EQ(PcxLab.Before.width(), 386) << "a cancelled question";
    });
    EXPECT_EQ(Run.Scope.Answers.AskedFor<FileQuestion>().front().Title, QStringLiteral("Open A Graphic File"));
    EXPECT_EQ(Run.Scope.Answers.AskedFor<FileQuestion>().front().Selected, -1);
    EXPECT_TRUE(Run.TakeMessages().isEmpty());
    EXPECT_TRUE(PcxLab.Before.isNull()) << "a closed window keeps no picture";
}

// Catches: a broken file of any kind that crashes, shows another message, or takes the picture on show away.
TEST_F(LabWindow, BrokenFilesOfEveryKindAreMessage100)
{
    QRandomGenerator random(14);
    const QString good = WriteBmp(QStringLiteral("good.bmp"), Colourful({40, 40}));
    Open([&](QWidget& window) {
        int refused = 0;
        for (const SampleImage& sample : SampleOfEveryKind()) {
            const QString ending = QString::fromLatin1(ImageKinds()[size_t(sample.Kind)].Extension);
            Load(window, good);
            const QByteArray file = sample.Kind == 7 ? QByteArray("P9") : Mutated(sample.File, random);
            Load(window,
                 folder.Write(QStringLiteral("bad.") + ending, random.bounded(3) ? file : file.first(file.size() / 3)));
            const QStringList told = Run.TakeMessages();
            EXPECT_TRUE(told.isEmpty() || told == QStringList(BadImageText)) << ending;
            refused += int(told.size());
            const QImage shown = Part<PictureViewer>(window, "pcxContainer0").Picture();
            EXPECT_EQ(told.isEmpty(), shown != Colourful({40, 40})) << ending;
        }
        EXPECT_GT(refused, 8);
        Load(window, folder.Write(QStringLiteral("text.unknown"), "no picture"));
        EXPECT_EQ(Run.TakeMessages(), QStringList(BadImageText));
    });
}

// Catches: a palette size that is not brought within its bounds, a caption that does not follow, a file that is written
// over unasked, the wrong form, a second save that has nothing to write.
TEST_F(LabWindow, ConvertsAndSaves)
{
    const QImage picture = Colourful({100, 80});
    const QString source = WriteBmp(QStringLiteral("a.bmp"), picture);
    const QString pcx = folder.Write(QStringLiteral("old.pcx"), "old"), png = folder.Path(QStringLiteral("new.png"));
    Open([&](QWidget& window) {
        auto& size = Part<QLineEdit>(window, "txtPalSize");
        const auto convert = [&](const char* typed) {
            size.setText(QString::fromLatin1(typed));
            Press(window, "cmdConvert");
            return size.text();
        };
        const auto save = [&](const QString& path, const QStringList& answers) {
            Run.Scope.Answers.Next.push_back(path);
            for (const QString& answer : answers)
                Run.Scope.Answers.Next.push_back(answer);
            Press(window, "cmdSave");
        };
        Load(window, source);
        EXPECT_EQ(convert("1000"), QStringLiteral("256"));
        EXPECT_EQ(convert("1"), QStringLiteral("2"));
        EXPECT_EQ(convert("17"), QStringLiteral("17"));
        EXPECT_EQ(Part<QPushButton>(window, "cmdSave").text(), QStringLiteral("Save PCX (8 Bit)"));
        const QImage after = PcxLab.After.convertToFormat(QImage::Format_RGB32);
        EXPECT_EQ(Part<PictureViewer>(window, "pcxContainer1").Picture(), PcxLab.After);
        EXPECT_EQ(PcxLab.Before, picture);
        save(pcx, {QStringLiteral("Cancel")});
        EXPECT_EQ(folder.Read(QStringLiteral("old.pcx")), "old");
        for (int time = 0; time < 2; ++time) {
            save(pcx, {QStringLiteral("Overwrite")});
            EXPECT_EQ(ReadPcx(folder.Read(QStringLiteral("old.pcx"))), after);
        }
        save(png, {});
        EXPECT_EQ(QImage(png).convertToFormat(QImage::Format_RGB32), after);
        EXPECT_EQ(QImage(png).format(), QImage::Format_Indexed8);
        Run.TakeMessages();
        save(folder.Path(QStringLiteral("missing/x.pcx")), {});
        EXPECT_TRUE(Run.TakeMessages().value(0).contains(QStringLiteral("missing")));
        Part<QRadioButton>(window, "optQuant1").click();
        convert("17");
        EXPECT_NE(PcxLab.After.convertToFormat(QImage::Format_RGB32), after) << "the other method";
        Load(window, source);
        EXPECT_EQ(Part<QPushButton>(window, "cmdSave").text(), QStringLiteral("Save PCX (24 Bit)"));
    });
}

// Catches: a close that waits for a long reduction or is forgotten by it, a stopped one that changes the picture.
TEST_F(LabWindow, ALongReductionEndsWithTheWindow)
{
    const QString source = WriteBmp(QStringLiteral("a.bmp"), Colourful({2600, 2600}));
    Open([&](QWidget& window) {
        Load(window, source);
        Part<QRadioButton>(window, "optQuant1").click();
        QTimer::singleShot(50, &window, &QWidget::close);
        Press(window, "cmdConvert");
        EXPECT_EQ(PcxLab.SaveTag, PcxDepth::Full);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }));
    });
    EXPECT_TRUE(Run.TakeMessages().isEmpty());
    EXPECT_EQ(RunningWork(), 0);
}

// Catches: dropped pictures that are refused or moved, several that replace each other, a folder that is taken for a
// picture; a list that converts something else than it shows.
TEST_F(LabWindow, TakesDroppedPictures)
{
    const QString one = WriteBmp(QStringLiteral("one.bmp"), Colourful({40, 30}));
    const QString two = WriteBmp(QStringLiteral("two.bmp"), Colourful({50, 30}));
    folder.Write(QStringLiteral("bad.gif"), "bad");
    Open([&](QWidget& window) {
        ASSERT_TRUE(DropFiles(window, {one}));
        QCoreApplication::processEvents();
        EXPECT_EQ(PcxLab.Before.width(), 40);
        ASSERT_TRUE(DropFiles(window, {folder.Path().chopped(1)}));
        QTimer::singleShot(100, &window, [&] {
            QWidget& many = *QApplication::activeModalWidget();
            ASSERT_EQ(many.objectName(), QStringLiteral("frmManyPictures"));
            EXPECT_EQ(Part<QListWidget>(many, "lstFiles").count(), 3);
            Part<QLineEdit>(many, "txtFolder").setText(folder.Path());
            Press(many, "cmdConvert");
            EXPECT_TRUE(
                Part<QPlainTextEdit>(many, "txtReport").toPlainText().startsWith(QStringLiteral("2 pictures written")));
            Part<QListWidget>(many, "lstFiles").selectAll();
            Press(many, "cmdRemove");
            EXPECT_FALSE(Part<QPushButton>(many, "cmdConvert").isEnabled());
            many.close();
        });
        QTest::qWait(400);
    });
    EXPECT_EQ(ReadPcx(folder.Read(QStringLiteral("two.pcx"))), Colourful({50, 30}));
}
