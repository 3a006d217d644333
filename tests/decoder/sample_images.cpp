#include "decoder/sample_images.h"

#include <FreeImage.h>
#include <QtEndian>
#include <memory>

namespace {

constexpr int Wide = 19, High = 11; // odd sizes, so that padding shows
constexpr int Greys = -8;           // a depth of 8 bits without a palette of its own

using Bitmap = std::unique_ptr<FIBITMAP, decltype(&FreeImage_Unload)>;

QImage Picture(QRgb (*colour)(int x, int y), QSize size = {Wide, High})
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y, colour(x, y));
    return picture;
}

QRgb Coloured(int x, int y)
{
    return qRgb(x * 13, y * 23, (x * 7 + y * 5) % 256);
}
QRgb Grey(int x, int y)
{
    const int grey = (x * 13 + y) % 256;
    return qRgb(grey, grey, grey);
}
QRgb BlackWhite(int x, int y)
{
    return (x * y + x) % 3 == 0 ? qRgb(0, 0, 0) : qRgb(255, 255, 255);
}
QRgb Mild(int x, int y)
{
    return qRgb(100 + x, 120 + y, 90);
}
QRgb OnlyGrey(int, int)
{
    return qRgb(128, 128, 128);
}

QByteArray Big(quint32 number, int bytes = 4)
{
    const quint32 swapped = qToBigEndian(number);
    return QByteArray(reinterpret_cast<const char*>(&swapped), 4).last(bytes);
}
QByteArray Little(quint32 number, int bytes = 4)
{
    const quint32 swapped = qToLittleEndian(number);
    return QByteArray(reinterpret_cast<const char*>(&swapped), 4).first(bytes);
}

template <class Pixel>
QByteArray Rows(const QImage& picture, Pixel pixel, int rowPadding = 0)
{
    QByteArray bytes;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            bytes += pixel(picture.pixel(x, y));
        bytes += QByteArray(rowPadding, '\0');
    }
    return bytes;
}

QByteArray Bgr(QRgb colour)
{
    return Little(colour, 3);
}
QByteArray GreyByte(QRgb colour)
{
    return {1, char(qRed(colour))};
}

/// Four colours in bands of two pixels: background, white, red and cyan of that machine.
SampleImage Koala()
{
    const QByteArray file = QByteArray::fromHex("0060") + QByteArray(8000, 0x1b) + QByteArray(1000, 0x12) +
                            QByteArray(1000, 3) + QByteArray(1, 0);
    const QImage shows = Picture(
        [](int x, int) {
            constexpr QRgb Bands[] = {qRgb(0, 0, 0), qRgb(255, 255, 255), qRgb(170, 17, 17), qRgb(12, 204, 204)};
            return Bands[x / 2 % 4];
        },
        {320, 200});
    return {4, file, shows, 4};
}

SampleImage Amiga()
{
    const QImage shows = Picture(Grey);
    QByteArray palette;
    for (int grey = 0; grey < 256; ++grey)
        palette += QByteArray(3, char(grey));
    const QByteArray header =
        Big(Wide, 2) + Big(High, 2) + Big(0) + QByteArray::fromHex("0800000000000101") + Big(Wide, 2) + Big(High, 2);
    const QByteArray body = Rows(shows, GreyByte, Wide % 2);
    const QByteArray chunks =
        "PBM BMHD" + Big(20) + header + "CMAP" + Big(768) + palette + "BODY" + Big(quint32(body.size())) + body;
    return {5, "FORM" + Big(quint32(chunks.size())) + chunks, shows, 8};
}

/// The library writes this kind with its colours the wrong way round, and reads it right.
SampleImage PortableBitmap(bool raw)
{
    const QImage shows = Picture(BlackWhite);
    QByteArray file = (raw ? "P4\n" : "P1\n") + QByteArray::number(Wide) + ' ' + QByteArray::number(High) + '\n';
    if (!raw)
        return {7, file + Rows(shows, [](QRgb colour) { return QByteArray(qRed(colour) ? "0 " : "1 "); }), shows, 1};
    for (int y = 0; y < High; ++y) {
        QByteArray row((Wide + 7) / 8, '\0');
        for (int x = 0; x < Wide; ++x)
            row[x / 8] = char(row[x / 8] | (qRed(shows.pixel(x, y)) ? 0 : 0x80 >> x % 8));
        file += row;
    }
    return {8, file, shows, 1};
}

QByteArray Chunk(const QByteArray& named)
{
    auto* const bytes = reinterpret_cast<BYTE*>(const_cast<char*>(named.constData()));
    return Big(quint32(named.size()) - 4) + named + Big(FreeImage_ZLibCRC32(0, bytes, DWORD(named.size())));
}

/// The chunks of a still image within those of an animated one.
SampleImage Mng()
{
    const QImage shows = Picture(Coloured);
    const QByteArray file = QByteArray::fromHex("8a4d4e470d0a1a0a") +
                            Chunk("MHDR" + Big(Wide) + Big(High) + QByteArray(20, 0)) +
                            Written(13, shows, 24).sliced(8) + Chunk("MEND");
    return {6, file, shows, 24};
}

SampleImage KodakPhoto()
{
    constexpr int PhotoWide = 768, PhotoHigh = 512;
    QByteArray file(0x30000, '\0');
    file.replace(2048, 7, "PCD_IPI");
    for (int pair = 0; pair < PhotoHigh / 2; ++pair)
        file += QByteArray(2 * PhotoWide, char(94)) + QByteArray(PhotoWide / 2, char(156)) +
                QByteArray(PhotoWide / 2, char(137));
    return {9, file, Picture(OnlyGrey, {PhotoWide, PhotoHigh}), 24, 4};
}

SampleImage Paintbrush()
{
    const QImage shows = Picture(Coloured);
    QByteArray file = QByteArray::fromHex("0a050108") + Little(0) + Little(Wide - 1, 2) + Little(High - 1, 2);
    file += QByteArray(65 - file.size(), '\0') + "\3" + Little(Wide, 2);
    file += QByteArray(128 - file.size(), '\0');
    for (int y = 0; y < High; ++y)
        for (const int shift : {16, 8, 0})
            for (int x = 0; x < Wide; ++x)
                file += QByteArray("\xc1") + char(shows.pixel(x, y) >> shift);
    return {10, file, shows, 24};
}

SampleImage SunRaster()
{
    const QImage shows = Picture(Coloured);
    const QByteArray data = Rows(shows, Bgr, Wide * 3 % 2);
    return {16,
            Big(0x59a66a95) + Big(Wide) + Big(High) + Big(24) + Big(quint32(data.size())) + Big(1) + Big(0) + Big(0) +
                data,
            shows, 24};
}

SampleImage DrHalo()
{
    const QImage shows = Picture(Grey);
    QByteArray file = Little(Wide, 2) + Little(High, 2) + Little(0, 2);
    for (int y = 0; y < High; ++y)
        file += Little(Wide + 2, 2) + char(Wide) + Rows(shows.copy(0, y, Wide, 1), GreyByte) + '\0';
    return {21, file, shows, 8};
}

SampleImage X11Bitmap()
{
    const QImage shows = Picture(BlackWhite);
    QByteArray file = "#define s_width " + QByteArray::number(Wide) + "\n#define s_height " + QByteArray::number(High) +
                      "\nstatic char s_bits[] = {\n";
    for (int y = 0; y < High; ++y)
        for (int x = 0; x < Wide; x += 8) {
            int bits = 0;
            for (int bit = 0; bit < 8 && x + bit < Wide; ++bit)
                bits |= int(qRed(shows.pixel(x + bit, y)) == 0) << bit;
            file += "0x" + QByteArray::number(bits, 16).rightJustified(2, '0') + ",\n";
        }
    return {22, file + "};\n", shows, 1};
}

SampleImage DirectDraw()
{
    const QImage shows = Picture(Coloured);
    const QByteArray file = "DDS " + Little(124) + Little(0x100f) + Little(High) + Little(Wide) + Little(Wide * 3) +
                            QByteArray(13 * 4, '\0') + Little(32) + Little(0x40) + Little(0) + Little(24) +
                            Little(0xff0000) + Little(0xff00) + Little(0xff) + Little(0) + Little(0x1000) +
                            QByteArray(16, '\0') + Rows(shows, Bgr);
    return {24, file, shows, 24};
}

SampleImage ByLibrary(int kind, QRgb (*colour)(int, int), int bits, int tolerance = 0)
{
    const QImage shows = Picture(colour, kind == 1 ? QSize(16, 16) : QSize(Wide, High)); // icons are square
    return {kind, Written(kind, shows, bits), shows, bits, tolerance};
}

Bitmap InDepth(Bitmap image, int bits)
{
    switch (bits) {
    case 1:
        return {FreeImage_Threshold(image.get(), 128), FreeImage_Unload};
    case Greys:
        return {FreeImage_ConvertToGreyscale(image.get()), FreeImage_Unload};
    case 8:
        return {FreeImage_ColorQuantize(image.get(), FIQ_WUQUANT), FreeImage_Unload};
    case 24:
        return {FreeImage_ConvertTo24Bits(image.get()), FreeImage_Unload};
    case 96:
        return {FreeImage_ConvertToRGBF(image.get()), FreeImage_Unload};
    default:
        return image;
    }
}

} // namespace

QByteArray Written(int kind, const QImage& picture, int bits)
{
    Bitmap whole(FreeImage_Allocate(picture.width(), picture.height(), 32), FreeImage_Unload);
    for (int y = 0; y < picture.height(); ++y)
        memcpy(FreeImage_GetScanLine(whole.get(), picture.height() - 1 - y), picture.constScanLine(y),
               size_t(picture.width()) * 4);
    Bitmap image = InDepth(std::move(whole), kind == 11 || kind == 12 ? Greys : bits);
    FIMEMORY* const memory = FreeImage_OpenMemory();
    const int flags = kind == 11 || kind == 14 ? PNM_SAVE_ASCII : 0; // of their twins numbers are bytes
    if (!FreeImage_SaveToMemory(FREE_IMAGE_FORMAT(kind), image.get(), memory, flags))
        qFatal("kind %d was not written", kind);
    BYTE* bytes = nullptr;
    DWORD size = 0;
    FreeImage_AcquireMemory(memory, &bytes, &size);
    const QByteArray file(reinterpret_cast<const char*>(bytes), qsizetype(size));
    FreeImage_CloseMemory(memory);
    return file;
}

QList<SampleImage> SampleOfEveryKind()
{
    return {ByLibrary(0, Coloured, 24),
            ByLibrary(1, Coloured, 24),
            ByLibrary(2, Mild, 24, 12),
            ByLibrary(3, Mild, 24, 12),
            Koala(),
            Amiga(),
            Mng(),
            PortableBitmap(false),
            PortableBitmap(true),
            KodakPhoto(),
            Paintbrush(),
            ByLibrary(11, Grey, 8),
            ByLibrary(12, Grey, 8),
            ByLibrary(13, Coloured, 24),
            ByLibrary(14, Coloured, 24),
            ByLibrary(15, Coloured, 24),
            SunRaster(),
            ByLibrary(17, Coloured, 24),
            ByLibrary(18, Coloured, 24),
            ByLibrary(19, BlackWhite, 1),
            ByLibrary(20, Coloured, 24),
            DrHalo(),
            X11Bitmap(),
            ByLibrary(23, Coloured, 8),
            DirectDraw(),
            ByLibrary(25, BlackWhite, 8),
            ByLibrary(26, Grey, 96, 120)}; // which is made brighter for the screen
}

int Difference(const QImage& one, const QImage& other)
{
    if (one.size() != other.size())
        return 256;
    int most = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y), b = other.pixel(x, y);
            most = std::max({most, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                             std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
        }
    return most;
}
