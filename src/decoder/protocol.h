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
    Pixels,
    Reduced, ///< to a palette
    Gif      ///< as the bytes of a GIF; what has no palette gets one of 256 colours
};

enum class Quantizer : std::uint32_t { Wu, NeuQuant };

/// How colours are made fewer. An image that has no more than that keeps its own.
struct Reduction
{
    std::uint32_t Colours = 256;
    Quantizer Method = Quantizer::Wu;
    bool KeepBlack = false; ///< what is black stays black, and nothing else becomes it

    bool operator==(const Reduction&) const = default;
};

constexpr std::uint32_t LeastColours = 2, MostColours = 256;

struct Request
{
    std::uint32_t Serial = 0; ///< comes back in the answer
    std::uint32_t Kind = 0;
    Task What = Task::Pixels;
    Reduction How = {}; ///< of Reduced

    bool operator==(const Request&) const = default;
};

enum class Outcome : std::uint32_t {
    Done,
    NotRead, ///< not of its kind, or broken
    TooLarge
};

/// What follows an answer. Rows go from the top.
enum class Payload : std::uint32_t {
    None,
    Words,   ///< a word 0xAARRGGBB a pixel, not premultiplied
    Numbers, ///< 256 words 0xffRRGGBB, then a byte a pixel, rows filled up to a multiple of four bytes
    File     ///< FileBytes bytes
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
    Payload Behind = Payload::None;
    std::uint32_t FileBytes = 0;

    bool operator==(const Answer&) const = default;
};

using RequestBytes = std::array<std::byte, 28>;
using AnswerBytes = std::array<std::byte, 40>;

RequestBytes Pack(const Request& request);
AnswerBytes Pack(const Answer& answer);

/// Nothing unless every number is one that the other side may say.
std::optional<Request> UnpackRequest(Bytes bytes);
std::optional<Answer> UnpackAnswer(Bytes bytes);

/// Whether an image of this size is decoded at all.
bool WithinLimits(std::uint64_t width, std::uint64_t height);

/// The row of an image whose pixels are numbers of colours.
std::size_t NumberRow(std::uint32_t width);

/// How many bytes follow an answer.
std::size_t PayloadBytes(const Answer& answer);

} // namespace decoder
