#pragma once

#include <QString>

struct RunState;

// The file or folder that a macro works with, as fileset and the file dialogs set it.

void ForgetSetFile(RunState& run);
void SetFile(RunState& run, const QString& path);   ///< a whole path, as it stands on disk
void SetFolder(RunState& run, const QString& path); ///< the same of a folder
