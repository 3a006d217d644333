#pragma once

#include "decoder/protocol.h"

#include <vector>

/// Windows bitmaps whose header the image library does not read: those longer than 40 bytes, which say more of the
/// colours, and masks of channels in another order or width than it knows.
namespace decoder {

/// Whether PlainBmp has to come first.
bool NeedsPlainBmp(Bytes file);

/// The same image with a header of 40 bytes: palette and pixels as they were, or with strange masks pixels of 32 bits.
/// For a file that NeedsPlainBmp; at most as long as the file, or four bytes a pixel within the limits.
std::vector<std::byte> PlainBmp(Bytes file);

} // namespace decoder
