#include "graphics/pcx_writer.h"

#include "platform/paths.h"

#include <QHash>
#include <QtEndian>
#include <optional>

namespace {

constexpr int LongestSide = 65534; ///< a line of an even number of bytes, given in 16 bits
constexpr int Colours = 256;
constexpr int LongestRun = 63;
constexpr int RunMark = 0xc0;
constexpr int Resolution = 72; ///< dots an inch; nobody goes by it
constexpr char PaletteMark = 0x0c;

void AppendShorts(QByteArray& to, std::initializer_list<int> numbers)
{
    for (const int number : numbers) {
        const quint16 bytes = qToLittleEndian(quint16(number));
        to.append(reinterpret_cast<const char*>(&bytes), sizeof(bytes));
    }
}

int BytesPerLine(int width)
{
    return width + width % 2;
}

QByteArray Header(QSize size, int planes)
{
    QByteArray header("\x0a\x05\x01\x08", 4); // PCX of version 3.0, with runs, 8 bits in each plane
    AppendShorts(header, {0, 0, size.width() - 1, size.height() - 1, Resolution, Resolution});
    header.append(48, '\0'); // the palette of 16 colours
    header.append('\0');
    header.append(char(planes));
    AppendShorts(header, {BytesPerLine(size.width()), 1});
    return header.append(128 - header.size(), '\0');
}

void AppendRuns(QByteArray& to, const QByteArray& plane)
{
    for (qsizetype at = 0; at < plane.size();) {
        const char value = plane[at];
        int count = 1;
        while (count < LongestRun && at + count < plane.size() && plane[at + count] == value)
            ++count;
        if (count > 1 || quint8(value) >= RunMark)
            to.append(char(RunMark | count));
        to.append(value);
        at += count;
    }
}

QByteArray Full(const QImage& picture)
{
    QByteArray file = Header(picture.size(), 3);
    QByteArray plane(BytesPerLine(picture.width()), '\0');
    for (int y = 0; y < picture.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (const int shift : {16, 8, 0}) {
            for (int x = 0; x < picture.width(); ++x)
                plane[x] = char(row[x] >> shift);
            AppendRuns(file, plane);
        }
    }
    return file;
}

/// Numbers for colours, in the order in which they first come up.
class Palette
{
public:
    /// Nothing for one colour too many.
    std::optional<int> NumberOf(QRgb colour)
    {
        const auto known = numbers.constFind(colour);
        if (known != numbers.constEnd())
            return *known;
        const int number = int(numbers.size());
        if (number == Colours)
            return {};
        numbers.insert(colour, number);
        for (const int part : {qRed(colour), qGreen(colour), qBlue(colour)})
            bytes.append(char(part));
        return number;
    }
    QByteArray Bytes() const { return PaletteMark + bytes.leftJustified(qsizetype(Colours) * 3, '\0'); }

private:
    QHash<QRgb, int> numbers;
    QByteArray bytes;
};

/// Empty for more colours than a palette holds.
QByteArray WithPalette(const QImage& picture)
{
    QByteArray file = Header(picture.size(), 1);
    QByteArray plane(BytesPerLine(picture.width()), '\0');
    Palette palette;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const std::optional<int> number = palette.NumberOf(row[x] | 0xff000000);
            if (!number)
                return {};
            plane[x] = char(*number);
        }
        AppendRuns(file, plane);
    }
    return file + palette.Bytes();
}

} // namespace

Result<QByteArray> PcxBytes(const QImage& picture, PcxDepth depth)
{
    if (picture.isNull())
        return Fail({}, QStringLiteral("There is no picture."));
    if (picture.width() > LongestSide || picture.height() > LongestSide)
        return Fail({}, QStringLiteral("The picture is too large for a PCX file."));
    const QImage pixels =
        picture.convertToFormat(picture.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    QByteArray file = depth == PcxDepth::Full ? Full(pixels) : WithPalette(pixels);
    if (file.isEmpty())
        return Fail({}, QStringLiteral("The picture has more than 256 colours."));
    return file;
}

Result<> WritePcx(const QString& path, const QImage& picture, PcxDepth depth)
{
    const Result<QByteArray> file = PcxBytes(picture, depth);
    return file ? paths::WriteWhole(path, *file) : Fail(path, file.error().Reason);
}
