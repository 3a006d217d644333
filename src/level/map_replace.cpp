#include "level/map_replace.h"

namespace {

/// Beside the map stands its edge; above or left of it, by old habit, the second column and row.
int NeighbourAt(int cell, qint32 offset, int size)
{
    const qint64 at = qint64(cell) + offset;
    return int(std::min<qint64>(at < 0 ? 1 : at, size - 1));
}

bool PassesTests(const LevelMap& map, int x, int y, const std::vector<ReplaceTest>& tests)
{
    bool verdict = tests.empty();
    for (const ReplaceTest& test : tests) {
        const bool has =
            test.Values.Has(map.At(NeighbourAt(x, test.Dx, map.Width()), NeighbourAt(y, test.Dy, map.Height())));
        if (has == test.Unequal && (test.Unequal || !test.AnyOf))
            return false;
        verdict = verdict || has != test.Unequal;
    }
    return verdict;
}

} // namespace

void ReplaceCells(LevelMap& map, const LevelBox& range, const Replacing& how)
{
    for (int y = range.Y1; y <= range.Y2; ++y)
        for (int x = range.X1; x <= range.X2; ++x)
            if (how.Find.Has(map.At(x, y)) && how.Chance() && PassesTests(map, x, y, how.Tests))
                map.At(x, y) = how.Value;
}
