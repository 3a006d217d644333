#include "graphics/pcx_writer.h"

#include "platform/files/paths.h"

#include <QHash>
#include <QtEndian>
#include <algorithm>
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

/// Room for a file in which every byte is a run of its own; what is left over is cut off.
class RunFile
{
public:
    RunFile(QSize size, int planes)
        : plane(BytesPerLine(size.width()), '\0'), bytes(Header(size, planes)), end(bytes.size())
    {
        bytes.resize(end + 2 * plane.size() * planes * size.height());
    }

    char* Plane() { return plane.data(); } ///< of a line, to be filled; padded to an even width

    void AppendPlane()
    {
        char* to = bytes.data() + end;
        const char* at = plane.constData();
        for (const char* const last = at + plane.size(); at < last;) {
            const char* run = at + 1;
            for (const char* const most = std::min(last, at + LongestRun); run < most && *run == *at;)
                ++run;
            if (run - at > 1 || quint8(*at) >= RunMark)
                *to++ = char(RunMark | int(run - at));
            *to++ = *at;
            at = run;
        }
        end = to - bytes.constData();
    }

    QByteArray Taken() { return bytes.first(end); }

private:
    QByteArray plane, bytes;
    qsizetype end;
};

QByteArray Full(const QImage& picture)
{
    RunFile file(picture.size(), 3);
    for (int y = 0; y < picture.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (const int shift : {16, 8, 0}) {
            std::transform(row, row + picture.width(), file.Plane(), [=](QRgb pixel) { return char(pixel >> shift); });
            file.AppendPlane();
        }
    }
    return file.Taken();
}

QByteArray PaletteBytes(const QList<QRgb>& colours)
{
    QByteArray bytes(1, PaletteMark);
    for (const QRgb colour : colours)
        for (const int part : {qRed(colour), qGreen(colour), qBlue(colour)})
            bytes.append(char(part));
    return bytes.leftJustified(1 + qsizetype(Colours) * 3, '\0');
}

/// Numbers and colours as they are.
QByteArray Numbered(const QImage& picture)
{
    RunFile file(picture.size(), 1);
    for (int y = 0; y < picture.height(); ++y) {
        std::copy_n(picture.constScanLine(y), picture.width(), file.Plane());
        file.AppendPlane();
    }
    return file.Taken() + PaletteBytes(picture.colorTable());
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
        colours << colour;
        return number;
    }
    const QList<QRgb>& ColourList() const { return colours; }

private:
    QHash<QRgb, int> numbers;
    QList<QRgb> colours;
};

/// Empty for more colours than a palette holds.
QByteArray WithPalette(const QImage& picture)
{
    RunFile file(picture.size(), 1);
    Palette palette;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* const row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const std::optional<int> number = palette.NumberOf(row[x] | 0xff000000);
            if (!number)
                return {};
            file.Plane()[x] = char(*number);
        }
        file.AppendPlane();
    }
    return file.Taken() + PaletteBytes(palette.ColourList());
}

} // namespace

Result<QByteArray> PcxBytes(const QImage& picture, PcxDepth depth)
{
    if (picture.isNull())
        return Fail({}, QStringLiteral("There is no picture."));
    if (picture.width() > LongestSide || picture.height() > LongestSide)
        return Fail({}, QStringLiteral("The picture is too large for a PCX file."));
    if (depth == PcxDepth::Palette && picture.format() == QImage::Format_Indexed8)
        return Numbered(picture);
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
