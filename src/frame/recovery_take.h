#pragma once

#include "frame/recovery.h"
#include "platform/result.h"

/// Puts a recovered text into a tab as unsaved text and forgets the copy once this run has its own. A text with a file
/// opens the file (or shows the tab that has it) and replaces its text in one undo step; if the file has gone, the tab
/// keeps its path. A text without a file takes an empty tab. Failure: no tab is free; the copy stays.
[[nodiscard]] Result<> TakeRecovered(Recovery& recovery, const RecoveredText& text);
