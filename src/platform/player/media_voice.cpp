#include "platform/player/media_voice.h"

#include "platform/player/pcm_source.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <sys/stat.h>

namespace {

constexpr int Channel = 0;           ///< of the mixer
constexpr off_t MostWave = 8l << 20; ///< bytes of a wave that is converted as a whole

struct KindOfEnding
{
    std::string_view Ending;
    Mix_MusicType Kind;
};
constexpr std::array Kinds = {KindOfEnding{"mp3", MUS_MP3}, KindOfEnding{"mid", MUS_MID}, KindOfEnding{"wav", MUS_WAV}};

/// The mixer drops the last twentieth of a second of a wave that it converts piece by piece; short sounds would lose
/// half of themselves.
bool IsShortWave(const HandedFile& file)
{
    struct stat facts = {};
    char head[12] = {};
    return fstat(file.Handle(), &facts) == 0 && facts.st_size <= MostWave &&
           pread(file.Handle(), head, sizeof(head), 0) == sizeof(head) && std::memcmp(head, "RIFF", 4) == 0 &&
           std::memcmp(head + 8, "WAVE", 4) == 0;
}

SDL_RWops* BytesOf(const HandedFile& file)
{
    FILE* const bytes = std::fopen(file.Path().c_str(), "rbe");
    return bytes ? SDL_RWFromFP(bytes, SDL_TRUE) : nullptr;
}

Mix_Chunk* LoadWave(const HandedFile& file)
{
    SDL_AudioSpec spec{};
    Uint8* samples = nullptr;
    Uint32 length = 0;
    const bool good = SDL_LoadWAV_RW(BytesOf(file), 1, &spec, &samples, &length) && IsPlayableRate(spec.freq);
    SDL_FreeWAV(samples);
    return good ? Mix_LoadWAV_RW(BytesOf(file), 1) : nullptr;
}

Mix_Music* LoadAs(Mix_MusicType kind, const HandedFile& file)
{
    SDL_RWops* const bytes = BytesOf(file);
    return bytes ? Mix_LoadMUSType_RW(bytes, kind, 1) : nullptr;
}

} // namespace

bool MediaVoice::Load(const Wish& wish)
{
    if (IsShortWave(wish.File)) {
        wave.reset(LoadWave(wish.File));
        return wave != nullptr;
    }
    music.reset(LoadAs(MUS_NONE, wish.File));
    // The first bytes of some files do not tell what they are.
    const std::string_view ending(wish.Ending.data(), strnlen(wish.Ending.data(), wish.Ending.size()));
    const auto named = std::find_if(Kinds.begin(), Kinds.end(), [&](const auto& row) { return row.Ending == ending; });
    if (!music && named != Kinds.end())
        music.reset(LoadAs(named->Kind, wish.File));
    return music != nullptr;
}

void MediaVoice::Start()
{
    const bool plays = wave ? Mix_PlayChannel(Channel, wave.get(), 0) >= 0 : Mix_PlayMusic(music.get(), 1) == 0;
    if (!plays)
        Stop();
}

void MediaVoice::Stop()
{
    music.reset();
    wave.reset();
}

bool MediaVoice::Playing() const
{
    return (music && Mix_PlayingMusic()) || (wave && Mix_Playing(Channel));
}
