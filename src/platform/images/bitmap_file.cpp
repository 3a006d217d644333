#include "platform/images/bitmap_file.h"

#include <QtEndian>

namespace {

constexpr quint32 FileHeaderBytes = 14, InfoHeaderBytes = 40;

class LittleBytes
{
public:
    template <class... Numbers>
    explicit LittleBytes(Numbers... numbers)
    {
        (Append(numbers), ...);
    }
    operator QByteArray() const { return bytes; }

private:
    template <class Number>
    void Append(Number number)
    {
        const Number little = qToLittleEndian(number);
        bytes.append(reinterpret_cast<const char*>(&little), sizeof(little));
    }
    QByteArray bytes;
};

QByteArray PaletteBytes(const QImage& picture)
{
    QByteArray bytes;
    for (const QRgb colour : picture.colorTable())
        bytes += LittleBytes(quint32(colour & 0xffffff));
    return bytes;
}

} // namespace

QByteArray BitmapFile(const QImage& picture)
{
    if (picture.isNull())
        return {};
    const bool numbers = picture.format() == QImage::Format_Indexed8;
    const QImage pixels = numbers ? picture : picture.convertToFormat(QImage::Format_BGR888);
    const QByteArray palette = numbers ? PaletteBytes(picture) : QByteArray();
    const quint32 data = quint32(pixels.sizeInBytes());
    const quint32 offset = FileHeaderBytes + InfoHeaderBytes + quint32(palette.size());
    QByteArray file;
    file.reserve(qsizetype(offset) + data);
    file += "BM" + QByteArray(LittleBytes(offset + data, quint32(0), offset));
    file += LittleBytes(InfoHeaderBytes, qint32(pixels.width()), qint32(pixels.height()), quint16(1),
                        quint16(pixels.depth()), quint32(0), data, qint32(0), qint32(0), quint32(picture.colorCount()),
                        quint32(0));
    file += palette;
    // Rows of both are filled up to a multiple of four bytes.
    for (int y = pixels.height(); y-- > 0;)
        file.append(reinterpret_cast<const char*>(pixels.constScanLine(y)), pixels.bytesPerLine());
    return file;
}
