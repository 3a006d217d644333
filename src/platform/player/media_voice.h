#pragma once

#include "platform/player/wishes.h"

#include <SDL_mixer.h>
#include <memory>

/// What MediaPlayer1 plays: waves, MIDI and MP3 by the mixer, which reads the file as it plays. Needs the open device
/// from Load to Stop.
class MediaVoice
{
public:
    /// False if it cannot be played.
    [[nodiscard]] bool Load(const Wish& wish);
    void Start();
    void Stop() { music.reset(); }
    bool Playing() const { return music && Mix_PlayingMusic(); }

private:
    struct Free
    {
        void operator()(Mix_Music* loaded) const { Mix_FreeMusic(loaded); }
    };
    std::unique_ptr<Mix_Music, Free> music;
};
