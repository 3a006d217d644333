#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QImage>

enum class PcxDepth {
    Palette = 8, ///< 256 colours at most
    Full = 24
};

/// The picture as the bytes of a PCX, run-length coded, as the game and every other reader take it: no run crosses a
/// plane of a line. See-through pixels are written with their colour, opaque. Failure, without a path: no picture, a
/// side longer than 65,534 pixels, or with a palette more than 256 colours.
[[nodiscard]] Result<QByteArray> PcxBytes(const QImage& picture, PcxDepth depth);

/// Writes that file whole or leaves the old one. Failure: path and reason.
[[nodiscard]] Result<> WritePcx(const QString& path, const QImage& picture, PcxDepth depth);
