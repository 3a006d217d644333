#include "platform/player/media_voice.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

struct KindOfEnding
{
    std::string_view Ending;
    Mix_MusicType Kind;
};
constexpr std::array Kinds = {KindOfEnding{"mp3", MUS_MP3}, KindOfEnding{"mid", MUS_MID}, KindOfEnding{"wav", MUS_WAV}};

Mix_Music* LoadAs(Mix_MusicType kind, const HandedFile& file)
{
    FILE* const bytes = std::fopen(file.Path().c_str(), "rbe");
    return bytes ? Mix_LoadMUSType_RW(SDL_RWFromFP(bytes, SDL_TRUE), kind, 1) : nullptr;
}

} // namespace

bool MediaVoice::Load(const Wish& wish)
{
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
    if (Mix_PlayMusic(music.get(), 1) != 0)
        music.reset();
}
