#pragma once

#include "platform/player_protocol.h"

#include <QString>
#include <array>
#include <sys/types.h>

/// The helper process that plays, and the socket to it. It starts with the first play. Nothing here waits for it.
class PlayerProcess
{
public:
    explicit PlayerProcess(QString program);
    ~PlayerProcess();
    PlayerProcess(const PlayerProcess&) = delete;
    PlayerProcess& operator=(const PlayerProcess&) = delete;

    /// Hands over an open file, which stays the caller's to close; `name` tells its ending. False if nobody took it.
    [[nodiscard]] bool Play(player::Voice voice, int file, const QString& name);
    void Stop(player::Voice voice);

    /// From the moment of Play until the sound has ended or could not be played.
    bool IsPlaying();

    /// Asks it to end and waits a moment for that; by force if it does not.
    void End();

private:
    bool Start();
    bool Send(player::Request request, int file);
    void Listen();
    void Kill();

    QString program;
    pid_t child = 0;
    int socket = -1;
    std::uint32_t serial = 0;
    player::State told; ///< by the process
    std::array<player::Request, player::Voices> asked;
};
