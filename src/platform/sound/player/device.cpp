#include "platform/sound/player/device.h"

#include "platform/sound/player/pcm_source.h"

#include <cstring>

namespace {

constexpr Uint16 ChunkFrames = 1024;

} // namespace

Device::~Device()
{
    Close();
}

bool Device::Open()
{
    if (handle)
        return true;
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Gemforge");
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
        return false;
    SDL_AudioSpec wanted{};
    wanted.freq = DeviceRate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = 2;
    wanted.samples = ChunkFrames;
    wanted.callback = Fill;
    wanted.userdata = this;
    handle = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (handle)
        SDL_PauseAudioDevice(handle, 0);
    else
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    return handle != 0;
}

void Device::Close()
{
    if (!handle)
        return;
    SDL_CloseAudioDevice(handle);
    SDL_Quit();
    handle = 0;
}

void Device::Fill(void* device, Uint8* bytes, int size)
{
    std::memset(bytes, 0, std::size_t(size));
    for (Voice& voice : static_cast<Device*>(device)->voices)
        voice.Mix(std::span(bytes, std::size_t(size)));
}
