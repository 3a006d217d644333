#pragma once

#include "frame/start/start_up.h"
#include "platform/result.h"

/// What tools without a window need of a start: the program's folders, and of the settings the value column, the game
/// and the kinds of sheets. The current folder stays, so that relative paths mean what they say, and no setting is
/// written. A host must be installed. Failure: the tables are not in the program's folder.
[[nodiscard]] Result<> PrepareTools(const StartFolders& folders);
