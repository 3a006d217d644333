#include "level/map_painting.h"

namespace {

/// Calls with every position of the map that lies in the sorted box.
template <class Visit>
void ForCells(const LevelMap& map, const LevelBox& box, Visit visit)
{
    const int right = std::min(box.X2, map.Width() - 1), bottom = std::min(box.Y2, map.Height() - 1);
    for (int y = std::max(box.Y1, 0); y <= bottom; ++y)
        for (int x = std::max(box.X1, 0); x <= right; ++x)
            visit(x, y);
}

} // namespace

LevelMap CopyCells(const LevelMap& map, const LevelBox& box, const CellTest& test)
{
    const LevelBox from = box.Sorted();
    LevelMap clip(int(from.Width()), int(from.Height()));
    std::fill(clip.Cells().begin(), clip.Cells().end(), NoCell);
    ForCells(map, from, [&](int x, int y) {
        if (test.Passes(map.At(x, y)))
            clip.At(x - from.X1, y - from.Y1) = map.At(x, y);
    });
    return clip;
}

void PasteCells(LevelMap& map, const LevelMap& clip, qint32 x, qint32 y, const CellTest& test)
{
    for (int row = 0; row < map.Height(); ++row)
        for (int column = 0; column < map.Width(); ++column) {
            const qint64 fromX = qint64(column) - x, fromY = qint64(row) - y;
            if (fromX < 0 || fromX >= clip.Width() || fromY < 0 || fromY >= clip.Height())
                continue;
            const qint32 cell = clip.At(int(fromX), int(fromY));
            if (cell >= 0)
                PlotCell(map, column, row, cell, test);
        }
}

// Cells to go on from wait in a list of their own, since a fill may go as deep as the map has cells.
void FillCells(LevelMap& map, int x, int y, qint32 value)
{
    const qint32 old = map.At(x, y);
    if (old == value)
        return;
    std::vector<std::pair<int, int>> waiting;
    const auto take = [&](int column, int row) {
        if (!map.Contains(column, row) || map.At(column, row) != old)
            return;
        map.At(column, row) = value;
        waiting.emplace_back(column, row);
    };
    take(x, y);
    while (!waiting.empty()) {
        const auto [column, row] = waiting.back();
        waiting.pop_back();
        take(column - 1, row);
        take(column + 1, row);
        take(column, row + 1);
        take(column, row - 1);
    }
}

void PaintBox(LevelMap& map, const LevelBox& box, qint32 value, const CellTest& test, std::optional<qint32> inside)
{
    const LevelBox sorted = box.Sorted();
    const auto isOutline = [&sorted](int x, int y) {
        return x == sorted.X1 || x == sorted.X2 || y == sorted.Y1 || y == sorted.Y2;
    };
    ForCells(map, sorted, [&](int x, int y) {
        if (isOutline(x, y))
            PlotCell(map, x, y, value, test);
        else if (inside)
            PlotCell(map, x, y, *inside, test);
    });
}

LevelMap Flipped(const LevelMap& map)
{
    LevelMap turned(map.Width(), map.Height());
    for (int y = 0; y < map.Height(); ++y)
        for (int x = 0; x < map.Width(); ++x)
            turned.At(x, map.Height() - 1 - y) = map.At(x, y);
    return turned;
}

LevelMap Mirrored(const LevelMap& map)
{
    LevelMap turned(map.Width(), map.Height());
    for (int y = 0; y < map.Height(); ++y)
        for (int x = 0; x < map.Width(); ++x)
            turned.At(map.Width() - 1 - x, y) = map.At(x, y);
    return turned;
}

LevelMap Rotated(const LevelMap& map)
{
    LevelMap turned(map.Height(), map.Width());
    for (int y = 0; y < map.Height(); ++y)
        for (int x = 0; x < map.Width(); ++x)
            turned.At(y, map.Width() - 1 - x) = map.At(x, y);
    return turned;
}
