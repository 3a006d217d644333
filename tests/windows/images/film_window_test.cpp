#include "windows/images/frm_avi2bmp.h"

#include "decoder/film_files.h"
#include "frame/program_scope.h"
#include "graphics/picture_lab.h"
#include "mutated.h"
#include "windows/images/drop_files.h"
#include "windows/images/picture_viewer.h"
#include "windows/images/tile_player.h"
#include "windows/parts/dialog_support.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>

class FilmWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        Run.Start();
        ResetLab();
    }

    static void Open(std::function<void(QWidget&)> act)
    {
        OnModal(std::move(act));
        frmAVI2BMP::Run(nullptr);
    }

    void Load(QWidget& window, const QString& path)
    {
        Run.Scope.Answers.Next.push_back(path);
        Part<QPushButton>(window, "cmdLoad").click();
    }

    QString WriteFilm(const QString& name, const QByteArray& film) const { return folder.Write(name, film); }

    static QSize SheetSize(QWidget& window) { return Part<PictureViewer>(window, "picBMP").Picture().size(); }

    static bool MaySave(QWidget& window)
    {
        return Part<QPushButton>(window, "cmdSave0").isEnabled() && Part<QPushButton>(window, "cmdSave1").isEnabled();
    }

    static bool IsRed(QWidget& window)
    {
        return Part<QLineEdit>(window, "txtTiles").palette().color(QPalette::Text) == QColor(Qt::red);
    }

    TestFolder folder;
    ProgramScope Run;
};

// Catches: a number of tiles that is taken without Enter or a film, out of bounds, or does not reach the sheet; repeats
// that are dropped unasked.
TEST_F(FilmWindow, TilesAndRepeats)
{
    QList<QImage> frames = FilmFrames(30);
    frames[7] = frames[6];
    const QString film = WriteFilm(QStringLiteral("a.avi"), BuildAvi(frames));
    Open([&](QWidget& window) {
        auto& tiles = Part<QLineEdit>(window, "txtTiles");
        const auto type = [&](const char* text) {
            tiles.selectAll();
            QTest::keyClicks(&tiles, QString::fromLatin1(text));
        };
        const auto take = [&](const char* text) -> QString {
            type(text);
            EXPECT_TRUE(IsRed(window));
            QTest::keyClick(&tiles, Qt::Key_Return);
            EXPECT_FALSE(IsRed(window));
            return tiles.text() + QLatin1Char(' ') + Part<QLineEdit>(window, "txtWidth").text();
        };
        QTest::keyClicks(&tiles, QStringLiteral("x"));
        EXPECT_EQ(tiles.text(), QStringLiteral("16"));
        EXPECT_TRUE(IsRed(window)) << "a key that is swallowed marks it too";
        type("9");
        QTest::keyClick(&tiles, Qt::Key_Return);
        EXPECT_TRUE(IsRed(window)) << "without a film nothing is taken";
        EXPECT_EQ(Part<QLineEdit>(window, "txtWidth").text(), QStringLiteral("512"));
        tiles.setText(QStringLiteral("16"));
        EXPECT_FALSE(MaySave(window));
        Part<QCheckBox>(window, "chkDups").click();
        EXPECT_EQ(Run.TakeMessages(), QStringList(QStringLiteral("There was an error working with the file:^^")));
        Part<QCheckBox>(window, "chkDups").click();
        Run.TakeMessages();

        Load(window, film);
        EXPECT_EQ(SheetSize(window), QSize(512, 64));
        EXPECT_TRUE(MaySave(window));
        EXPECT_EQ(Part<QLabel>(window, "lblResult").text(), QStringLiteral("29 tiles of 30 frames"));
        Part<QCheckBox>(window, "chkDups").click();
        EXPECT_EQ(Part<QLabel>(window, "lblResult").text(), QStringLiteral("30 tiles of 30 frames"));
        EXPECT_EQ(take("0"), QStringLiteral("1 32"));
        EXPECT_EQ(SheetSize(window), QSize(32, 30 * 32));
        EXPECT_EQ(take("26"), QStringLiteral("25 800"));
        EXPECT_EQ(SheetSize(window), QSize(800, 64));
        EXPECT_EQ(Part<QSpinBox>(window, "spnDelay").value(), 2) << "25 frames a second";
    });
    EXPECT_TRUE(Run.TakeMessages().isEmpty());
}

// Catches: a failure told by another message or twice, buttons that go with a failed run, a mutated film that takes the
// program with it.
TEST_F(FilmWindow, EachFailureHasItsMessage)
{
    const QList<QImage> frames = FilmFrames(4);
    const QString good = WriteFilm(QStringLiteral("good.avi"), BuildAvi(frames));
    const QString wide = WriteFilm(QStringLiteral("wide.avi"), BuildAvi(FilmFrames(4, {64, 48}), {.Size = {64, 48}}));
    const QString large =
        WriteFilm(QStringLiteral("large.avi"), BuildAvi(FilmFrames(2, {320, 240}), {.Size = {320, 240}}));
    const QString odd = WriteFilm(QStringLiteral("odd.avi"), BuildAvi(frames, {.Codec = "QQQQ"}));
    const QString text = WriteFilm(QStringLiteral("text.avi"), "text");
    const QString size = QStringLiteral("This AVI isn't 32x32 and will not be converted!");
    const QString decoder = QStringLiteral("No suitable decompressor found for this video stream!");
    const QString error = QStringLiteral("There was an error working with the file:");
    Open([&](QWidget& window) {
        const auto told = [&](const QString& film) {
            Load(window, film);
            return Run.TakeMessages().join(u'|');
        };
        EXPECT_EQ(told(wide), size);
        EXPECT_FALSE(MaySave(window));
        EXPECT_EQ(told(good), QString());
        EXPECT_EQ(told(wide), size);
        EXPECT_TRUE(MaySave(window));
        EXPECT_EQ(told(odd), decoder);
        EXPECT_EQ(told(text), error + QStringLiteral("^^") + text);
        QRandomGenerator random(5);
        for (int round = 0; round < 25; ++round) {
            const QString film = WriteFilm(QStringLiteral("bad.avi"), Mutated(BuildAvi(frames), random));
            const QString words = told(film);
            EXPECT_TRUE(words.isEmpty() || words == size || words == decoder ||
                        words == error + QStringLiteral("^^") + film)
                << words;
        }
        told(wide);
        Part<QComboBox>(window, "cmbFit").setCurrentIndex(2);
        EXPECT_TRUE(Run.TakeMessages().isEmpty());
        EXPECT_EQ(SheetSize(window), QSize(512, 32)) << "scaled as soon as that is wanted";
        Part<QComboBox>(window, "cmbFit").setCurrentIndex(3);
        EXPECT_EQ(Part<QSpinBox>(window, "spnX").value(), 16);
        EXPECT_EQ(Part<QSpinBox>(window, "spnX").maximum(), 63);
        EXPECT_EQ(told(large), QString()) << "a part meant for frames of another size";
        EXPECT_EQ(Part<QSpinBox>(window, "spnX").value(), 144);
        const QImage sheet = Part<PictureViewer>(window, "picBMP").Picture();
        EXPECT_EQ(sheet.copy(0, 0, 32, 32), FilmFrames(1, {320, 240})[0].copy(144, 104, 32, 32));
        told(wide);
        EXPECT_EQ(SheetSize(window), QSize(512, 32));
    });
}

// Catches: a saved sheet that is another, one that reaches the Lab as another or with a question, files left behind.
TEST_F(FilmWindow, SavesAndHandsOver)
{
    const QList<QImage> frames = FilmFrames(5);
    const QString film = WriteFilm(QStringLiteral("a.avi"), BuildAvi(frames)),
                  out = folder.Path(QStringLiteral("out.bmp"));
    QString handed;
    QImage sheet;
    Open([&](QWidget& window) {
        Load(window, film);
        sheet = Part<PictureViewer>(window, "picBMP").Picture();
        Run.Scope.Answers.Next.push_back(out);
        Part<QPushButton>(window, "cmdSave0").click();
        EXPECT_EQ(QImage(out).convertToFormat(QImage::Format_RGB32), sheet);
        EXPECT_EQ(Run.Scope.Answers.AskedFor<FileQuestion>().back().Title, QStringLiteral("Save to BMP"));
        EXPECT_TRUE(window.isVisible());
        OnModal([&](QWidget& lab) {
            QCoreApplication::processEvents();
            EXPECT_EQ(lab.windowTitle(), QStringLiteral("PCX Lab"));
            EXPECT_EQ(PcxLab.Before, sheet);
            EXPECT_TRUE(Part<QPlainTextEdit>(lab, "txtInfo").toPlainText().startsWith(QStringLiteral("avi.bmp\n")));
            handed = PcxLab.AviBitmap;
        });
        Part<QPushButton>(window, "cmdSave1").click();
    });
    EXPECT_FALSE(handed.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(handed).path())) << "the work file is left behind";
    EXPECT_FALSE(PcxLab.FromAVI);
    EXPECT_TRUE(Run.TakeMessages().isEmpty());
}

// Catches: pictures taken for films, films for pictures, an order that people do not count in, a preview that stands.
TEST_F(FilmWindow, TakesDroppedFilmsAndPictures)
{
    const QList<QImage> frames = FilmFrames(12);
    const QString film = WriteFilm(QStringLiteral("a.avi"), BuildAvi(frames));
    const TestFolder pictures;
    for (int i = 0; i < 12; ++i)
        ASSERT_TRUE(frames[i].save(pictures.Path(QStringLiteral("p%1.png").arg(i)), "PNG"));
    const QString wide = folder.Path(QStringLiteral("wide.png"));
    ASSERT_TRUE(FilmFrames(1, {64, 48})[0].save(wide));
    Open([&](QWidget& window) {
        ASSERT_TRUE(DropFiles(window, {film}));
        QCoreApplication::processEvents();
        const QImage sheet = Part<PictureViewer>(window, "picBMP").Picture();
        EXPECT_EQ(sheet.size(), QSize(512, 32));
        ASSERT_TRUE(DropFiles(window, {pictures.Path().chopped(1)}));
        QCoreApplication::processEvents();
        EXPECT_EQ(Part<QLabel>(window, "lblResult").text(), QStringLiteral("12 tiles of 12 pictures"));
        EXPECT_EQ(Part<PictureViewer>(window, "picBMP").Picture(), sheet);
        auto& player = Part<TilePlayer>(window, "picPreview");
        EXPECT_TRUE(QTest::qWaitFor([&] { return player.Tile() > 2; }));
        QTest::mouseClick(&player, Qt::LeftButton);
        const int held = player.Tile();
        QTest::qWait(150);
        EXPECT_EQ(player.Tile(), held);
        Part<QComboBox>(window, "cmbFit").setCurrentIndex(3);
        ASSERT_TRUE(DropFiles(window, {wide}));
        QCoreApplication::processEvents();
        EXPECT_EQ(Part<QSpinBox>(window, "spnX").maximum(), 63) << "the part lies in the picture";
        EXPECT_EQ(Part<PictureViewer>(window, "picBMP").Picture().copy(0, 0, 32, 32),
                  FilmFrames(1, {64, 48})[0].copy(16, 8, 32, 32));
    });
}
