#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QImage>

/// How one frame repeats another: the bytes of the one that was written last, and whether repeats count.
struct FrameMemory
{
    QByteArray LastFrameBits; ///< null before the first
    bool IgnoreDups = true;
};

/// One frame of a film as a bitmap without a palette.
class cAVI
{
public:
    /// Takes the frame from a packed bitmap: an info header of 40 bytes, then the pixels. False, and nothing is taken,
    /// for one of fewer than 16 bits a pixel, with no pixels or with fewer than it promises.
    bool CreateFromPackedDIBPointer(QByteArrayView packed);

    /// Whether the frame is to be written: it differs from the one before, or repeats do not matter. Then it is the one
    /// before.
    bool TakeChange(FrameMemory& memory) const;

    /// Writes the bitmap file, if the frame is to be written. True if it was. Failure: path and reason.
    [[nodiscard]] Result<bool> WriteToFile(const QString& path, FrameMemory& memory) const;

    /// The frame as a picture (Format_RGB32).
    QImage Picture() const;

    int BitCount() const { return info.BitCount; }
    int Height() const { return info.Height; } ///< pixels
    int Width() const { return info.Width; }
    quint32 Compression() const { return info.Compression; }
    quint32 SizeInfoHeader() const { return info.Size; }
    quint32 SizeImage() const { return info.SizeImage; }
    int Planes() const { return info.Planes; }
    quint32 ClrImportant() const { return info.ColoursImportant; }
    quint32 ClrUsed() const { return info.ColoursUsed; }
    int XPPM() const { return info.XPixelsPerMetre; }
    int YPPM() const { return info.YPixelsPerMetre; }
    quint16 FileType() const { return file.Type; }
    quint32 SizeFileHeader() const { return file.Size; } ///< of the whole file
    quint32 BitOffset() const { return file.BitOffset; }
    const char* PointerToBits() const { return bits.constData(); }
    const char* PointerToBitmapInfo() const { return infoBytes.constData(); }
    qsizetype SizeBitmapInfo() const { return infoBytes.size(); }

private:
    struct InfoHeader
    {
        quint32 Size = 0;
        qint32 Width = 0, Height = 0;
        quint16 Planes = 0, BitCount = 0;
        quint32 Compression = 0, SizeImage = 0;
        qint32 XPixelsPerMetre = 0, YPixelsPerMetre = 0;
        quint32 ColoursUsed = 0, ColoursImportant = 0;
    };
    struct FileHeader
    {
        quint16 Type = 0;
        quint32 Size = 0, Reserved = 0, BitOffset = 0;
    };

    InfoHeader info;
    FileHeader file;
    QByteArray bits, infoBytes;
};
