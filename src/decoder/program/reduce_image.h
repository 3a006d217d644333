#pragma once

#include "decoder/program/load_image.h"

namespace decoder {

/// Makes of a decoded image what its request wants: for Reduced the palette and the numbers of its pixels, for Gif the
/// bytes of that file. Any other answer comes back as it is. `known` is told how much work it will be, in pixels.
Decoded Finished(const Request& request, Decoded decoded, const SizeKnown& known);

} // namespace decoder
