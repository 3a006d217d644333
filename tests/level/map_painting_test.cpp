#include "level/map_painting.h"
#include "level/map_replace.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// A map by its rows; a letter is a cell, "." an empty one.
LevelMap MapOf(const QStringList& rows)
{
    LevelMap map(int(rows.first().size()), int(rows.size()));
    for (int y = 0; y < map.Height(); ++y)
        for (int x = 0; x < map.Width(); ++x)
            map.At(x, y) = rows.at(y).at(x) == u'.' ? 0 : rows.at(y).at(x).unicode();
    return map;
}

std::string Rows(const LevelMap& map)
{
    std::string text;
    for (int y = 0; y < map.Height(); ++y) {
        for (int x = 0; x < map.Width(); ++x)
            text += map.At(x, y) == 0 ? '.' : map.At(x, y) < 0 ? '-' : char(map.At(x, y));
        text += '\n';
    }
    return text;
}

std::string Rows(const QStringList& rows)
{
    return Rows(MapOf(rows));
}

LevelMap Blank(int width, int height)
{
    return {width, height};
}

const CellTest Any;

CellTest Only(QChar cell, bool others = false)
{
    return {CellValues(cell.unicode()), others};
}

constexpr qint32 Huge = std::numeric_limits<qint32>::max(), Lowest = std::numeric_limits<qint32>::min();

} // namespace

// Catches: an outline or a filling that reaches a cell too far, corners in the other order, a condition that is asked
// of the wrong cell, boxes far outside that are walked cell by cell.
TEST(MapPainting, BoxesOfAnyCorners)
{
    LevelMap map = MapOf({u"......"_s, u".a...."_s, u"......"_s, u"......"_s});
    PaintBox(map, {4, 3, 1, 0}, 'w', Any, 'i');
    EXPECT_EQ(Rows(map), Rows({u".wwww."_s, u".wiiw."_s, u".wiiw."_s, u".wwww."_s}));
    map = MapOf({u"a.a"_s, u".a."_s, u"a.a"_s});
    PaintBox(map, {-5, 0, 2, 9}, 'w', Only(u'a'), 'i');
    EXPECT_EQ(Rows(map), Rows({u"w.w"_s, u".i."_s, u"i.w"_s}));
    map = Blank(3, 2);
    PaintBox(map, {Lowest, 1, Huge, Huge}, 'w', Any, std::nullopt);
    EXPECT_EQ(Rows(map), Rows({u"..."_s, u"www"_s}));
    map = Blank(3, 3);
    PaintBox(map, {1, 1, 1, 1}, 'w', Only(u'w', true), 'i');
    EXPECT_EQ(Rows(map), Rows({u"..."_s, u".w."_s, u"..."_s}));
}

// Catches: a line walked along its short side, halves rounded away from the even cell, a direction that loses an end,
// and lines from far outside that run for minutes or leave the map's cells out.
TEST(MapPainting, LinesInEveryDirection)
{
    LevelMap map = Blank(6, 4);
    PaintLine(map, {0, 0, 5, 2}, 'w', Any);
    EXPECT_EQ(Rows(map), Rows({u"ww...."_s, u"..ww.."_s, u"....ww"_s, u"......"_s}));
    LevelMap back = Blank(6, 4);
    PaintLine(back, {5, 2, 0, 0}, 'w', Any);
    EXPECT_EQ(Rows(back), Rows(map));
    map = Blank(3, 3); // the middle is a half: to the even column
    PaintLine(map, {0, 0, 1, 2}, 'w', Any);
    EXPECT_EQ(Rows(map), Rows({u"w.."_s, u"w.."_s, u".w."_s}));
    map = MapOf({u"a.a"_s, u"..."_s, u"a.a"_s});
    PaintLine(map, {2, 2, 0, 0}, 'w', Only(u'a', true));
    EXPECT_EQ(Rows(map), Rows({u"a.a"_s, u".w."_s, u"a.a"_s}));
    map = Blank(4, 4);
    PaintLine(map, {Lowest, Lowest, Huge, Huge}, 'w', Any);
    EXPECT_EQ(Rows(map), Rows({u"w..."_s, u".w.."_s, u"..w."_s, u"...w"_s}));
    map = Blank(4, 2);
    PaintLine(map, {Lowest, 1, Huge, 1}, 'w', Any);
    PaintLine(map, {2, 0, 2, 0}, 'p', Any);
    EXPECT_EQ(Rows(map), Rows({u"..p."_s, u"wwww"_s}));
}

// Catches: gaps in a row that stay open, a mark that stays in the map, a radius of nothing that draws or never ends,
// one beyond the map that takes minutes or misses it.
TEST(MapPainting, Circles)
{
    LevelMap map = Blank(9, 8);
    PaintCircle(map, {4, 4, 3, 3}, 'w', Any);
    EXPECT_EQ(Rows(map), Rows({u"...www..."_s, u"..w...w.."_s, u".w.....w."_s, u".w.....w."_s, u".w.....w."_s,
                               u".w.....w."_s, u"..w...w.."_s, u"...www..."_s}));
    for (const LevelBox& nothing : {LevelBox{4, 4, 0, 3}, LevelBox{4, 4, 3, -7}, LevelBox{4, 4, 0, 0}}) {
        LevelMap blank = Blank(9, 8);
        PaintCircle(blank, nothing, 'w', Any);
        EXPECT_EQ(blank, Blank(9, 8));
    }
    LevelMap kept = map;
    std::replace(kept.Cells().begin(), kept.Cells().end(), qint32('w'), qint32(7));
    PaintCircle(kept, {4, 4, 3, 3}, 'w', CellTest(CellValues(7), true));
    for (const qint32 cell : kept.Cells())
        EXPECT_TRUE(cell == 7 || cell == 0) << "a condition that nothing passes";
    map = Blank(5, 5);
    PaintCircle(map, {Huge, 3, Huge, 1000}, 'w', Any);
    EXPECT_EQ(map.At(0, 2), 'w') << "the left end of a huge ellipse";
    map = Blank(100, 3);
    PaintCircle(map, {50, 2'000'001, 2'000'000, 2'000'000}, 'w', Any);
    EXPECT_EQ(std::count(map.Cells().begin(), map.Cells().end(), qint32('w')), 100) << "its top";
}

// Catches: recursion that a maze of 16,384 cells overflows, corners that count as neighbours, an endless fill with the
// value that stands there.
TEST(MapPainting, FillsStayInsideTheirRegion)
{
    LevelMap map = MapOf({u"..w."_s, u"..w."_s, u"ww.."_s});
    FillCells(map, 0, 1, 'f');
    EXPECT_EQ(Rows(map), Rows({u"ffw."_s, u"ffw."_s, u"ww.."_s}));
    FillCells(map, 0, 1, 'f');
    EXPECT_EQ(map.At(0, 0), 'f');
    LevelMap snake = Blank(128, 128);
    for (int y = 1; y < 128; y += 2)
        for (int x = 0; x < 127; ++x)
            snake.At(y % 4 == 1 ? x : x + 1, y) = 'w';
    FillCells(snake, 0, 0, 'f');
    EXPECT_EQ(std::count(snake.Cells().begin(), snake.Cells().end(), 0), 0);
}

// Catches: a clip that keeps cells outside the map or the condition, empty cells of it that are pasted, targets far
// away that overflow.
TEST(MapPainting, CopyAndPaste)
{
    LevelMap map = MapOf({u"ab"_s, u"cd"_s});
    const LevelMap clip = CopyCells(map, {2, 2, 0, -1}, Only(u'd', true));
    EXPECT_EQ(clip.Width(), 3);
    EXPECT_EQ(Rows(clip), "---\nab-\nc--\n---\n");
    LevelMap target = MapOf({u"xxxx"_s, u"xxyx"_s});
    PasteCells(target, clip, 1, -1, Only(u'y', true));
    EXPECT_EQ(Rows(target), Rows({u"xabx"_s, u"xcyx"_s}));
    const LevelMap before = target;
    PasteCells(target, clip, Lowest, Huge, Any);
    EXPECT_EQ(target, before);
}

// Catches: a turn in the wrong direction, one that loses cells of a map that is not square.
TEST(MapPainting, Turns)
{
    const LevelMap map = MapOf({u"abc"_s, u"def"_s});
    EXPECT_EQ(Rows(Flipped(map)), Rows({u"def"_s, u"abc"_s}));
    EXPECT_EQ(Rows(Mirrored(map)), Rows({u"cba"_s, u"fed"_s}));
    EXPECT_EQ(Rows(Rotated(map)), Rows({u"cf"_s, u"be"_s, u"ad"_s}));
    EXPECT_EQ(Mirrored(Mirrored(map)), map);
    EXPECT_EQ(Rotated(Rotated(map)), Flipped(Mirrored(map)));
}

namespace {

std::string Replaced(const QStringList& rows, std::vector<ReplaceTest> tests, const LevelBox& range)
{
    LevelMap map = MapOf(rows);
    ReplaceCells(map, range, {CellValues('a'), 'b', std::move(tests), [] { return true; }});
    return Rows(map);
}

ReplaceTest Neighbour(qint32 dx, qint32 dy, QChar cell, bool unequal = false)
{
    return {dx, dy, unequal, false, CellValues(cell.unicode())};
}

ReplaceTest NeighbourOf(qint32 dx, qint32 dy, std::vector<qint32> cells, bool unequal = false)
{
    return {dx, dy, unequal, true, CellValues(std::move(cells))};
}

} // namespace

// Catches: tests joined by "or" where one that fails must end the attempt, a group that ends it where it must not,
// cells beside the map, cells that do not see what was replaced before them.
TEST(MapReplace, NeighbourTests)
{
    const LevelBox all{0, 0, 3, 1};
    const QStringList rows = {u"axaw"_s, u"aaaa"_s};
    EXPECT_EQ(Replaced(rows, {}, all), Rows({u"bxbw"_s, u"bbbb"_s}));
    EXPECT_EQ(Replaced(rows, {}, {1, 0, 2, 0}), Rows({u"axbw"_s, u"aaaa"_s}));
    EXPECT_EQ(Replaced(rows, {Neighbour(1, 0, u'x')}, all), Rows({u"bxaw"_s, u"aaaa"_s}));
    EXPECT_EQ(Replaced(rows, {Neighbour(0, -1, u'w', true)}, {0, 1, 3, 1}), Rows({u"axaw"_s, u"bbba"_s}));
    EXPECT_EQ(Replaced(rows, {Neighbour(1, 0, u'x'), Neighbour(0, 1, u'z')}, all), Rows(rows));
    // Of several groups one is enough; none leaves the verdict at no.
    EXPECT_EQ(Replaced(rows, {NeighbourOf(1, 0, {'x', 'y'}), NeighbourOf(0, 1, {'z'})}, all),
              Rows({u"bxaw"_s, u"aaaa"_s}));
    EXPECT_EQ(Replaced(rows, {NeighbourOf(1, 0, {'w'}, true)}, {0, 0, 3, 0}), Rows({u"bxaw"_s, u"aaaa"_s}));
    // To the left a cell sees what it has become.
    EXPECT_EQ(Replaced({u"xaaa"_s}, {Neighbour(-1, 0, u'b', true)}, {0, 0, 3, 0}), Rows({u"xbab"_s}));
    // Beyond the right edge stands the last column; beyond the left one the second.
    EXPECT_EQ(Replaced({u"axwa"_s}, {Neighbour(Huge, 0, u'a')}, {0, 0, 2, 0}), Rows({u"bxwa"_s}));
    EXPECT_EQ(Replaced({u"axwa"_s}, {Neighbour(Lowest, 0, u'x')}, {0, 0, 3, 0}), Rows({u"bxwb"_s}));
}

// Catches: a chance that is asked for cells that are not found, so that the random numbers of a seed shift.
TEST(MapReplace, ChanceIsAskedOfFoundCellsOnly)
{
    LevelMap map = MapOf({u"aXaXa"_s});
    int asked = 0;
    ReplaceCells(map, {0, 0, 4, 0}, {CellValues('a'), 'b', {}, [&asked] { return ++asked == 2; }});
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(Rows(map), Rows({u"aXbXa"_s}));
}
