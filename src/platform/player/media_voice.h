#pragma once

#include "platform/player/wishes.h"

#include <SDL_mixer.h>
#include <memory>

/// What MediaPlayer1 plays: waves, MIDI and MP3 by the mixer. Needs the open device from Load to Stop.
class MediaVoice
{
public:
    /// False if it cannot be played.
    [[nodiscard]] bool Load(const Wish& wish);
    void Start();
    void Stop();
    bool Playing() const;

private:
    struct Free
    {
        void operator()(Mix_Music* loaded) const { Mix_FreeMusic(loaded); }
        void operator()(Mix_Chunk* loaded) const { Mix_FreeChunk(loaded); }
    };
    std::unique_ptr<Mix_Music, Free> music; ///< read from its file as it plays
    std::unique_ptr<Mix_Chunk, Free> wave;  ///< or a wave that is not large
};
