#include "frame/frame_state.h"
#include "level/level_palette.h"
#include "level/palette_maker.h"
#include "mutated.h"
#include "test_support.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Sheets whose tile at column x and row y is of the colour (10 + x, 10 + y, blue).
QImage Sheet(int columns, int rows, int blue = 0)
{
    QImage sheet(columns * 32, rows * 32, QImage::Format_RGB32);
    for (int y = 0; y < sheet.height(); ++y)
        for (int x = 0; x < sheet.width(); ++x)
            sheet.setPixel(x, y, qRgb(10 + x / 32, 10 + y / 32, blue));
    return sheet;
}

const ElementNames& Elements()
{
    static const ElementNames names(
        "[MapElements]\nCount=30\nempty_space=0\nrock=1\nbug_left=2\nbd_firefly.left=3\nsand=4\n");
    return names;
}

constexpr QRgb Start = qRgb(1, 2, 3);

/// Which tile the element's cell shows; "start" if it is as the palette began.
std::string Tile(const QImage& palette, int element)
{
    const QRgb pixel = palette.pixel(PaletteRect(element).center());
    return pixel == Start ? "start"
                          : QByteArray::number(qRed(pixel) - 10)
                                .append(',')
                                .append(QByteArray::number(qGreen(pixel) - 10))
                                .toStdString();
}

PaletteMaker Made(const QStringList& lines, bool editor = false)
{
    static const SheetEndings sheets{u"pcx"_s, u"png"_s};
    static const QImage sheet = Sheet(8, 8);
    QImage start(PaletteColumns * PaletteCell, 2 * PaletteCell, QImage::Format_RGB32);
    start.fill(Start);
    PaletteMaker maker(
        start, Elements(), sheets,
        [](const QString& file) -> Result<QImage> {
            return file == u"a.pcx"_s || file == u"b.png"_s ? Result<QImage>(sheet) : Fail(file, u"none"_s);
        },
        editor);
    for (const QString& line : lines)
        maker.Line(line);
    maker.End();
    return maker;
}

} // namespace

// Catches: a tile of the wrong element, column or row, a comment taken for a block, a block that takes another one's
// place because it says less, keys of the game that differ from the table's by "." and "_".
TEST(PaletteMaker, BlocksBecomeCells)
{
    const PaletteMaker maker =
        Made({u"rock: a.pcx"_s, u"rock.xpos: 3"_s, u"rock.frames: 9"_s, u"rock.ypos:   2 # note"_s, u"#sand: a.pcx"_s,
              u"#sand.xpos: 1"_s, u"#sand.ypos: 1"_s, u"bug.left:\t\tb.png"_s, u"bug.left.xpos: 5"_s,
              u"rock.falling: a.pcx"_s, u"rock.falling.xpos: 7"_s, u"rock.falling.ypos: 7"_s});
    EXPECT_EQ(Tile(maker.Palette(), 1), "3,2");
    EXPECT_EQ(Tile(maker.Palette(), 2), "5,0") << "what a block does not say is 0";
    EXPECT_EQ(Tile(maker.Palette(), 4), "start");
    EXPECT_EQ(maker.Drawn(), (std::set<int>{1, 2}));
}

// Catches: editor blocks used although nobody asked for them, or not used; the creatures whose editor blocks always
// count; a tile outside its sheet or a missing sheet that blackens the cell.
TEST(PaletteMaker, EditorBlocksAndWhatCannotBeDrawn)
{
    const QStringList lines = {u"rock: a.pcx"_s,
                               u"rock.xpos: 1"_s,
                               u"rock.ypos: 1"_s,
                               u"rock.EDITOR: a.pcx"_s,
                               u"rock.EDITOR.xpos: 2"_s,
                               u"rock.EDITOR.ypos: 2"_s,
                               u"bd_firefly.left.EDITOR: a.pcx"_s,
                               u".xpos: 4"_s,
                               u".ypos: 4"_s,
                               u"sand: gone.pcx"_s,
                               u".xpos: 1"_s,
                               u".ypos: 1"_s,
                               u"bug_left: a.pcx"_s,
                               u".xpos: 8"_s,
                               u".ypos: 99999999"_s};
    EXPECT_EQ(Tile(Made(lines).Palette(), 1), "1,1");
    EXPECT_EQ(Tile(Made(lines).Palette(), 3), "4,4");
    const PaletteMaker edited = Made(lines, true);
    EXPECT_EQ(Tile(edited.Palette(), 1), "2,2");
    EXPECT_EQ(Tile(edited.Palette(), 3), "4,4");
    EXPECT_EQ(Tile(edited.Palette(), 4), "start");
    EXPECT_EQ(Tile(edited.Palette(), 2), "start");
}

// Catches: a map drawn with x and y exchanged, cells that are read past the palette's end, a small picture of another
// size than its cells make.
TEST(LevelPalette, MapsAreDrawnCellByCell)
{
    QImage palette(PaletteColumns * PaletteCell, PaletteCell, QImage::Format_RGB32);
    palette.fill(Qt::black);
    for (int y = 0; y < PaletteCell; ++y)
        for (int x = 0; x < PaletteCell; ++x)
            palette.setPixel(7 * PaletteCell + x, y, qRgb(0, 200, 0));
    LevelMap map(3, 2);
    map.At(2, 0) = 7;
    map.At(0, 1) = 25;
    map.At(1, 1) = -32767;
    const QImage picture = MapPicture(map, palette);
    EXPECT_EQ(picture.size(), QSize(48, 32));
    EXPECT_EQ(picture.pixel(40, 8), qRgb(0, 200, 0));
    EXPECT_EQ(picture.pixel(8, 8), qRgb(0, 0, 0));
    EXPECT_EQ(picture.pixel(8, 24), MissingCell);
    EXPECT_EQ(picture.pixel(24, 24), MissingCell);
    EXPECT_EQ(MapPicture(map, QImage()).pixel(0, 0), MissingCell);
    const QImage small = MapPainter(palette).Small(map, {20, 100});
    EXPECT_EQ(small.size(), QSize(18, 12));
    EXPECT_EQ(small.pixel(15, 3), qRgb(0, 200, 0));
    EXPECT_EQ(MapPainter(palette).Small(LevelMap(128, 128), {32, 32}).size(), QSize(128, 128))
        << "a pixel a cell at least";
}

// Catches: a level shown with another set's palette, the set's own one not found because of its letter case.
TEST(LevelPalette, IsNamedByTheFolder)
{
    const TestFolder folder;
    Frame.ProgramFolder = folder.Path();
    EXPECT_EQ(FindPalette(PaletteName(u"/sets/My Caves/001.level"_s)), QString());
    const QString classic = folder.Write(u"previews/gfx_classic.gif"_s, "");
    EXPECT_EQ(FindPalette(PaletteName(u"/sets/My Caves/001.level"_s)), classic);
    const QString own = folder.Write(u"previews/my caves.gif"_s, "");
    EXPECT_EQ(FindPalette(PaletteName(u"/sets/My Caves/001.level"_s)), own);
    EXPECT_EQ(FindPalette(u".gif"_s), classic);
    EXPECT_EQ(PaletteNameOfSheets(u"/sets/My Caves/graphics/"_s), u"my caves"_s);
    EXPECT_EQ(PaletteNameOfSheets(u"/graphics_of/Mine"_s), u"mine"_s);
    ResetFrame();
}

// Catches: any text at all that makes the walk read outside a line, a sheet or the palette.
TEST(FuzzPalette, MutatedConfsMakeAPalette)
{
    const QByteArray conf = "rock: a.pcx\nrock.xpos: 1\nrock.ypos: 2\nbug.left.EDITOR: b.png\n.xpos:-7\n.ypos::9 \n"
                            "bd_firefly.left: a.pcx\n.xpos: 2147483648\n.ypos: 0\n: a.pcx\n#.pcx\nsand:.pcx\n";
    QRandomGenerator random(20240612);
    const int rounds = FuzzRounds(2000);
    int drawn = 0;
    for (int round = 0; round < rounds; ++round) {
        const PaletteMaker maker = Made(QString::fromUtf8(Mutated(conf, random)).split(u'\n'), random.bounded(2) == 0);
        ASSERT_EQ(maker.Palette().size(), QSize(400, 32));
        drawn += int(maker.Drawn().size());
    }
    EXPECT_GT(drawn, 500) << "the inputs no longer reach the drawing";
}
