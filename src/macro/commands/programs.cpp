#include "macro/commands/families.h"
#include "macro/language/run_state.h"
#include "macro/language/seen_target.h"
#include "macro/language/waiting.h"
#include "macro/language/windows_of_run.h"
#include "macro/started_windows.h"
#include "platform/files/paths.h"
#include "platform/processes/started_program.h"

#include "frame/run_scope.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <map>

namespace {

constexpr int LookEvery = 20;        ///< ms between two looks at a started program
constexpr int AnyWindowAfter = 5000; ///< ms until a new window may be another program's too

/// Arguments of a command line: blanks part them but inside quotes, which go.
QStringList SplitArguments(const QString& line)
{
    QStringList arguments;
    QString argument;
    QChar quote;
    bool any = false;
    for (const QChar sign : line) {
        if (!quote.isNull() ? sign == quote : sign == u'"' || sign == u'\'') {
            quote = quote.isNull() ? sign : QChar();
            any = true;
        } else if (sign == u' ' && quote.isNull()) {
            if (any)
                arguments << argument;
            argument.clear();
            any = false;
        } else {
            argument += sign;
            any = true;
        }
    }
    if (any)
        arguments << argument;
    return arguments;
}

void WaitForEnd(RunState& run, const processes::StartedProgram& program)
{
    const SeenTarget seen(run);
    while (!program.HasEnded() && run.Scope.Turn())
        WaitFor(run.Scope, LookEvery);
}

/// Windows and whose they are: a window's number may be given again as soon as it is gone.
using WindowsByProcess = std::map<other_windows::Handle, qint64>;

WindowsByProcess WindowsNow()
{
    WindowsByProcess windows;
    for (const other_windows::Handle window : other_windows::All())
        windows[window] = other_windows::ProcessOf(window);
    return windows;
}

other_windows::Handle OwnWindow(const processes::StartedProgram& program)
{
    for (const other_windows::Handle window : other_windows::OfProcessTree(program.Process()))
        if (other_windows::IsVisible(window))
            return window;
    return 0;
}

/// A window that came since `before`, of any program but ours.
other_windows::Handle NewWindow(const WindowsByProcess& before)
{
    for (const auto& [window, process] : WindowsNow()) {
        const auto known = before.find(window);
        const bool isNew = known == before.end() || known->second != process;
        if (isNew && process != QCoreApplication::applicationPid() && other_windows::IsVisible(window))
            return window;
    }
    return 0;
}

/// Waits for the window of a started program; 0 if there is none to be waited for, or a stop is wanted.
other_windows::Handle WaitForWindow(RunState& run, const processes::StartedProgram& program,
                                    const WindowsByProcess& before)
{
    QElapsedTimer waited;
    waited.start();
    while (other_windows::Available() && run.Scope.Turn()) {
        const bool ended = program.HasEnded(); // asked first: what it leaves behind is there by then
        if (const auto own = OwnWindow(program))
            return own;
        // Some hand over to a program that runs already, and end.
        const bool late = waited.hasExpired(AnyWindowAfter);
        if (const auto any = late ? NewWindow(before) : 0)
            return any;
        if (ended && late)
            return 0;
        WaitFor(run.Scope, LookEvery);
    }
    return 0;
}

void TakeWindow(RunState& run, other_windows::Handle window, const QString& alias)
{
    const other_windows::Handle owner = other_windows::OwnerOf(window);
    StartedWindows.Add(alias, owner ? owner : window);
    ChooseWindow(run, int(StartedWindows.Entries().size()) - 1);
    RaiseWindow(run);
}

void Execute(RunState& run, Arguments& in)
{
    const QString told = in.Text(1);
    const QString arguments = in.Count() > 1 ? in.Text(2) : QString(), third = in.Count() > 2 ? in.Text(3) : QString();
    if (run.Failed())
        return;
    const QString path = run.Paths.Resolve(told);
    if (!paths::FileExists(path)) {
        run.Fail(QStringLiteral("Can't find the file:-^^") + told);
        return;
    }
    const bool waits = third.compare(QLatin1String("wait"), Qt::CaseInsensitive) == 0;
    if (!waits && !CheckHasWindow(run))
        return;
    if (!waits && StartedWindows.IndexOf(third) >= 0) {
        run.Fail(QStringLiteral("Alias already exists: ") + third);
        return;
    }
    const WindowsByProcess before = waits ? WindowsByProcess() : WindowsNow();
    const auto program = processes::StartedProgram::Start(path, SplitArguments(arguments), run.Paths.Folder());
    if (!program) {
        run.Fail(program.error().Text());
        return;
    }
    if (waits)
        WaitForEnd(run, *program);
    else
        TakeWindow(run, WaitForWindow(run, *program, before), third);
    if (waits)
        RaiseWindow(run);
}

constexpr CommandWord ProgramRows[] = {
    {"execute", AtLeastAny(1), SafeGate | TakesTime, "PATH [ARGUMENTS [ALIAS | wait]]",
     "Starts a program. With wait the macro goes on when it has ended; else its window is chosen, and known by ALIAS.",
     Execute},
};

} // namespace

std::span<const CommandWord> ProgramCommands()
{
    return ProgramRows;
}
