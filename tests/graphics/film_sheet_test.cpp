#include "graphics/make_film_sheet.h"

#include "decoder/film_files.h"
#include "platform/images/bitmap_file.h"
#include "platform/images/images.h"
#include "test_support.h"

#include <QFile>
#include <QtEndian>
#include <gtest/gtest.h>

namespace {

constexpr QRgb Black = qRgb(0, 0, 0);

QImage Plain(QRgb colour, QSize size = {32, 32})
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

/// A packed bitmap: what stands behind the file header of a bitmap file.
QByteArray Packed(const QImage& picture)
{
    return BitmapFile(picture).sliced(14);
}

template <class Number>
QByteArray With(QByteArray packed, qsizetype at, Number number)
{
    qToLittleEndian(number, packed.data() + at);
    return packed;
}

QString FilmOf(const TestFolder& folder, const QList<QImage>& frames)
{
    return folder.Write(QStringLiteral("film.avi"), BuildAvi(frames));
}

} // namespace

// Catches: a frame with a palette, without pixels or shorter than it says that is taken; a written file that is no
// bitmap; properties of another header.
TEST(FilmFrame, TakesWhatHasNoPalette)
{
    const QImage picture = FilmFrames(1).constFirst();
    const QByteArray packed = Packed(picture);
    cAVI frame;
    ASSERT_TRUE(frame.CreateFromPackedDIBPointer(packed));
    EXPECT_EQ(frame.Width(), 32);
    EXPECT_EQ(frame.Height(), 32);
    EXPECT_EQ(frame.BitCount(), 24);
    EXPECT_EQ(frame.SizeImage(), 3072u);
    EXPECT_EQ(frame.SizeInfoHeader(), 40u);
    EXPECT_EQ(frame.FileType(), 19778);
    EXPECT_EQ(frame.SizeFileHeader(), 3126u);
    EXPECT_EQ(frame.BitOffset(), 54u);
    EXPECT_EQ(QByteArray(frame.PointerToBitmapInfo(), frame.SizeBitmapInfo()), packed.first(40));
    EXPECT_EQ(QByteArray(frame.PointerToBits(), 3072), packed.sliced(40));
    EXPECT_EQ(frame.Picture(), picture);

    const TestFolder folder;
    FrameMemory memory;
    EXPECT_EQ(frame.WriteToFile(folder.Path(QStringLiteral("0.bmp")), memory), true);
    EXPECT_EQ(folder.Read(QStringLiteral("0.bmp")).size(), 3126);
    EXPECT_EQ(QImage(folder.Path(QStringLiteral("0.bmp"))).convertToFormat(QImage::Format_RGB32), picture);
    EXPECT_EQ(frame.WriteToFile(folder.Path(QStringLiteral("1.bmp")), memory), false);
    EXPECT_FALSE(QFile::exists(folder.Path(QStringLiteral("1.bmp"))));
    memory.IgnoreDups = false;
    EXPECT_EQ(frame.WriteToFile(folder.Path(QStringLiteral("1.bmp")), memory), true);
    memory = {};
    EXPECT_FALSE(frame.WriteToFile(folder.Path(QStringLiteral("missing/1.bmp")), memory));

    for (const QByteArray& bad : {With(packed, 14, quint16(8)), With(packed, 20, quint32(0)),
                                  With(packed, 20, quint32(3073)), packed.first(39), packed.first(3000), QByteArray()})
        EXPECT_FALSE(frame.CreateFromPackedDIBPointer(bad));
    EXPECT_EQ(frame.Picture(), picture);
}

// Catches: gaps where a frame was dropped, rows that begin too early or late, an empty row behind a full one, a last
// row that is not black behind its tiles, repeats that are compared with any frame but the one before.
TEST(FilmSheets, TilesFollowEachOtherWithoutGaps)
{
    const TestFolder folder;
    const QImage a = Plain(qRgb(200, 0, 0)), b = Plain(qRgb(0, 200, 0)), c = Plain(qRgb(0, 0, 200));
    const QString path = FilmOf(folder, {a, a, b, a, a, a, c, c, b});
    const FilmReport dropped = SheetFromFilm(path, {.Tiles = 3});
    EXPECT_EQ(dropped.How, films::End::Whole);
    EXPECT_EQ(dropped.Tiles, 5);
    EXPECT_EQ(dropped.Frames, 9);
    ASSERT_EQ(dropped.Sheet.size(), QSize(96, 64));
    const QImage kept[] = {a, b, a, c, b, Plain(Black)};
    for (int tile = 0; tile < 6; ++tile)
        EXPECT_EQ(TileOf(dropped.Sheet, tile), kept[tile]) << tile;

    const FilmReport all = SheetFromFilm(path, {.Tiles = 3, .IgnoreDups = false});
    EXPECT_EQ(all.Sheet.size(), QSize(96, 96)) << "an exact multiple adds no row";
    EXPECT_EQ(all.Tiles, 9);
    EXPECT_EQ(SheetFromFilm(path, {.Tiles = 3}).Sheet, dropped.Sheet) << "a second run begins afresh";
    EXPECT_EQ(SheetFromFilm(FilmOf(folder, {a, a, a}), {}).Sheet.size(), QSize(512, 32));

    const std::pair<const char*, int> texts[] = {{"", 1},    {"0", 1},   {"1", 1},           {"16", 16},
                                                 {"25", 25}, {"26", 25}, {"99999999999", 25}};
    for (const auto& [text, tiles] : texts)
        EXPECT_EQ(TilesAcross(QString::fromLatin1(text)), tiles) << text;
}

// Catches: a sheet that is clipped at the height of a screen, one that grows without end, a tile that goes beyond it.
TEST(FilmSheets, GrowUpToTheTallestSheet)
{
    cAVI frame;
    FilmSheet sheet(1, false);
    for (int i = 0; i < 1023; ++i) {
        ASSERT_TRUE(frame.CreateFromPackedDIBPointer(Packed(Plain(qRgb(i % 256, i / 256, 9)))));
        ASSERT_TRUE(sheet.Add(frame)) << i;
    }
    EXPECT_FALSE(sheet.Add(frame));
    EXPECT_EQ(sheet.Tiles(), 1023);
    EXPECT_EQ(sheet.Picture().size(), QSize(32, 1023 * 32));
    EXPECT_EQ(TileOf(sheet.Picture(), 1022), Plain(qRgb(1022 % 256, 3, 9)));
    EXPECT_EQ(TileOf(sheet.Picture(), 300), Plain(qRgb(300 % 256, 1, 9)));

    const TestFolder folder;
    QList<QImage> frames;
    for (int i = 0; i < 1030; ++i)
        frames << Plain(qRgb(i % 256, 1, 1));
    const FilmReport report = SheetFromFilm(FilmOf(folder, frames), {.Tiles = 1});
    EXPECT_TRUE(report.Full);
    EXPECT_FALSE(report.Incomplete) << "it is the sheet that ends, not the film";
    EXPECT_EQ(report.Tiles, 1023);
}

// Catches: a film that gives no frame and leaves an empty sheet, one that was stopped and counts as whole.
TEST(FilmSheets, WithoutAFrameThereIsNoSheet)
{
    const TestFolder folder;
    QByteArray film = BuildAvi(FilmFrames(3));
    const auto end = [&](const QByteArray& bytes) {
        const FilmReport report = SheetFromFilm(folder.Write(QStringLiteral("a.avi"), bytes), {});
        EXPECT_TRUE(report.Sheet.isNull());
        return report.How;
    };
    EXPECT_EQ(end(BuildAvi({})), films::End::NotOpened);
    EXPECT_EQ(end(film.replace("00db", "99db")), films::End::NotOpened);
    EXPECT_EQ(end(BuildAvi(FilmFrames(1, {31, 32}), {.Size = {31, 32}})), films::End::WrongSize);
    EXPECT_EQ(end(BuildAvi(FilmFrames(1), {.Codec = "QQQQ"})), films::End::NoDecoder);
    QList<QImage> frames;
    for (int i = 0; i < 100; ++i)
        frames << FilmFrames(30);
    const FilmReport stopped = SheetFromFilm(FilmOf(folder, frames), {}, [](int, int) { return false; });
    EXPECT_EQ(stopped.How, films::End::Stopped);
}

// Catches: pictures out of order, a strip of tiles that gives one, a wrong size that is scaled unasked, see-through
// pixels that show, one bad picture that ends all.
TEST(FilmSheets, AreMadeOfPicturesToo)
{
    const TestFolder folder;
    QStringList files;
    const auto add = [&](const QImage& picture) {
        files << folder.Path(QStringLiteral("%1.png").arg(files.size()));
        ASSERT_TRUE(picture.save(files.constLast(), "PNG"));
    };
    QImage strip = Plain(qRgb(1, 1, 1), {64, 64});
    for (int tile = 0; tile < 4; ++tile)
        for (int i = 0; i < 32 * 32; ++i)
            strip.setPixel(tile % 2 * 32 + i % 32, tile / 2 * 32 + i / 32, qRgb(10 * tile + 10, 0, 0));
    QImage through(32, 32, QImage::Format_ARGB32);
    through.fill(qRgba(255, 255, 255, 0));
    through.setPixel(0, 0, qRgba(9, 9, 9, 255));
    add(strip);
    add(through);
    add(Plain(qRgb(0, 50, 0), {40, 20}));
    files << folder.Write(QStringLiteral("bad.png"), "bad");
    add(Plain(qRgb(0, 0, 60)));
    const FilmReport report = SheetFromPictures(files, {.Tiles = 4});
    EXPECT_EQ(report.Tiles, 6);
    EXPECT_EQ(report.Refused.size(), 2u);
    ASSERT_EQ(report.Sheet.size(), QSize(128, 64));
    for (int tile = 0; tile < 4; ++tile)
        EXPECT_EQ(TileOf(report.Sheet, tile), Plain(qRgb(10 * tile + 10, 0, 0)));
    EXPECT_EQ(TileOf(report.Sheet, 4).pixel(0, 0), qRgb(9, 9, 9));
    EXPECT_EQ(TileOf(report.Sheet, 4).pixel(5, 5), Black);
    EXPECT_EQ(TileOf(report.Sheet, 5), Plain(qRgb(0, 0, 60)));

    const FilmReport scaled =
        SheetFromPictures({files[2], files[0]}, {.Tiles = 4, .Frames = {.How = films::Fit::Middle}});
    EXPECT_EQ(scaled.Tiles, 2);
    EXPECT_EQ(TileOf(scaled.Sheet, 0), Plain(qRgb(0, 50, 0)));
    const films::Plan part{.How = films::Fit::Part, .X = 32, .Y = 32};
    EXPECT_EQ(TileOf(SheetFromPictures({files[0]}, {.Frames = part}).Sheet, 0), Plain(qRgb(40, 0, 0)));
    EXPECT_TRUE(SheetFromPictures({files[2]}, {.Frames = part}).Sheet.isNull());
    images::Stop();
}
