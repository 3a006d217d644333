#include "platform/player/module_voice.h"

#include "platform/player/device.h"

#include <SDL_mixer.h>
#include <exception>

bool ModuleVoice::Load(const Wish& wish)
{
    auto loaded = OpenPcm(wish.File);
    const std::lock_guard lock(mutex);
    source = std::move(loaded);
    raised.reset(SDL_NewAudioStream(AUDIO_S16SYS, 2, ModuleRate, AUDIO_S16SYS, 2, Device::Rate));
    return source && raised;
}

void ModuleVoice::Start()
{
    playing = true;
    Mix_SetPostMix(Mix, this);
}

void ModuleVoice::Stop()
{
    Mix_SetPostMix(nullptr, nullptr);
    const std::lock_guard lock(mutex);
    playing = false;
    source.reset();
    raised.reset();
}

void ModuleVoice::Mix(void* voice, Uint8* bytes, int size)
{
    static_cast<ModuleVoice*>(voice)->Add(bytes, size);
}

void ModuleVoice::Add(Uint8* bytes, int size)
{
    const std::lock_guard lock(mutex);
    if (!playing)
        return;
    while (source && SDL_AudioStreamAvailable(raised.get()) < size)
        Feed();
    part.resize(std::size_t(size));
    const int got = SDL_AudioStreamGet(raised.get(), part.data(), size);
    if (got > 0)
        SDL_MixAudioFormat(bytes, part.data(), AUDIO_S16SYS, Uint32(got), SDL_MIX_MAXVOLUME);
    else
        playing = false;
}

void ModuleVoice::Feed()
try {
    std::array<std::int16_t, 2048> stereo{};
    const std::size_t frames = source->Read(stereo);
    if (frames == 0)
        source.reset();
    // Silence behind the end, since the conversion keeps the last it was given for itself.
    const std::size_t bytes = frames > 0 ? frames * 4 : sizeof(stereo);
    if (SDL_AudioStreamPut(raised.get(), stereo.data(), int(bytes)) != 0)
        source.reset();
} catch (const std::exception&) {
    source.reset();
}
