#include "platform/sound/player/conversion.h"

#include <algorithm>
#include <vector>

namespace {

constexpr int GotFrame = 4;    ///< bytes
constexpr int MostSilence = 8; ///< blocks; the conversion keeps less than one
constexpr std::size_t SilentFrames = 4096;

} // namespace

Conversion::Conversion(SDL_AudioFormat format, int channels, int fromRate, int toRate)
    : stream(SDL_NewAudioStream(format, Uint8(channels), fromRate, AUDIO_S16SYS, 2, toRate)),
      frame(SDL_AUDIO_BITSIZE(format) / 8u * unsigned(channels)),
      from(std::uint64_t(fromRate)),
      to(std::uint64_t(toRate)),
      silence(SDL_AUDIO_ISSIGNED(format) ? 0 : 0x80)
{
}

void Conversion::Put(std::span<const std::byte> sound)
{
    if (SDL_AudioStreamPut(stream.get(), sound.data(), int(sound.size())) == 0)
        put += sound.size();
}

void Conversion::End()
{
    ended = true;
    const std::vector<Uint8> block(SilentFrames * frame, silence);
    for (int i = 0; i < MostSilence; ++i)
        SDL_AudioStreamPut(stream.get(), block.data(), int(block.size()));
}

bool Conversion::Holds(std::span<std::int16_t> stereo) const
{
    return SDL_AudioStreamAvailable(stream.get()) >= int(stereo.size_bytes());
}

std::size_t Conversion::Get(std::span<std::int16_t> stereo)
{
    std::uint64_t frames = stereo.size() / 2;
    if (ended)
        frames = std::min(frames, put / frame * to / from - got);
    const int bytes = SDL_AudioStreamGet(stream.get(), stereo.data(), int(frames) * GotFrame);
    frames = bytes > 0 ? std::uint64_t(bytes / GotFrame) : 0;
    got += frames;
    return frames;
}
