#pragma once

#include "decoder/protocol.h"

#include <array>
#include <vector>

/// A look over a PCX before the image library has it: what it is, and whether its data are whole, which the library
/// hides.
namespace decoder {

struct PcxFacts
{
    bool Readable = false; ///< one of the forms in use: 1 bit in 1 to 4 planes, 8 bits in 1 or 3
    std::uint32_t Width = 0, Height = 0;
    std::uint32_t Bits = 0;        ///< of a pixel, over all planes
    bool EndsEarly = false;        ///< the pixels or the palette behind them are not whole
    bool MisreadByLibrary = false; ///< StraightPcx has to come first
    /// Of 1 bit in one plane, as 0xRRGGBB: the header's own two, which the game shows; nothing where they are alike.
    std::optional<std::array<std::uint32_t, 2>> TwoColours = {};
};

PcxFacts WalkPcx(Bytes file);

/// The same image as the library reads it right: no run crosses a line, the palette is there, what is missing is 0, two
/// or three planes are four, planes have an even width and nothing has a single column or row, with one too many for
/// that. For a file that is Readable; 256 MB of lines at most come of it.
std::vector<std::byte> StraightPcx(Bytes file);

} // namespace decoder
