#pragma once

#include "game/run_game.h"

/// Starts the game in its own folder and waits for its end. `dumpIndex` above 0: the game prints the default conf of
/// that number, unseen and in a home of its own; the current folder stays that of the game, as the caller changes it
/// back. Else it plays, and the main window is disabled meanwhile unless `keepEnabled` is set; what it complains about
/// comes into the list of its words. What it prints lies in the output files afterwards. Nothing, with the reason told,
/// if there is no game or it cannot be started.
std::optional<GameReport> LaunchGame(int dumpIndex, bool keepEnabled);

void RunGameCommand();

/// The words of a command line as a shell would part them: blanks part, double quotes hold together.
QStringList CommandWords(const QString& line);

/// Default confs by the number of their dump command, 1 to 6.
struct DumpRow
{
    const char* Kind; ///< as the batch verb names it
    int Mode;
};
constexpr int DumpCount = 6;
const DumpRow& DumpOf(int dumpIndex);

/// Lets a game print a default conf, unseen and in a home of its own. Fails if it cannot be started.
[[nodiscard]] Result<GameReport> RunDump(const QString& program, int dumpIndex, RunScope& scope, qint64 limitMs);
