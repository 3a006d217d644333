#pragma once

#include "platform/sound/player/handed_file.h"
#include "platform/sound/player_protocol.h"

#include <optional>

/// A request with its file.
struct Wish
{
    player::Task What = player::Task::Stop;
    HandedFile File;
};

/// What was asked for and not carried out yet: only the last word counts for a voice.
class Wishes
{
public:
    explicit Wishes(int from) : socket(from) {}

    /// Takes what has come; waits for it for so many ms, without end for -1. False when the other side is gone, or
    /// says what nobody may say.
    [[nodiscard]] bool Receive(int patience);

    bool Has(player::Voice voice) const { return last[std::size_t(voice)].has_value(); }
    bool HasAny() const { return Has(player::Voice::Media) || Has(player::Voice::Module); }
    std::optional<Wish> Take(player::Voice voice) { return std::exchange(last[std::size_t(voice)], std::nullopt); }
    std::uint32_t LastSerial() const { return serial; } ///< of what was received

private:
    bool ReceiveOne();

    int socket;
    std::uint32_t serial = 0;
    std::array<std::optional<Wish>, player::Voices> last;
};
