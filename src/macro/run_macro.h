#pragma once

#include "macro/language/source_text.h"
#include "macro/run_stage.h"
#include "platform/result.h"

#include <optional>

class RunScope;

/// A run to be made.
struct MacroRequest
{
    PreparedSource Source;
    QString Path;                ///< of the macro's file; empty: of source that was never saved
    bool TestRun = false;        ///< on the workbench: lines may be stepped through and watched
    QString Folder;              ///< the run's current folder at its start
    std::optional<quint32> Seed; ///< of the macro's random numbers; none: from the clock
};

/// The source in a macro's file: an archive with the entry "basic.txt", or plain source.
[[nodiscard]] Result<QByteArray> ReadMacroSource(const QString& path);

/// Is a macro's file source without an archive around it? One that is not there yet: by its name.
bool IsPlainSource(const QString& path);

/// Runs a macro to its end. Nothing of the run is left afterwards but what it did to texts and files. The error has
/// been shown by the stage.
std::optional<MacroError> RunMacro(const MacroRequest& request, RunStage& stage, RunScope& scope);
