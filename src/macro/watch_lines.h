#pragma once

#include <QStringList>

struct RunState;

/// What the watch list of a test run shows: variables, labels and what commands have left behind.
QStringList WatchLines(const RunState& run);

/// The same for a workbench on which nothing has run.
QStringList WatchLinesBeforeRuns();
