#include "level/level_palette.h"

#include "frame/frame_state.h"
#include "platform/files/paths.h"

namespace {

/// Copies one cell, row by row, which is many times faster than a painter.
void CopyCell(const QImage& from, const QPoint& fromAt, QImage& to, const QPoint& toAt, int side)
{
    for (int row = 0; row < side; ++row) {
        const auto* source = reinterpret_cast<const QRgb*>(from.constScanLine(fromAt.y() + row)) + fromAt.x();
        std::copy_n(source, side, reinterpret_cast<QRgb*>(to.scanLine(toAt.y() + row)) + toAt.x());
    }
}

/// `palette` is one with cells of `side` pixels.
QImage Drawn(const LevelMap& map, const QImage& palette, int side)
{
    QImage picture(map.Width() * side, map.Height() * side, QImage::Format_RGB32);
    picture.fill(MissingCell);
    const QRect whole = palette.rect();
    for (int y = 0; y < map.Height(); ++y)
        for (int x = 0; x < map.Width(); ++x) {
            const int element = map.At(x, y);
            const QRect cell(element % PaletteColumns * side, element / PaletteColumns * side, side, side);
            if (element >= 0 && whole.contains(cell))
                CopyCell(palette, cell.topLeft(), picture, QPoint(x, y) * side, side);
        }
    return picture;
}

} // namespace

QString PaletteName(const QString& levelPath)
{
    return paths::ParentName(levelPath).toLower() + QStringLiteral(".gif");
}

QString PreviewsFolder()
{
    return Frame.ProgramFolder + QStringLiteral("previews/");
}

QString DefaultPalette()
{
    return PreviewsFolder() + QStringLiteral("gfx_classic.gif");
}

QString FindPalette(const QString& name)
{
    const QString own = name == QLatin1StringView(".gif") ? QString() : paths::Existing(PreviewsFolder() + name);
    return own.isEmpty() ? paths::Existing(DefaultPalette()) : own;
}

MapPainter::MapPainter(const QImage& ofPalette) : palette(ofPalette.convertToFormat(QImage::Format_RGB32)) {}

const QImage& MapPainter::Scaled(int side) const
{
    if (side == PaletteCell || palette.isNull())
        return palette;
    QImage& kept = scaled[side];
    if (!kept.isNull())
        return kept;
    const QSize size = palette.size() / PaletteCell * side;
    // Enlarged cells keep their pixels; shrunk ones are smoothed.
    kept = palette.scaled(size, Qt::IgnoreAspectRatio,
                          side > PaletteCell ? Qt::FastTransformation : Qt::SmoothTransformation);
    kept = kept.convertToFormat(QImage::Format_RGB32);
    return kept;
}

QImage MapPainter::Picture(const LevelMap& map, int side) const
{
    return Drawn(map, Scaled(side), side);
}

QImage MapPainter::Small(const LevelMap& map, const QSize& room) const
{
    const int fits = std::min(room.width() / std::max(map.Width(), 1), room.height() / std::max(map.Height(), 1));
    return Picture(map, std::clamp(fits, 1, PaletteCell));
}

QImage MapPainter::Cell(int element) const
{
    LevelMap one(1, 1);
    one.At(0, 0) = element;
    return Picture(one);
}

QImage MapPicture(const LevelMap& map, const QImage& palette)
{
    return MapPainter(palette).Picture(map);
}
