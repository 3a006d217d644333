#pragma once

#include <QElapsedTimer>
#include <QString>
#include <functional>
#include <optional>

/// What takes time. A pass holds back every key and click but those that stop it, since it works on a text that must
/// not change under it; the others let the windows that they leave enabled go on. What runs beside the user's work
/// holds up nothing: it stands behind all other work, and only a wish that comes while nothing else runs, or the end of
/// the program, stops it.
enum class RunKind { Pass, Macro, Child, Archive, Game, Beside };

enum class StopReason { None, Esc, Close, Deadline, Break };

/// One piece of work that takes time, from construction to the end of the scope: it counts as running work, the run
/// panel shows its name, Esc in any of our windows stops it. Scopes nest; a wish to stop reaches all of them.
class RunScope
{
public:
    /// `deadlineMs`: after so many milliseconds Turn stops it; none: never.
    RunScope(RunKind kind, QString name, std::optional<qint64> deadlineMs = {});
    ~RunScope();
    RunScope(const RunScope&) = delete;
    RunScope& operator=(const RunScope&) = delete;

    /// To be called again and again: lets events run when 20 ms have gone by since they last could. False: a stop is
    /// wanted, and stays so.
    bool Turn();
    /// Lets events run at once. At the end of work that takes keys, so that one meant for it meets windows that it
    /// still holds and does not reach the text.
    void TurnNow();
    bool Stopped() const { return why != StopReason::None; }
    StopReason Why() const { return why; }
    /// The first reason counts. Runs OnStop once.
    void Stop(StopReason reason);

    RunKind Kind() const { return kind; }
    const QString& Name() const { return name; }
    const QString& Detail() const { return detail; }
    /// What is being done now, for the run panel. May be called as often as one likes: the panel looks by itself.
    void SetDetail(const QString& text) { detail = text; }

    std::function<void()> OnStop; ///< ends what the scope waits for: a child, an inner event loop

private:
    RunKind kind;
    QString name, detail;
    std::optional<qint64> deadline;
    QElapsedTimer began, turned;
    StopReason why = StopReason::None;
};

/// Stops everything that runs, as far as RunKind lets it; the innermost hears of it first.
void StopRuns(StopReason reason);

/// The innermost run if nothing modal stands above it; else null.
RunScope* RunInFront();

/// Whether there is a run at all, also below a modal window.
bool AnyRun();

/// Counts one modal window as running work for its scope: a close waits for it, and Esc belongs to it.
class WorkScope
{
public:
    WorkScope();
    ~WorkScope();
    WorkScope(const WorkScope&) = delete;
    WorkScope& operator=(const WorkScope&) = delete;
};

/// How many runs and modal windows are under way.
int RunningWork();
/// Does a run or a modal window hold up the user's work? What runs beside it does not.
bool IsWorkHeldUp();
