#include "decoder/bmp_files.h"

#include <QRandomGenerator>
#include <QtEndian>

namespace {

QByteArray Little(quint32 number, int bytes)
{
    QByteArray little(4, '\0');
    qToLittleEndian(number, little.data());
    return little.first(bytes);
}

/// A channel by its mask, as a share of the largest value.
int Share(quint32 pixel, quint32 mask, int without)
{
    return mask == 0 ? without : int(double(pixel & mask) / mask * 255 + 0.5);
}

QRgb Shown(const BmpPlan& plan, quint32 pixel, const QList<QRgb>& palette)
{
    const auto& [red, green, blue, alpha] = plan.Masks;
    if (!palette.isEmpty())
        return palette[qsizetype(pixel)];
    if (red == 0)
        return qRgb(int(pixel >> 16 & 255), int(pixel >> 8 & 255), int(pixel & 255));
    return qRgba(Share(pixel, red, 0), Share(pixel, green, 0), Share(pixel, blue, 0), Share(pixel, alpha, 255));
}

} // namespace

BmpFile BuildBmp(const BmpPlan& plan, quint32 seed)
{
    QRandomGenerator random(seed);
    const bool masked = plan.Masks[0] != 0;
    QByteArray header = Little(quint32(plan.Header), 4) + Little(quint32(plan.Width), 4) +
                        Little(quint32(plan.FromTop ? -plan.Height : plan.Height), 4) + Little(1, 2) +
                        Little(quint32(plan.Bits), 2) + Little(masked ? 3 : 0, 4) + QByteArray(12, '\0') +
                        Little(quint32(plan.Colours), 4) + Little(0, 4);
    for (int i = 0; masked && i < (plan.Header > 52 ? 4 : 3); ++i)
        header += Little(plan.Masks[size_t(i)], 4);
    header = header.leftJustified(plan.Header, '\0');
    QList<QRgb> palette;
    for (int i = 0; i < plan.Colours; ++i) {
        palette << (random.generate() | 0xff000000);
        header += Little(palette.last() & 0xffffff, 4);
    }
    header += QByteArray(plan.Gap, 'g');
    QImage shows(plan.Width, plan.Height, plan.Masks[3] ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    QByteArray rows;
    for (int y = 0; y < plan.Height; ++y) {
        QByteArray row;
        for (int x = 0; x < plan.Width; ++x) {
            // What belongs to no channel is noise, unless nothing tells that it is no alpha.
            quint32 pixel = plan.Colours ? random.bounded(quint32(plan.Colours)) : random.generate();
            if (plan.Bits == 32 && plan.Header < 56)
                pixel &= 0xffffff;
            if (plan.Bits < 32)
                pixel &= (1u << plan.Bits) - 1;
            row += Little(pixel, plan.Bits / 8);
            shows.setPixel(x, plan.FromTop ? y : plan.Height - 1 - y, Shown(plan, pixel, palette));
        }
        rows += row.leftJustified((row.size() + 3) / 4 * 4, '\0');
    }
    const quint32 offset = quint32(14 + header.size());
    return {"BM" + Little(offset + quint32(rows.size()), 4) + Little(0, 4) + Little(offset, 4) + header + rows, shows};
}
