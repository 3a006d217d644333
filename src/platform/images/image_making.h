#pragma once

#include "decoder/protocol.h"
#include "platform/processes/turn.h"
#include "platform/result.h"

#include <QImage>

/// What the decoder's process makes of pictures that are here already. As long as it takes, `turn` is called; when
/// that says no, the work ends with a failure. Any picture may come, whatever its colours; see-through ones count as
/// opaque.
namespace images {

using decoder::Quantizer;
using decoder::Reduction;

/// The picture with so many colours at most, as numbers in a table of 256 (Format_Indexed8). Failure: the reason.
[[nodiscard]] Result<QImage> Reduce(const QImage& picture, const Reduction& how, const Turn& turn = {});

/// The bytes of a GIF: one with a palette (Format_Indexed8) keeps it, any other gets one of 256 colours.
[[nodiscard]] Result<QByteArray> GifBytes(const QImage& picture, const Turn& turn = {});

} // namespace images
