#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QStringList>
#include <functional>
#include <optional>

/// One run of a game that is waited for.
struct GameRun
{
    QString Program; ///< absolute
    QStringList Arguments;
    QString Home;        ///< home folder of the run; empty: the user's own
    bool Unseen = false; ///< without window and sound
    int HeldFile = -1;   ///< see GameStart
    std::optional<qint64> LimitMs;
    std::function<bool()> HasSaidAll; ///< asked now and then; true: the run is ended
    std::optional<qint64> SilenceMs;  ///< ends the run when nothing is printed for so long
    std::function<bool()> StopWanted; ///< asked now and then; true: the user wants it to end
};

enum class GameEnd { ByItself, SaidAll, Stopped, TimedOut };

struct GameReport
{
    GameEnd End = GameEnd::ByItself;
    int ExitCode = 0;     ///< of a run that ended by itself
    bool Crashed = false; ///< of the same
    QByteArray Printed, Errors;

    bool Succeeded() const { return End == GameEnd::ByItself && !Crashed && ExitCode == 0; }
};

/// Runs it and waits, while events go on. A run that is to end has its windows closed, and is killed if that does not
/// do it; one without a window is killed. Fails if it cannot be started.
[[nodiscard]] Result<GameReport> RunGame(const GameRun& run);
