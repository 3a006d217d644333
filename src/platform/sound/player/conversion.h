#pragma once

#include <SDL.h>
#include <cstdint>
#include <memory>
#include <span>

/// Sound of any form into pairs of 16 bits at another rate.
class Conversion
{
public:
    Conversion() = default;
    Conversion(SDL_AudioFormat format, int channels, int from, int to);

    explicit operator bool() const { return stream != nullptr; }
    void Put(std::span<const std::byte> sound);
    /// Behind the last Put. What the conversion keeps for itself comes too, so that the sound has its whole length.
    void End();
    bool Holds(std::span<std::int16_t> stereo) const;
    /// Frames; 0 if there are none, yet or any more.
    std::size_t Get(std::span<std::int16_t> stereo);

private:
    struct Free
    {
        void operator()(SDL_AudioStream* held) const { SDL_FreeAudioStream(held); }
    };
    std::unique_ptr<SDL_AudioStream, Free> stream;
    std::uint64_t frame = 1, from = 1, to = 1; ///< bytes of one that is put; frames a second
    std::uint64_t put = 0, got = 0;            ///< bytes, and frames
    Uint8 silence = 0;                         ///< as a byte of the form that is put
    bool ended = false;
};
