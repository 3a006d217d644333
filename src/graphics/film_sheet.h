#pragma once

#include "graphics/c_avi.h"
#include "graphics/sheet.h"

/// Tiles from frames, laid out row by row without gaps. It grows as they come.
class FilmSheet
{
public:
    /// `tiles`: in a row, 1 to 25.
    FilmSheet(int tiles, bool ignoreDups);

    /// Lays the frame behind the others, unless it repeats the one before. False: the sheet is full.
    bool Add(const cAVI& frame);

    int Tiles() const { return count; }

    /// The sheet, at least one row high. Cells without a tile are black, which is see-through in the game.
    QImage Picture() const;

private:
    QImage sheet; ///< higher than what is used
    FrameMemory memory;
    int Column = 0, Row = 0; ///< place of the next tile in pixels
    int count = 0;
};

constexpr int MostTilesAcross = 25;
constexpr int TallestSheet = 32767; ///< pixels

/// What a text of "Horizontal Tiles" stands for: 1 to 25.
int TilesAcross(const QString& text);

/// Tile `number` of a sheet of so many tiles across.
QImage TileOf(const QImage& sheet, int number);
