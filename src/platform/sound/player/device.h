#pragma once

#include "platform/sound/player/voice.h"
#include "platform/sound/player_protocol.h"

#include <SDL.h>
#include <array>

/// The sound device: 44100 Hz, two channels of 16 bits, whatever the hardware is. It hears all voices.
class Device
{
public:
    Device() = default;
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// False if there is none; the next call tries again.
    [[nodiscard]] bool Open();
    void Close();
    bool IsOpen() const { return handle != 0; }

    Voice& Of(player::Voice which) { return voices[std::size_t(which)]; }

private:
    static void Fill(void* device, Uint8* bytes, int size);

    std::array<Voice, player::Voices> voices;
    SDL_AudioDeviceID handle = 0;
};
