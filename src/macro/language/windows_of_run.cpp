#include "macro/language/windows_of_run.h"

#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "macro/started_windows.h"

bool CheckHasWindow(RunState& run)
{
    if (!run.Stage.HasWindow())
        run.Fail("This command needs a window.");
    return !run.Failed();
}

bool IsWindowAlive(const RunState& run)
{
    return AliasedWindow{{}, run.CurrentWindow, run.CurrentProcess}.IsThere();
}

bool CheckWindowAlive(RunState& run)
{
    if (IsWindowAlive(run))
        return true;
    run.Fail(QStringLiteral("The window associated with the alias '%1' no longer exists!").arg(run.CurrentAlias));
    return false;
}

void ChooseWindow(RunState& run, int entry)
{
    const AliasedWindow& window = StartedWindows.Entries().at(size_t(entry));
    run.CurrentAlias = window.Alias.value_or(QString());
    run.CurrentWindow = window.Window;
    run.CurrentProcess = window.Process;
    run.CurrentEntry = entry;
}

void RaiseWindow(RunState& run)
{
    if (run.CurrentWindow && run.CurrentWindow != run.Stage.MainWindow())
        other_windows::KeepAbove(run.CurrentWindow, true);
}
