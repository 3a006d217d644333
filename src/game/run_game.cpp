#include "game/run_game.h"

#include "frame/frame_state.h"
#include "game/game_process.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

namespace {

constexpr int LookEvery = 50; // ms

/// Looks now and then whether a run is to end, and ends it.
class RunWatch
{
public:
    RunWatch(const GameRun& watched, GameProcess& game) : run(watched), process(game)
    {
        sinceStart.start();
        sinceWord.start();
        QObject::connect(&process, &GameProcess::Spoken, &timer, [this] { sinceWord.start(); });
        QObject::connect(&timer, &QTimer::timeout, [this] { Look(); });
        timer.start(LookEvery);
    }

    GameEnd End = GameEnd::ByItself;

private:
    void Look()
    {
        if (run.StopWanted && run.StopWanted())
            EndBy(GameEnd::Stopped);
        else if (run.LimitMs && sinceStart.elapsed() >= *run.LimitMs)
            EndBy(GameEnd::TimedOut);
        else if ((run.HasSaidAll && run.HasSaidAll()) || (run.SilenceMs && sinceWord.elapsed() >= *run.SilenceMs))
            EndBy(GameEnd::SaidAll);
    }

    void EndBy(GameEnd end)
    {
        End = end;
        timer.stop();
        process.Stop();
    }

    const GameRun& run;
    GameProcess& process;
    QTimer timer;
    QElapsedTimer sinceStart, sinceWord;
};

} // namespace

Result<GameReport> RunGame(const GameRun& run)
{
    const WorkScope work;
    GameProcess process;
    if (const Result<> started = process.Start({run.Program, run.Arguments, run.Home, run.Unseen, run.HeldFile});
        !started)
        return tl::unexpected(started.error());
    RunWatch watch(run, process);
    QEventLoop loop;
    QObject::connect(&process, &GameProcess::Ended, &loop, &QEventLoop::quit);
    if (process.Runs())
        loop.exec();
    if (process.Runs()) { // the application ends, and its loops with it
        watch.End = GameEnd::Stopped;
        process.Kill();
    }
    return GameReport{watch.End, process.ExitCode(), process.Crashed(), process.Printed(), process.Errors()};
}
