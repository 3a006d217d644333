#pragma once

#include "decoder/protocol.h"

namespace decoder {

/// How many bytes of a file's front and of its end tell its kind.
constexpr std::size_t FrontBytes = 2064, EndBytes = 18;

/// The kind that a file shows by its front, or by its end. Nothing for the kinds that have no mark of their own, and
/// for what is no image.
std::optional<std::uint32_t> KindOfBytes(Bytes front, Bytes end);

} // namespace decoder
