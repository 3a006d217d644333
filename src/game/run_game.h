#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QStringList>
#include <functional>
#include <optional>

class RunScope;

/// One run of a game that is waited for.
struct GameRun
{
    QString Program = {}; ///< absolute
    QStringList Arguments = {};
    QString Home = {};                                           ///< home folder of the run; empty: the user's own
    bool Unseen = false;                                         ///< without window and sound
    int HeldFile = -1;                                           ///< see GameStart
    std::optional<qint64> LimitMs = {};                          ///< then it is ended
    std::function<bool(QByteArrayView printed)> HasSaidAll = {}; ///< asked now and then; true: it is ended
    std::optional<qint64> SilenceMs = {};                        ///< ended when nothing was printed for so long
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

/// Tells in the status bar that a game has ended badly; nothing of one that has ended well.
void TellTrouble(bool crashed, int exitCode);

/// Runs it and waits, while events go on; the scope's stop ends it: its windows are closed, and what lives on after a
/// wait, or has none, is killed. Fails if it cannot be started.
[[nodiscard]] Result<GameReport> RunGame(const GameRun& run, RunScope& scope);
