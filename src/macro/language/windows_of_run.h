#pragma once

#include <QString>

struct RunState;

/// False, and the run has failed, without a window of our own.
bool CheckHasWindow(RunState& run);

/// Is the window there that the macro works on? False: the run has failed.
bool CheckWindowAlive(RunState& run);
bool IsWindowAlive(const RunState& run);

/// Makes an entry of the started windows the one that the macro works on.
void ChooseWindow(RunState& run, int entry);

/// The window that the macro works on above all others, unless it is our own.
void RaiseWindow(RunState& run);
