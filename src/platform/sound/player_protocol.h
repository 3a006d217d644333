#pragma once

#include <array>
#include <cstdint>

/// What Gemforge and the process that plays say to each other. Both run on one machine and come from one build, so the
/// bytes are those in memory.
namespace player {

enum class Voice : std::uint32_t { Media, Module };
constexpr std::uint32_t Voices = 2;

enum class Task : std::uint32_t { Play, Stop };

struct Request
{
    std::uint32_t Serial = 0; ///< grows by one
    Voice Of = Voice::Media;
    Task What = Task::Stop; ///< beside Play comes the open file
};

/// Why a sound ended that was not told to.
enum class Trouble : std::uint32_t {
    None,     ///< it was heard to its end, or it plays
    File,     ///< no sound, or a broken one
    NoDevice, ///< there is nothing to play it on
};

/// Said whenever it has changed.
struct State
{
    std::uint32_t Serial = 0;               ///< of the last request that was carried out
    std::uint32_t Playing = 0;              ///< a bit a voice
    std::array<Trouble, Voices> Troubles{}; ///< of what a voice played last

    bool operator==(const State&) const = default;
};

} // namespace player
