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
    Task What = Task::Stop;       ///< beside Play comes the open file
    std::array<char, 4> Ending{}; ///< of the file's name in lower case; only what the bytes leave open follows it
};

/// Said whenever it has changed.
struct State
{
    std::uint32_t Serial = 0;  ///< of the last request that was carried out
    std::uint32_t Playing = 0; ///< a bit a voice
};

} // namespace player
