#pragma once

#include "platform/processes/counted_turn.h"

#include <QString>

struct RunState;

/// For work of a command that takes long: events run, the run panel tells how far it is, a wish to stop ends it.
CountedTurn TurnOf(RunState& run, const QString& command);
