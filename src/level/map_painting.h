#pragma once

#include "level/cell_values.h"
#include "level/level_box.h"
#include "level/level_map.h"

#include <optional>

// Painting on a map. Positions outside the map are left out, however far away they are; cells that do not pass the test
// stay as they are.

/// Writes one cell.
inline void PlotCell(LevelMap& map, int x, int y, qint32 value, const CellTest& test)
{
    if (map.Contains(x, y) && test.Passes(map.At(x, y)))
        map.At(x, y) = value;
}

/// A cell of a clipboard with nothing in it.
constexpr qint32 NoCell = -1;

/// The cells of the box, sorted; NoCell where the box leaves the map or a cell does not pass.
LevelMap CopyCells(const LevelMap& map, const LevelBox& box, const CellTest& test);

/// Lays a clipboard on the map with its first cell at x, y. Cells below 0 leave the map as it is.
void PasteCells(LevelMap& map, const LevelMap& clip, qint32 x, qint32 y, const CellTest& test);

/// Gives all cells that hang together with the one at x, y, which must lie in the map, the new value. Corners do not
/// hang together.
void FillCells(LevelMap& map, int x, int y, qint32 value);

/// The outline of the box, and before it the cells strictly inside, if they get a value.
void PaintBox(LevelMap& map, const LevelBox& box, qint32 value, const CellTest& test, std::optional<qint32> inside);

/// A line from (X1, Y1) to (X2, Y2) of the box.
void PaintLine(LevelMap& map, const LevelBox& line, qint32 value, const CellTest& test);

/// An ellipse around (X1, Y1) of the box with the radii X2 and Y2; one of 0 or less draws nothing. A gap of one cell
/// between two of its cells in a row is closed, whatever stands there.
void PaintCircle(LevelMap& map, const LevelBox& circle, qint32 value, const CellTest& test);

LevelMap Flipped(const LevelMap& map);  ///< top to bottom
LevelMap Mirrored(const LevelMap& map); ///< left to right
LevelMap Rotated(const LevelMap& map);  ///< a quarter turn anticlockwise
