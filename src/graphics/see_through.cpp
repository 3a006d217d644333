#include "graphics/see_through.h"

#include <algorithm>

namespace {

constexpr QRgb Opaque = 0xff000000, PureBlack = Opaque, AlmostBlack = qRgb(1, 1, 1);
constexpr int MostlySeen = 128;

template <class Change>
QImage Changed(QImage picture, Change change)
{
    for (int y = 0; y < picture.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(picture.scanLine(y));
        std::transform(row, row + picture.width(), row, change);
    }
    return picture;
}

} // namespace

QImage OverBlack(const QImage& picture)
{
    if (!picture.hasAlphaChannel())
        return picture.convertToFormat(QImage::Format_RGB32);
    QImage flat = Changed(picture.convertToFormat(QImage::Format_ARGB32), [](QRgb pixel) {
        const QRgb over = (qPremultiply(pixel) & 0xffffff) | Opaque;
        return over == PureBlack && qAlpha(pixel) >= MostlySeen ? AlmostBlack : over;
    });
    flat.reinterpretAsFormat(QImage::Format_RGB32);
    return flat;
}

QImage WithoutAlpha(const QImage& picture)
{
    if (picture.format() != QImage::Format_ARGB32)
        return picture.convertToFormat(QImage::Format_RGB32);
    QImage flat = Changed(picture, [](QRgb pixel) { return pixel | Opaque; });
    flat.reinterpretAsFormat(QImage::Format_RGB32);
    return flat;
}

QImage AsInGame(const QImage& picture)
{
    QImage shown = Changed(picture.convertToFormat(QImage::Format_RGB32),
                           [](QRgb pixel) { return (pixel | Opaque) == PureBlack ? 0 : pixel | Opaque; });
    shown.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    return shown;
}
