#include "decoder/pcx_files.h"

#include <QRandomGenerator>
#include <QtEndian>

namespace {

constexpr qsizetype HeaderSize = 128, PcxPaletteBytes = 769;

QByteArray Lines(const PcxPlan& plan, QRandomGenerator& random)
{
    const int plane = (plan.Width * plan.Bits + 7) / 8 + plan.Slack;
    const qsizetype size = qsizetype(plane) * plan.Planes * plan.Height;
    QByteArray lines;
    while (lines.size() < size)
        lines += QByteArray(random.bounded(3) ? 1 : random.bounded(1, 150), char(random.bounded(256)));
    return lines.first(size);
}

/// Runs over a stretch of bytes, of any length that the format allows.
QByteArray Runs(const QByteArray& bytes, const PcxPlan& plan, QRandomGenerator& random)
{
    QByteArray runs;
    for (qsizetype at = 0; at < bytes.size();) {
        const char value = bytes[at];
        int count = 1;
        const int most = random.bounded(1, 64);
        while (count < most && at + count < bytes.size() && bytes[at + count] == value)
            ++count;
        if (plan.EmptyRuns && random.bounded(9) == 0)
            runs += QByteArray("\xc0") + char(random.bounded(256));
        if (count > 1 || quint8(value) >= 0xc0)
            runs += char(0xc0 | count);
        runs += value;
        at += count;
    }
    return runs;
}

QByteArray Encoded(const QByteArray& lines, const PcxPlan& plan, QRandomGenerator& random)
{
    if (plan.Encoding == 0)
        return lines;
    if (plan.RunsCrossLines)
        return Runs(lines, plan, random);
    const qsizetype line = lines.size() / plan.Height;
    QByteArray encoded;
    for (int y = 0; y < plan.Height; ++y)
        encoded += Runs(lines.sliced(y * line, line), plan, random);
    return encoded;
}

int Short(const QByteArray& file, int at)
{
    return qFromLittleEndian<quint16>(file.constData() + at);
}

QByteArray Expanded(const QByteArray& data, bool runs, qsizetype size)
{
    QByteArray lines;
    for (qsizetype at = 0; at < data.size() && lines.size() < size; ++at) {
        const int code = quint8(data[at]);
        if (runs && code >= 0xc0 && ++at < data.size())
            lines += QByteArray(code & 0x3f, data[at]);
        else if (!runs || code < 0xc0)
            lines += char(code);
    }
    return lines.leftJustified(size, '\0', true);
}

QRgb Colour(const QByteArray& palette, int index)
{
    const auto* const entry = reinterpret_cast<const quint8*>(palette.constData()) + 3 * index;
    return qRgb(entry[0], entry[1], entry[2]);
}

} // namespace

QByteArray BuildPcx(const PcxPlan& plan, quint32 seed)
{
    QRandomGenerator random(seed);
    QByteArray file(HeaderSize, '\0');
    const auto put = [&file](int at, int number) { qToLittleEndian(quint16(number), file.data() + at); };
    file[0] = 10;
    file[1] = char(plan.Version);
    file[2] = char(plan.Encoding);
    file[3] = char(plan.Bits);
    put(4, 3), put(6, 5); // the window need not begin at 0
    put(8, 3 + plan.Width - 1), put(10, 5 + plan.Height - 1);
    for (int at = 16; at < 64; ++at)
        file[at] = char(random.bounded(256));
    if (plan.LikeColours)
        file.replace(16, 6, QByteArray(6, '\x55'));
    file[65] = char(plan.Planes);
    put(66, (plan.Width * plan.Bits + 7) / 8 + plan.Slack);
    file += Encoded(Lines(plan, random), plan, random);
    if (plan.Bits != 8 || plan.Planes != 1 || !plan.Palette)
        return file;
    file += plan.Between + '\x0c';
    for (int at = 1; at < PcxPaletteBytes; ++at)
        file += char(random.bounded(256));
    return file;
}

QImage ReadPcx(const QByteArray& file)
{
    const int bits = file[3], planes = file[65], plane = Short(file, 66);
    QImage image(Short(file, 8) - Short(file, 4) + 1, Short(file, 10) - Short(file, 6) + 1, QImage::Format_RGB32);
    const qsizetype line = qsizetype(planes) * plane;
    const bool far = bits == 8 && planes == 1 && file.size() >= HeaderSize + PcxPaletteBytes &&
                     file[file.size() - PcxPaletteBytes] == '\x0c';
    QByteArray palette = far ? file.last(PcxPaletteBytes - 1) : file.mid(16, 48);
    if (bits == 8 && planes == 1 && !far) {
        palette.clear();
        for (int grey = 0; grey < 256; ++grey)
            palette += QByteArray(3, char(grey));
    }
    if (bits == 1 && planes == 1 && Colour(palette, 0) == Colour(palette, 1))
        palette = QByteArray(3, '\0') + QByteArray(3, '\xff');
    const QByteArray data = file.sliced(HeaderSize).chopped(far ? PcxPaletteBytes : 0);
    const QByteArray lines = Expanded(data, file[2] == 1, line * image.height());
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            int value[4] = {};
            for (int p = 0; p < planes; ++p) {
                const int byte = quint8(lines[y * line + p * plane + x * bits / 8]);
                value[p] = bits == 8 ? byte : byte >> (7 - x % 8) & 1;
            }
            const int index = bits == 8 ? value[0] : value[0] | value[1] << 1 | value[2] << 2 | value[3] << 3;
            image.setPixel(x, y,
                           bits == 8 && planes == 3 ? qRgb(value[0], value[1], value[2]) : Colour(palette, index));
        }
    return image;
}
