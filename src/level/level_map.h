#pragma once

#include <QtGlobal>
#include <algorithm>
#include <vector>

/// A level's map: element numbers by (x, y), both from 0. It is kept row by row, as in the file.
class LevelMap
{
public:
    LevelMap() = default;
    LevelMap(int mapWidth, int mapHeight) : width(mapWidth), height(mapHeight), cells(size_t(mapWidth) * mapHeight) {}

    int Width() const { return width; }
    int Height() const { return height; }
    bool Contains(int x, int y) const { return x >= 0 && x < width && y >= 0 && y < height; }

    /// The position must be in the map.
    qint32 At(int x, int y) const { return cells[size_t(y) * width + x]; }
    qint32& At(int x, int y) { return cells[size_t(y) * width + x]; }

    const std::vector<qint32>& Cells() const { return cells; }
    std::vector<qint32>& Cells() { return cells; }

    /// Cells in both sizes keep their value, new ones are 0.
    LevelMap Resized(int newWidth, int newHeight) const
    {
        LevelMap resized(newWidth, newHeight);
        for (int y = 0; y < std::min(height, newHeight); ++y)
            std::copy_n(cells.begin() + y * width, std::min(width, newWidth), resized.cells.begin() + y * newWidth);
        return resized;
    }

    friend bool operator==(const LevelMap&, const LevelMap&) = default;

private:
    int width = 0, height = 0;
    std::vector<qint32> cells;
};
