#pragma once

#include "platform/result.h"

/// What must not be lost when the program ends: both histories and a recovery copy of every modified text. A failure:
/// some text is kept nowhere.
Result<> KeepEverything();

/// KeepEverything for a close by the user, who is asked if some text can not be kept. False: the window stays.
bool MayClose();

/// Ends whatever runs: recovery copies first, the stop flag, questions closed with their way out, waits ended. The
/// event loops unwind; the outermost returns when the work has.
void EndWork();
