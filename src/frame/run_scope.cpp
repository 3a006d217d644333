#include "frame/run_scope.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

namespace {

constexpr qint64 TurnEvery = 20; ///< ms
constexpr int TurnLasts = 15;    ///< ms at most, so that a flood of events cannot hold the work up

void Leave(const RunScope* scope)
{
    const auto entry = std::find(Frame.Work.rbegin(), Frame.Work.rend(), scope);
    Q_ASSERT(entry != Frame.Work.rend());
    Frame.Work.erase(std::next(entry).base());
    emit Events().WorkChanged();
}

bool IsBeside(const RunScope* scope)
{
    return scope && scope->Kind() == RunKind::Beside;
}

} // namespace

RunScope::RunScope(RunKind ofKind, QString named, std::optional<qint64> deadlineMs)
    : kind(ofKind), name(std::move(named)), deadline(deadlineMs)
{
    began.start();
    turned.start();
    Frame.Work.insert(kind == RunKind::Beside ? Frame.Work.begin() : Frame.Work.end(), this);
    if (Frame.Closing)
        why = StopReason::Close;
    emit Events().WorkChanged();
}

RunScope::~RunScope()
{
    Leave(this);
}

bool RunScope::Turn()
{
    if (!Stopped() && turned.elapsed() >= TurnEvery) {
        if (deadline && began.elapsed() >= *deadline)
            Stop(StopReason::Deadline);
        TurnNow();
    }
    return !Stopped();
}

void RunScope::TurnNow()
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents(QEventLoop::AllEvents, TurnLasts);
    turned.start();
}

void RunScope::Stop(StopReason reason)
{
    if (Stopped())
        return;
    why = reason;
    if (OnStop)
        OnStop();
}

void StopRuns(StopReason reason)
{
    // A copy: what a stop ends may end a scope.
    const std::vector<RunScope*> work = Frame.Work;
    const bool wished = reason == StopReason::Esc || reason == StopReason::Break;
    const bool onlyInFront = wished && IsWorkHeldUp();
    for (auto scope = work.rbegin(); scope != work.rend(); ++scope)
        if (*scope && std::find(Frame.Work.begin(), Frame.Work.end(), *scope) != Frame.Work.end() &&
            !(onlyInFront && IsBeside(*scope)))
            (*scope)->Stop(reason);
}

RunScope* RunInFront()
{
    return Frame.Work.empty() ? nullptr : Frame.Work.back();
}

bool AnyRun()
{
    return std::any_of(Frame.Work.begin(), Frame.Work.end(), [](const RunScope* scope) { return scope != nullptr; });
}

WorkScope::WorkScope()
{
    Frame.Work.push_back(nullptr);
    emit Events().WorkChanged();
}

WorkScope::~WorkScope()
{
    Leave(nullptr);
}

int RunningWork()
{
    return int(Frame.Work.size());
}

bool IsWorkHeldUp()
{
    return std::any_of(Frame.Work.begin(), Frame.Work.end(), [](const RunScope* scope) { return !IsBeside(scope); });
}
