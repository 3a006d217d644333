#pragma once

#include "decoder/protocol.h"

/// The small process that reads films of strangers, and what is said to it: one request with the open file beside it,
/// then the film's facts, then a message a frame, the last of which says how it ended. Then the process ends.
namespace film {

constexpr std::uint32_t TileSide = 32; ///< pixels; what every frame becomes
constexpr std::size_t TileBytes = std::size_t(TileSide) * TileSide * 3;
constexpr std::uint32_t MostFramePixels = 36u << 20; ///< 8192 by 4320 and a little
constexpr std::uint32_t LongestSide = 16384;

/// What becomes of frames that are no tile.
enum class Fit : std::uint32_t {
    TilesOnly, ///< nothing: such a film is not read
    Whole,     ///< squeezed or stretched
    Middle,    ///< the largest square in the middle, scaled
    Part       ///< a part, scaled
};

struct Request
{
    Fit How = Fit::TilesOnly;
    std::uint32_t X = 0, Y = 0, Width = TileSide,
                  Height = TileSide; ///< the part; what lies outside of the frame is cut

    bool operator==(const Request&) const = default;
};

enum class Outcome : std::uint32_t {
    Reads,
    NotOpened, ///< no film, or one without pictures
    NoDecoder,
    WrongSize ///< not of a tile's size, and that was asked for
};

struct Facts
{
    Outcome How = Outcome::NotOpened;
    std::uint32_t Width = 0, Height = 0;          ///< of a frame; told with WrongSize too
    std::uint32_t Length = 0;                     ///< frames, as the film promises; 0 if it does not
    bool Counted = false;                         ///< Length is its own number, not one reckoned from its time
    std::uint32_t RateCount = 0, RateSeconds = 1; ///< so many frames in so many seconds

    bool operator==(const Facts&) const = default;
};

enum class Step : std::uint32_t {
    Frame, ///< TileBytes follow
    End
};

/// A frame: its number from 0. Its pixels are three bytes (blue, green, red), rows from below.
struct Frame
{
    Step What = Step::End;
    std::uint32_t Number = 0;

    bool operator==(const Frame&) const = default;
};

using RequestBytes = std::array<std::byte, 24>;
using FactsBytes = std::array<std::byte, 32>;
using FrameBytes = std::array<std::byte, 12>;

RequestBytes Pack(const Request& request);
FactsBytes Pack(const Facts& facts);
FrameBytes Pack(const Frame& frame);

/// Nothing unless every number is one that the other side may say.
std::optional<Request> UnpackRequest(decoder::Bytes bytes);
std::optional<Facts> UnpackFacts(decoder::Bytes bytes);
std::optional<Frame> UnpackFrame(decoder::Bytes bytes);

/// Whether frames of this size are read at all.
bool WithinLimits(std::int64_t width, std::int64_t height);

} // namespace film
