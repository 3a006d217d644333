#pragma once

#include "platform/result.h"

struct RunState;

/// Fails the run in the language's own words; the system's reason stands in the status bar. A stop needs no words.
void TellFailure(RunState& run, const Failure& why, const QString& words);
