#pragma once

#include "platform/sound/player_protocol.h"

#include <QString>
#include <array>
#include <functional>
#include <memory>
#include <sys/types.h>

class QSocketNotifier;

/// The helper process that plays, and the socket to it. It starts with the first play. Nothing here waits for it.
class PlayerProcess
{
public:
    /// `failed` is told of a sound that could not be played, or not to its end.
    using Failed = std::function<void(player::Trouble why, const QString& name)>;
    /// `changed` is told whenever IsPlaying or Playing may answer otherwise.
    explicit PlayerProcess(QString program, Failed failed = {}, std::function<void()> changed = {});
    ~PlayerProcess();
    PlayerProcess(const PlayerProcess&) = delete;
    PlayerProcess& operator=(const PlayerProcess&) = delete;

    /// Hands over an open file, which stays the caller's to close; `name` is what it is called if it fails. False if
    /// nobody took it.
    [[nodiscard]] bool Play(player::Voice voice, int file, const QString& name);
    void Stop(player::Voice voice);

    /// From the moment of Play until the sound has ended or could not be played.
    bool IsPlaying();
    QString Playing(); ///< name of what is playing so; empty for none

    /// Asks it to end and waits a moment for that; by force if it does not.
    void End();

private:
    bool Start();
    bool Send(player::Request request, int file);
    void Listen();
    void Take(const player::State& state);
    void Kill();
    void TellChange() const;
    bool MayPlay(player::Voice voice) const;
    void Report(player::Voice voice, player::Trouble why);

    QString program;
    Failed failed;
    std::function<void()> changed;
    std::unique_ptr<QSocketNotifier> ear; ///< none without an event loop: then failures are told with the next call
    pid_t child = 0;
    int socket = -1;
    std::uint32_t serial = 0;
    player::State told; ///< by the process
    std::array<player::Request, player::Voices> asked;
    std::array<QString, player::Voices> names;
};
