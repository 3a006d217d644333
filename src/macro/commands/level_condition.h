#pragma once

#include "level/cell_values.h"
#include "macro/level_run.h"

#include <QString>

class Arguments;
struct RunState;

inline constexpr const char* NoLevelToChange = "You need to use 'LevLoad' or 'LevLoad new' to change a level.";
inline constexpr const char* NoLevelLoaded = "You need to load a level first using LevLoad";

bool HasLevel();

/// "==5", "<>$a" or "==?walls". Fails with what is wrong.
LevelCondition ReadCondition(RunState& run, const QString& written);

/// Does a token begin as a condition does?
bool IsCondition(const QString& written);

/// The whole parts of a group's items.
CellValues ValuesOf(const Group& group);
CellValues ValuesOf(const LevelCondition& condition);
CellTest TestOf(const LevelCondition& condition);
