#include "macro/language/windows_of_run.h"

#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "platform/screen/other_windows.h"

bool CheckHasWindow(RunState& run)
{
    if (!run.Stage.HasWindow())
        run.Fail("This command needs a window.");
    return !run.Failed();
}

bool CheckWindowAlive(RunState& run, quint64 window, const QString& alias)
{
    if (other_windows::IsAlive(window))
        return true;
    run.Fail(QStringLiteral("The window associated with the alias '%1' no longer exists!").arg(alias));
    return false;
}

bool CheckWindowAlive(RunState& run)
{
    return CheckWindowAlive(run, run.CurrentWindow, run.CurrentAlias);
}

void RaiseWindow(RunState& run)
{
    if (run.CurrentWindow != run.Stage.MainWindow())
        other_windows::KeepAbove(run.CurrentWindow, true);
}
