#pragma once

#include "platform/player/pcm_source.h"
#include "platform/player/wishes.h"

#include <SDL.h>
#include <atomic>
#include <mutex>
#include <vector>

/// What ModPlugin1 plays, added to what the mixer has made. Needs the open device from Start to Stop.
class ModuleVoice
{
public:
    /// False if it cannot be played.
    [[nodiscard]] bool Load(const Wish& wish);
    void Start();
    void Stop();
    bool Playing() const { return playing; }

private:
    struct Free
    {
        void operator()(SDL_AudioStream* stream) const { SDL_FreeAudioStream(stream); }
    };
    static void Mix(void* voice, Uint8* bytes, int size);
    void Add(Uint8* bytes, int size);
    void Feed();

    std::mutex mutex; ///< around what follows: the device's thread mixes
    std::unique_ptr<PcmSource> source;
    std::unique_ptr<SDL_AudioStream, Free> raised; ///< to the rate of the device
    std::vector<Uint8> part;
    std::atomic<bool> playing = false;
};
