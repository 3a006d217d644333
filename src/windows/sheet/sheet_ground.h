#pragma once

#include <QBrush>

/// What stands behind the see-through pixels of a sheet.
enum class SheetGround { Checker, Black, White };

/// The squares of a checker divide a tile, so that each tile has the same ones wherever it is drawn.
QBrush GroundBrush(SheetGround kind);
