#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

/// The small process that decodes images of strangers, and what is said to it: a request with the open file beside it,
/// then an answer, then the pixels. Both sides run on one machine, so numbers go in the machine's own order.
namespace decoder {

using Bytes = std::span<const std::byte>;

constexpr std::uint32_t MostPixels = 64u << 20;   ///< of an image; 256 MB as pixels of 32 bits
constexpr std::uint32_t LongestSide = 65535;      ///< in pixels
constexpr std::size_t MostFileBytes = 256u << 20; ///< of an image's file
constexpr std::uint32_t Kinds = 27;               ///< kinds have the image library's own numbers from 0

enum class Task : std::uint32_t {
    Header, ///< the size only, without decoding pixels where the kind allows it
    Pixels
};

struct Request
{
    std::uint32_t Serial = 0; ///< comes back in the answer
    std::uint32_t Kind = 0;
    Task What = Task::Pixels;

    bool operator==(const Request&) const = default;
};

enum class Outcome : std::uint32_t {
    Done,
    NotRead, ///< not of its kind, or broken
    TooLarge
};

struct Answer
{
    std::uint32_t Serial = 0;
    Outcome How = Outcome::NotRead;
    std::uint32_t Width = 0, Height = 0; ///< in pixels; these and the rest are 0 unless Done
    std::uint32_t Bits = 0;              ///< of a pixel in the file
    std::uint32_t ColoursUsed = 0;       ///< length of the palette, 0 without one
    bool EndsEarly = false;              ///< a PCX whose data ends before its last line
    bool Alpha = false;                  ///< some pixels are see-through
    bool Pixels = false; ///< PixelBytes follow: rows from the top, a word 0xAARRGGBB a pixel, not premultiplied

    bool operator==(const Answer&) const = default;
};

using RequestBytes = std::array<std::byte, 16>;
using AnswerBytes = std::array<std::byte, 36>;

RequestBytes Pack(const Request& request);
AnswerBytes Pack(const Answer& answer);

/// Nothing unless every number is one that the other side may say.
std::optional<Request> UnpackRequest(Bytes bytes);
std::optional<Answer> UnpackAnswer(Bytes bytes);

/// Whether an image of this size is decoded at all.
bool WithinLimits(std::uint64_t width, std::uint64_t height);

/// What follows an answer.
std::size_t PixelBytes(const Answer& answer);

} // namespace decoder
