#include "platform/player/device.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <algorithm>
#include <array>
#include <unistd.h>

namespace {

constexpr int ChunkFrames = 1024;

/// The first sound font of the machine; the general ones come first.
void ChooseSoundFont()
{
    constexpr std::array Fonts = {"/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/sounds/sf3/default-GM.sf3",
                                  "/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf2/FluidR3_GM.sf2",
                                  "/usr/share/soundfonts/default.sf2"};
    const auto font =
        std::find_if(Fonts.begin(), Fonts.end(), [](const char* path) { return access(path, R_OK) == 0; });
    if (font != Fonts.end() && !SDL_getenv("SDL_SOUNDFONTS"))
        Mix_SetSoundFonts(*font);
}

} // namespace

Device::~Device()
{
    Close();
}

bool Device::Open()
{
    if (open)
        return true;
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Gemforge");
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
        return false;
    open = Mix_OpenAudioDevice(Rate, AUDIO_S16SYS, 2, ChunkFrames, nullptr, 0) == 0;
    if (open)
        ChooseSoundFont();
    else
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    return open;
}

void Device::Close()
{
    if (!open)
        return;
    Mix_CloseAudio();
    Mix_Quit();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    SDL_Quit();
    open = false;
}
