#include "macro/commands/families.h"
#include "macro/language/run_state.h"
#include "macro/language/waiting.h"
#include "macro/language/windows_of_run.h"
#include "macro/run_stage.h"
#include "macro/started_windows.h"

namespace {

void WinSet(RunState& run, Arguments& in)
{
    const QString alias = in.Text(1);
    if (run.Failed() || !CheckHasWindow(run))
        return;
    const int entry = StartedWindows.IndexOf(alias);
    if (entry < 0) {
        run.Fail(QStringLiteral("Alias doesn't exists: ") + alias);
        return;
    }
    ChooseWindow(run, entry);
    CheckWindowAlive(run);
}

void WinTitle(RunState& run, Arguments& in)
{
    if (!CheckHasWindow(run) || !CheckWindowAlive(run))
        return;
    const QString title = in.Text(1);
    if (!run.Failed())
        other_windows::SetTitle(run.CurrentWindow, title);
}

void WinKill(RunState& run, Arguments&)
{
    if (!CheckHasWindow(run) || !CheckWindowAlive(run))
        return;
    RaiseWindow(run);
    other_windows::AskToClose(run.CurrentWindow);
    StartedWindows.TakeAlias(run.CurrentEntry);
    run.CurrentEntry = 0;
}

/// One state of the chosen window.
template <bool (*Change)(other_windows::Handle), bool Raises>
void ChangeWindow(RunState& run, Arguments&)
{
    if (!CheckHasWindow(run) || !CheckWindowAlive(run))
        return;
    Change(run.CurrentWindow);
    if (Raises)
        RaiseWindow(run);
}

void WinKillAll(RunState& run, Arguments&)
{
    if (CheckHasWindow(run))
        StartedWindows.CloseAll();
}

void WinShowAll(RunState& run, Arguments&)
{
    if (!CheckHasWindow(run))
        return;
    for (const AliasedWindow& entry : StartedWindows.Entries()) {
        if (!entry.IsThere())
            continue;
        other_windows::KeepAbove(entry.Window, true);
        other_windows::Show(entry.Window);
    }
}

void WinHideAll(RunState& run, Arguments&)
{
    if (!CheckHasWindow(run))
        return;
    for (const AliasedWindow& entry : StartedWindows.Entries())
        if (entry.IsThere())
            other_windows::Hide(entry.Window);
}

void WinMove(RunState& run, Arguments& in)
{
    if (!CheckHasWindow(run) || !CheckWindowAlive(run))
        return;
    const qint32 x = in.Number(1), y = in.Number(2);
    if (!run.Failed())
        other_windows::Move(run.CurrentWindow, {x, y});
}

void WinSize(RunState& run, Arguments& in)
{
    if (!CheckHasWindow(run) || !CheckWindowAlive(run))
        return;
    const qint32 width = in.Number(1), height = in.Number(2);
    if (!run.Failed())
        other_windows::Resize(run.CurrentWindow, {width, height});
}

/// The same line once more while the window is there, so that steps and stops are heard.
void WinWaitUntilClose(RunState& run, Arguments&)
{
    constexpr int CloseLookEvery = 20; // ms
    if (!CheckHasWindow(run) || !IsWindowAlive(run))
        return;
    WaitFor(run.Scope, CloseLookEvery);
    --run.CurrentLine;
}

void MeHide(RunState& run, Arguments&)
{
    if (!CheckHasWindow(run))
        return;
    run.MainHidden = true;
    run.Stage.ShowMainWindow(false);
}

void MeShow(RunState& run, Arguments&)
{
    if (!CheckHasWindow(run))
        return;
    run.MainHidden = false;
    run.Stage.ShowMainWindow(true);
    run.Stage.ShowTarget(true);
    run.Stage.ShowTarget(false);
}

constexpr CommandWord WindowRows[] = {
    {"winset", ExactlyAny(1), NoWordFlags, "ALIAS", "Chooses the window that the other words work on.", WinSet},
    {"wintitle", ExactlyAny(1), NoWordFlags, "TEXT", "Sets the window's title.", WinTitle},
    {"winkill", Exactly(0), TakesTime, "", "Asks the window to close.", WinKill},
    {"winhide", Exactly(0), TakesTime, "", "Hides the window.", ChangeWindow<other_windows::Hide, false>},
    {"winshow", Exactly(0), TakesTime, "", "Shows the window.", ChangeWindow<other_windows::Show, true>},
    {"winsizemax", Exactly(0), TakesTime, "", "Maximises the window.", ChangeWindow<other_windows::Maximise, false>},
    {"winsizemin", Exactly(0), TakesTime, "", "Minimises the window.", ChangeWindow<other_windows::Minimise, false>},
    {"winsizenormal", Exactly(0), TakesTime, "", "Gives the window its normal size again.",
     ChangeWindow<other_windows::Restore, true>},
    {"winkillall", Exactly(0), TakesTime, "", "Asks all started windows to close.", WinKillAll},
    {"winshowall", Exactly(0), TakesTime, "", "Shows all started windows.", WinShowAll},
    {"winhideall", Exactly(0), TakesTime, "", "Hides all started windows.", WinHideAll},
    {"winmove", ExactlyAny(2), NoWordFlags, "X Y", "Moves the window, in pixels of the screen.", WinMove},
    {"winsize", ExactlyAny(2), NoWordFlags, "WIDTH HEIGHT", "Resizes the window, in pixels.", WinSize},
    {"winwaituntilclose", Exactly(0), TakesTime, "", "Waits until the window is gone.", WinWaitUntilClose},
    {"mehide", Exactly(0), TakesTime, "", "Hides Gemforge's own window until meshow or the macro's end.", MeHide},
    {"meshow", Exactly(0), TakesTime, "", "Shows it again.", MeShow},
};

} // namespace

std::span<const CommandWord> WindowCommands()
{
    return WindowRows;
}
