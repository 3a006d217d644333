#pragma once

#include "level/level_map.h"

#include <QHash>
#include <QImage>
#include <QRect>
#include <QString>

// A palette is a picture with a cell for each element, row by row.

constexpr int PaletteColumns = 25;
constexpr int PaletteCell = 16; ///< pixels, in both directions

/// Where an element's cell lies.
constexpr QRect PaletteRect(int element)
{
    return {element % PaletteColumns * PaletteCell, element / PaletteColumns * PaletteCell, PaletteCell, PaletteCell};
}

/// File name of the palette for a level: that of the folder that holds it.
QString PaletteName(const QString& levelPath);

/// Where palettes stand, with "/" at its end.
QString PreviewsFolder();

/// The palette that every element has a cell of.
QString DefaultPalette();

/// Path of the palette of that file name, or of the default one; empty if neither is there.
QString FindPalette(const QString& name);

/// An element that the palette has no cell for is pink.
constexpr QRgb MissingCell = 0xffff00ff;

/// Draws maps with one palette, at any size of a cell. What it scales it keeps.
class MapPainter
{
public:
    MapPainter() = default; ///< without a palette: all is pink
    explicit MapPainter(const QImage& palette);

    /// The map with `side` pixels a cell.
    QImage Picture(const LevelMap& map, int side = PaletteCell) const;

    /// The map at so few pixels a cell that it fits into `room`, 1 at least and 16 at most.
    QImage Small(const LevelMap& map, const QSize& room) const;

    /// One element's cell.
    QImage Cell(int element) const;

private:
    const QImage& Scaled(int side) const;

    QImage palette;
    mutable QHash<int, QImage> scaled; ///< by pixels a cell
};

/// The map at 16 by 16 pixels a cell.
QImage MapPicture(const LevelMap& map, const QImage& palette);
