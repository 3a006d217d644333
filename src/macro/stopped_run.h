#pragma once

#include <QString>
#include <optional>
#include <vector>

struct RunState;

// What a person may ask and change while a test run stands in front of a line.

/// A line that the run came through: its number, from 0, and what stands there.
struct RunPlace
{
    int Line = 0;
    QString Written;
};

/// The gosubs under way, the outermost first, and the line at hand behind them.
std::vector<RunPlace> GosubChain(const RunState& run);

struct ConditionAnswer
{
    bool Holds = true;
    QString Fault; ///< why it cannot be told; it holds then
};

/// Does a condition hold, written as behind `if`: "$count >>5 <<9"? An empty one does. The run is as before.
ConditionAnswer HoldsNow(RunState& run, const QString& condition);

/// What a declared variable holds, as a person reads it; nothing: there is none of that name.
std::optional<QString> ValueNow(RunState& run, const QString& name);

/// Gives the variable at a place of the run's list (from 0) a value. False: there is none at that place.
bool SetVariableAt(RunState& run, int place, const QString& value);
