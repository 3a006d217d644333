#pragma once

#include "platform/sound/player/handed_file.h"
#include "platform/sound/player_protocol.h"

#include <SDL.h>
#include <chrono>
#include <mutex>
#include <optional>
#include <span>
#include <sys/types.h>
#include <vector>

/// One of the two players: the process that decodes what it plays, and the socket from which that sound comes. The
/// bytes of the file itself are never read here.
class Voice
{
public:
    Voice() = default;
    ~Voice();
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;

    /// Lets a process begin with the file; what played before has been stopped. False if there is none.
    [[nodiscard]] bool Start(player::Voice which, const HandedFile& file);
    void Stop();
    /// No longer playing: why, once.
    std::optional<player::Trouble> Ended();
    bool Playing() const { return child > 0; }

    /// Adds what there is to the device's bytes; behind the end, and in front of the first, nothing. The device's
    /// thread calls it; it never waits for long.
    void Mix(std::span<Uint8> bytes);

private:
    using Clock = std::chrono::steady_clock;
    bool HasDoneAll();
    bool MayBegin();

    pid_t child = 0;

    std::mutex mutex; ///< around what follows
    int socket = -1;
    bool begun = false, atEnd = false;
    std::optional<Clock::time_point> hungry; ///< since when nothing has come
    std::vector<Uint8> sound;                ///< its front may hold the part of a frame
    std::size_t left = 0;
};
