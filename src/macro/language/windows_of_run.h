#pragma once

#include <QString>

struct RunState;

/// False, and the run has failed, without a window of our own.
bool CheckHasWindow(RunState& run);

/// Is the window there that the macro works on? False: the run has failed.
bool CheckWindowAlive(RunState& run);
bool CheckWindowAlive(RunState& run, quint64 window, const QString& alias);

/// The window that the macro works on above all others, unless it is our own.
void RaiseWindow(RunState& run);
