#include "game/run_game.h"

#include "frame/frame_events.h"
#include "frame/run_scope.h"
#include "game/game_messages.h"
#include "game/game_process.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace {

constexpr int LookEvery = 50; // ms

/// Looks now and then whether a run has said all, and ends it.
class SilenceWatch
{
public:
    SilenceWatch(const GameRun& watched, GameProcess& game) : run(watched), process(game)
    {
        if (!run.HasSaidAll && !run.SilenceMs)
            return;
        sinceWord.start();
        QObject::connect(&process, &GameProcess::Spoken, &timer, [this] { sinceWord.start(); });
        QObject::connect(&timer, &QTimer::timeout, [this] { Look(); });
        timer.start(LookEvery);
    }

    bool SaidAll = false;

private:
    void Look()
    {
        SaidAll = (run.HasSaidAll && run.HasSaidAll(process.Printed())) ||
                  (run.SilenceMs && sinceWord.elapsed() >= *run.SilenceMs);
        if (!SaidAll)
            return;
        timer.stop();
        process.Kill();
    }

    const GameRun& run;
    GameProcess& process;
    QTimer timer;
    QElapsedTimer sinceWord;
};

GameEnd EndOf(const RunScope& scope, bool saidAll)
{
    if (saidAll)
        return GameEnd::SaidAll;
    if (!scope.Stopped())
        return GameEnd::ByItself;
    return scope.Why() == StopReason::Deadline ? GameEnd::TimedOut : GameEnd::Stopped;
}

} // namespace

void TellTrouble(bool crashed, int exitCode)
{
    if (crashed)
        ShowNotice(QStringLiteral("The game has crashed."));
    else if (exitCode != 0)
        ShowNotice(QStringLiteral("The game ended with an error (exit code %1).").arg(exitCode));
}

Result<GameReport> RunGame(const GameRun& run, RunScope& scope)
{
    if (scope.Stopped())
        return GameReport{EndOf(scope, false), 0, false, {}, {}};
    GameProcess process;
    if (const Result<> started = process.Start({run.Program, run.Arguments, run.Home, run.Unseen, run.HeldFile});
        !started)
        return tl::unexpected(started.error());
    scope.OnStop = [&process] { process.Stop(); };
    QObject::connect(&process, &GameProcess::Spoken, [&] { scope.SetDetail(LastLineOf(process.Printed())); });
    QTimer limit;
    limit.setSingleShot(true);
    limit.setTimerType(Qt::PreciseTimer); // not early: callers look at their own clock afterwards
    QObject::connect(&limit, &QTimer::timeout, [&scope] { scope.Stop(StopReason::Deadline); });
    if (run.LimitMs)
        limit.start(int(*run.LimitMs));
    const SilenceWatch watch(run, process);
    QEventLoop loop;
    QObject::connect(&process, &GameProcess::Ended, &loop, &QEventLoop::quit);
    if (process.Runs())
        loop.exec();
    scope.OnStop = nullptr;
    const GameEnd end = process.Runs() ? GameEnd::Stopped : EndOf(scope, watch.SaidAll);
    process.End(); // the application may have ended before the game has
    return GameReport{end, process.ExitCode(), process.Crashed(), process.Printed(), process.Errors()};
}
