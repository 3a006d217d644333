#include "graphics/c_avi.h"

#include "platform/files/paths.h"

#include <QtEndian>
#include <cstring>

namespace {

constexpr qsizetype InfoBytes = 40, FileHeaderBytes = 14;
constexpr quint16 BitmapType = 19778; // "BM"
constexpr int LeastBits = 16;

/// Goes through numbers of a header from the front.
class HeaderReader
{
public:
    explicit HeaderReader(QByteArrayView bytes) : at(bytes.data()) {}

    template <class... Numbers>
    void Read(Numbers&... numbers)
    {
        ((numbers = qFromLittleEndian<Numbers>(at), at += sizeof(Numbers)), ...);
    }

private:
    const char* at;
};

template <class... Numbers>
QByteArray LittleHeader(Numbers... numbers)
{
    QByteArray bytes;
    const auto append = [&](auto number) {
        const auto little = qToLittleEndian(number);
        bytes.append(reinterpret_cast<const char*>(&little), sizeof(little));
    };
    (append(numbers), ...);
    return bytes;
}

} // namespace

bool cAVI::CreateFromPackedDIBPointer(QByteArrayView packed)
{
    if (packed.size() < InfoBytes)
        return false;
    InfoHeader read;
    HeaderReader(packed).Read(read.Size, read.Width, read.Height, read.Planes, read.BitCount, read.Compression,
                              read.SizeImage, read.XPixelsPerMetre, read.YPixelsPerMetre, read.ColoursUsed,
                              read.ColoursImportant);
    if (read.BitCount < LeastBits || read.SizeImage < 1 || read.SizeImage > quint64(packed.size() - InfoBytes))
        return false;
    info = read;
    bits = packed.sliced(InfoBytes, read.SizeImage).toByteArray();
    infoBytes = packed.first(InfoBytes).toByteArray();
    constexpr quint32 offset = InfoBytes + FileHeaderBytes;
    file = {.Type = BitmapType, .Size = offset + info.SizeImage, .Reserved = 0, .BitOffset = offset};
    return true;
}

/// Only the bytes of this frame are compared; one that the frame before has no byte for is a difference.
bool cAVI::TakeChange(FrameMemory& memory) const
{
    if (memory.IgnoreDups && !memory.LastFrameBits.isNull() && memory.LastFrameBits.startsWith(bits))
        return false;
    memory.LastFrameBits = bits;
    return true;
}

Result<bool> cAVI::WriteToFile(const QString& path, FrameMemory& memory) const
{
    if (!TakeChange(memory))
        return false;
    const QByteArray header = LittleHeader(file.Type, file.Size, file.Reserved, file.BitOffset);
    const Result<> written = paths::WriteWhole(path, QByteArray(header + infoBytes + bits));
    return written ? Result<bool>(true) : tl::unexpected(written.error());
}

QImage cAVI::Picture() const
{
    constexpr int FullColour = 24;
    const qsizetype row = (qsizetype(info.Width) * 3 + 3) & ~qsizetype(3);
    if (info.BitCount != FullColour || info.Width < 1 || info.Height < 1 || bits.size() < row * info.Height)
        return {};
    const QImage below(reinterpret_cast<const uchar*>(bits.constData()), info.Width, info.Height, row,
                       QImage::Format_BGR888);
    return below.mirrored().convertToFormat(QImage::Format_RGB32);
}
