#include "graphics/film_sheet.h"

#include <algorithm>

namespace {

constexpr int FirstHeight = 19 * TileSize; // grows by doubling
constexpr int LastRow = TallestSheet / TileSize * TileSize - TileSize;

QImage BlackSheet(QSize size)
{
    QImage sheet(size, QImage::Format_RGB32);
    sheet.fill(Qt::black);
    return sheet;
}

} // namespace

FilmSheet::FilmSheet(int tiles, bool ignoreDups)
    : sheet(BlackSheet({tiles * TileSize, FirstHeight})), memory{.LastFrameBits = {}, .IgnoreDups = ignoreDups}
{
}

bool FilmSheet::Add(const cAVI& frame)
{
    const QImage tile = frame.Picture();
    if (tile.size() != QSize(TileSize, TileSize) || !frame.TakeChange(memory))
        return true;
    if (sheet.width() == Column && Row == LastRow)
        return false;
    if (sheet.width() == Column) {
        Column = 0;
        Row += TileSize;
    }
    if (Row == sheet.height()) {
        QImage taller = BlackSheet({sheet.width(), std::min(2 * sheet.height(), LastRow + TileSize)});
        std::copy_n(sheet.constBits(), sheet.sizeInBytes(), taller.bits());
        sheet = taller;
    }
    for (int y = 0; y < TileSize; ++y)
        std::copy_n(reinterpret_cast<const QRgb*>(tile.constScanLine(y)), TileSize,
                    reinterpret_cast<QRgb*>(sheet.scanLine(Row + y)) + Column);
    Column += TileSize;
    ++count;
    return true;
}

QImage FilmSheet::Picture() const
{
    return sheet.copy(0, 0, sheet.width(), Row + TileSize);
}

int TilesAcross(const QString& text)
{
    bool isNumber = true;
    const int tiles = text.isEmpty() ? 0 : text.toInt(&isNumber);
    return isNumber ? std::clamp(tiles, 1, MostTilesAcross) : MostTilesAcross; // too long for a number
}

QImage TileOf(const QImage& sheet, int number)
{
    const int across = std::max(1, sheet.width() / TileSize);
    return sheet.copy(number % across * TileSize, number / across * TileSize, TileSize, TileSize);
}
