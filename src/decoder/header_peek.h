#pragma once

#include "decoder/protocol.h"

namespace decoder {

struct Extent
{
    std::uint64_t Width = 0, Height = 0;
};

/// Whether the size of this kind is read here, since the image library cannot tell it without decoding the pixels.
bool PeeksAt(std::uint32_t kind);

/// The size that the file's header promises, for such a kind; nothing if there is no header to be found.
std::optional<Extent> PeekExtent(std::uint32_t kind, Bytes file);

} // namespace decoder
