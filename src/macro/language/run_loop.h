#pragma once

#include "macro/run_stage.h"

#include <QString>
#include <optional>

struct PreparedSource;
struct ProgramLine;
struct RunState;

/// Runs prepared source to its end. The stage shows what goes wrong; it comes back too. The target's font and colours,
/// the progress bar and the working files of levels are put back by whatever road the run ends.
std::optional<MacroError> RunProgram(RunState& run, const PreparedSource& source);

/// Cuts a line, looks its word up, reads its arguments; runs it. From then on it runs without that.
void RunForTheFirstTime(RunState& run, ProgramLine& line);

/// The question of SystemSafe in front of a command that works with files or programs. False: refused, and the run
/// stops.
bool SystemSafeCheck(RunState& run, const ProgramLine& line);
