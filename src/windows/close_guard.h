#pragma once

/// What must not be lost when the program ends: a recovery copy of every modified text, then both histories.
void KeepEverything();

/// Ends whatever runs: recovery copies first, the stop flag, questions closed with their way out, waits ended. The
/// event loops unwind; the outermost returns when the work has.
void EndWork();
