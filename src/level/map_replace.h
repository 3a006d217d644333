#pragma once

#include "level/cell_values.h"
#include "level/level_box.h"
#include "level/level_map.h"

#include <functional>
#include <vector>

/// What a neighbour of a cell must be, or must not, for the cell to be replaced.
struct ReplaceTest
{
    qint32 Dx = 0, Dy = 0; ///< from the cell
    bool Unequal = false;
    bool AnyOf = false; ///< Values are those of a group: being none of them ends nothing
    CellValues Values;
};

struct Replacing
{
    CellValues Find;
    qint32 Value = 0;
    std::vector<ReplaceTest> Tests;
    std::function<bool()> Chance; ///< asked for each cell that is found: does it count?
};

/// Replaces cells in a range, which must lie in the map, row by row; a cell sees what stands in those before.
void ReplaceCells(LevelMap& map, const LevelBox& range, const Replacing& how);
