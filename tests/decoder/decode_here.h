#pragma once

#include "decoder/program/load_image.h"

#include <QByteArray>
#include <QImage>

inline decoder::Bytes BytesOf(const QByteArray& bytes)
{
    return std::as_bytes(std::span(bytes.constData(), size_t(bytes.size())));
}

/// Decoded in this process, with sanitizers.
inline decoder::Decoded DecodeHere(int kind, const QByteArray& file, decoder::Task what = decoder::Task::Pixels)
{
    return decoder::Decode({.Kind = quint32(kind), .What = what}, BytesOf(file), [](quint64) {});
}

inline QImage PixelsOf(const decoder::Decoded& decoded)
{
    const decoder::Answer& what = decoded.What;
    if (what.Behind != decoder::Payload::Words)
        return {};
    QImage image(int(what.Width), int(what.Height), what.Alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        decoder::WriteRow(decoded, quint32(y), {reinterpret_cast<quint32*>(image.scanLine(y)), what.Width});
    return image;
}
