#pragma once

#include "decoder/protocol.h"

#include <vector>

/// DirectDraw surfaces in blocks of four by four pixels. The image library misreads one whose width is no whole number
/// of blocks.
namespace decoder {

/// The width that such a file tells; nothing for any other file.
std::optional<std::uint32_t> OddBlockWidth(Bytes file);

/// The same file with all columns of its last blocks.
std::vector<std::byte> WholeBlocks(Bytes file);

} // namespace decoder
