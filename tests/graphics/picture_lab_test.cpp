#include "graphics/picture_lab.h"

#include "decoder/pcx_files.h"
#include "decoder/sample_images.h"
#include "graphics/see_through.h"
#include "mutated.h"
#include "test_support.h"

#include <QBuffer>
#include <QSet>
#include <gtest/gtest.h>

namespace {

class LabTest : public testing::Test
{
protected:
    ~LabTest() override
    {
        ResetLab();
        images::Stop();
    }

    QString WritePng(const QString& name, const QImage& picture) const
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        picture.save(&buffer, "PNG");
        return folder.Write(name, bytes);
    }

    TestFolder folder;
};

QImage ManyColours(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y, qRgb(x * 3 % 256, y * 5 % 256, (x * y) % 256));
    return picture;
}

} // namespace

// Catches: a kind that is missing from the dialog or out of order, a palette size outside the limits.
TEST_F(LabTest, TextsOfTheWindow)
{
    const QStringList filter = LabOpenFilter().split(u'|');
    ASSERT_EQ(filter.size(), 2 * (27 + 2));
    EXPECT_EQ(filter[0], QStringLiteral("Windows Bitmap (*.bmp)"));
    EXPECT_EQ(filter[53], QStringLiteral("*.hdr"));
    EXPECT_EQ(filter[56], QStringLiteral("All Image types "));
    QString all;
    for (int kind = 0; kind < 27; ++kind)
        all += filter[2 * kind + 1] + QLatin1Char(';');
    EXPECT_EQ(filter.last(), all);
    EXPECT_EQ(LabSaveFilter(),
              QStringLiteral("ZSoft Paintbrush (*.pcx)|*.pcx|Portable Network Graphics (*.png)|*.png"));

    const std::pair<const char*, const char*> sizes[] = {
        {"", "2"}, {"0", "2"}, {"1", "2"}, {"2", "2"}, {"017", "17"}, {"256", "256"}, {"300", "256"}, {"1000", "256"}};
    for (const auto& [typed, taken] : sizes)
        EXPECT_EQ(PaletteSizeOf(QString::fromLatin1(typed)).Text, QString::fromLatin1(taken)) << typed;
    EXPECT_EQ(PaletteSizeOf(QStringLiteral("9")).Colours, 9);
}

// Catches: a kind that the Lab cannot read, told sizes and colours that are not the file's, a picture that a broken
// file takes away, a second ending of a kind that is refused.
TEST_F(LabTest, EveryKindLoadsAndABrokenFileChangesNothing)
{
    QRandomGenerator random(7);
    int refused = 0;
    for (const SampleImage& sample : SampleOfEveryKind()) {
        const ImageKindRow& kind = ImageKinds()[size_t(sample.Kind)];
        SCOPED_TRACE(kind.Name);
        const QString name = QStringLiteral("a.%1").arg(QString::fromLatin1(kind.Extension));
        const QString path = folder.Write(name, sample.File);
        ASSERT_TRUE(LoadAnyImage(path));
        EXPECT_LE(Difference(PcxLab.Before, sample.Shows), sample.Tolerance);
        EXPECT_EQ(PcxLab.After, PcxLab.Before);
        const QString size =
            QStringLiteral("Width: %1   Height: %2   Colours: ").arg(sample.Shows.width()).arg(sample.Shows.height());
        const QString info = LabInfo(name, PcxLab.Loaded);
        EXPECT_TRUE(info.startsWith(name + QLatin1Char('\n') + QString::fromLatin1(kind.Name) + QStringLiteral("  (") +
                                    QString::fromLatin1(kind.Extension) + QStringLiteral(")\n") + size));
        EXPECT_EQ(info.contains(QStringLiteral("Colours: 16 Million (24 Bit)\n")), PcxLab.Loaded.ColoursUsed == 0);
        const QImage before = PcxLab.Before;
        for (int round = 0; round < 3; ++round)
            if (!LoadAnyImage(folder.Write(name, Mutated(sample.File, random)))) {
                ++refused;
                EXPECT_EQ(PcxLab.Before, before);
            } else {
                ASSERT_TRUE(LoadAnyImage(folder.Write(name, sample.File)));
            }
    }
    EXPECT_GT(refused, 15);
    EXPECT_TRUE(LoadAnyImage(folder.Write(QStringLiteral("b.JPEG"), SampleOfEveryKind()[2].File)));
    EXPECT_EQ(PcxLab.Loaded.Kind, 2);
    EXPECT_FALSE(LoadAnyImage(folder.Write(QStringLiteral("c.unknown"), "no image")));
    EXPECT_EQ(PcxLab.Loaded.Kind, 2);
}

// Catches: a save that does not hold what "After" shows, in each form and at both tags; a second save after one convert
// that has nothing left to write.
TEST_F(LabTest, SavesWhatAfterShows)
{
    const QImage picture = ManyColours({75, 60});
    ASSERT_TRUE(LoadAnyImage(WritePng(QStringLiteral("a.png"), picture)));
    const QString pcx = folder.Path(QStringLiteral("b.pcx")), png = folder.Path(QStringLiteral("b.png"));
    EXPECT_EQ(SaveCaption(PcxLab.SaveTag), QStringLiteral("Save PCX (24 Bit)"));
    for (const bool converted : {false, true, true}) {
        if (converted) {
            ASSERT_TRUE(ConvertColours({.Colours = 40}, {}));
            EXPECT_EQ(SaveCaption(PcxLab.SaveTag), QStringLiteral("Save PCX (8 Bit)"));
        }
        const QImage shown = PcxLab.After.convertToFormat(QImage::Format_RGB32);
        EXPECT_EQ(shown == picture, !converted);
        ASSERT_TRUE(WritePicture(pcx, PcxLab.After, PcxLab.SaveTag));
        ASSERT_TRUE(WritePicture(png, PcxLab.After, PcxLab.SaveTag));
        EXPECT_EQ(ReadPcx(folder.Read(QStringLiteral("b.pcx"))), shown);
        for (const QString& path : {pcx, png}) {
            const auto read = images::Load(path);
            ASSERT_TRUE(read);
            EXPECT_EQ(read->Pixels, shown);
            EXPECT_EQ(read->Bits, converted ? 8 : 24);
        }
    }
    ASSERT_TRUE(LoadAnyImage(pcx));
    EXPECT_EQ(PcxLab.SaveTag, PcxDepth::Full);
}

// Catches: see-through pixels that show the colour behind them, black ones that become holes, a setting that does not
// reach the picture on show.
TEST_F(LabTest, SeeThroughPixelsBecomeBlack)
{
    QImage picture(4, 1, QImage::Format_ARGB32);
    const QRgb pixels[] = {qRgba(250, 0, 0, 0), qRgba(0, 0, 0, 255), qRgba(200, 100, 0, 127), qRgba(9, 8, 7, 255)};
    for (int x = 0; x < 4; ++x)
        picture.setPixel(x, 0, pixels[x]);
    ASSERT_TRUE(LoadAnyImage(WritePng(QStringLiteral("a.png"), picture)));
    const QRgb flat[] = {qRgb(0, 0, 0), qRgb(1, 1, 1), qRgb(100, 50, 0), qRgb(9, 8, 7)};
    for (int x = 0; x < 4; ++x)
        EXPECT_EQ(PcxLab.After.pixel(x, 0), flat[x]) << x;
    const QImage shown = AsInGame(PcxLab.After);
    EXPECT_EQ(shown.pixel(0, 0), 0u);
    EXPECT_EQ(shown.pixel(1, 0), qRgb(1, 1, 1));
    SetSeeThroughBlack(false);
    for (int x = 0; x < 4; ++x)
        EXPECT_EQ(PcxLab.After.pixel(x, 0), pixels[x] | 0xff000000) << x;
}
