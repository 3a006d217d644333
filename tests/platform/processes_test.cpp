#include "platform/processes/processes.h"
#include "platform/processes/signals.h"
#include "platform/processes/single_instance.h"
#include "platform/screen/lock_keys.h"
#include "test_support.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const QString Shell = QStringLiteral("/bin/sh");

QStringList Script(const char* text)
{
    return {QStringLiteral("-c"), QString::fromLatin1(text)};
}

} // namespace

// A child that prints more than a pipe holds must not wait for us for ever; its code and both outputs come back whole.
TEST(Processes, RunAndWaitGivesCodeAndOutput)
{
    const TestFolder folder;
    folder.Write(QStringLiteral("here"), "x");
    const auto result = processes::RunAndWait(
        Shell,
        Script("cat; i=0; while [ $i -lt 20000 ]; do echo line $i; echo error >&2; i=$((i+1)); done; ls; exit 7"),
        {.Folder = folder.Path()});
    ASSERT_TRUE(result) << result.error().Reason;
    EXPECT_EQ(result->ExitCode, 7);
    EXPECT_FALSE(result->Crashed || result->Stopped);
    EXPECT_EQ(result->Output.count('\n'), 20001);
    EXPECT_TRUE(result->Output.endsWith("line 19999\nhere\n"));
    EXPECT_EQ(result->Errors.size(), 20000 * 6);

    const auto crashed = processes::RunAndWait(Shell, Script("kill -SEGV $$"));
    ASSERT_TRUE(crashed);
    EXPECT_TRUE(crashed->Crashed);
    const auto missing = processes::RunAndWait(folder.Path(QStringLiteral("none")), {});
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.error().Path, folder.Path(QStringLiteral("none")));
    EXPECT_FALSE(processes::RunAndWait(Shell, Script("true"), {.Folder = folder.Path(QStringLiteral("no folder"))}));
    EXPECT_EQ(processes::Waiting(), 0);
}

// Timers run during a wait, waits may nest, and a stop ends them all, children that ignore the polite signal too.
TEST(Processes, WaitsNestAndCanBeStopped)
{
    int ticks = 0, waiting = 0;
    QTimer ticking;
    QObject::connect(&ticking, &QTimer::timeout, [&] { ++ticks; });
    ticking.start(10);
    Result<processes::ChildResult> inner;
    QTimer::singleShot(
        50, [&] { inner = processes::RunAndWait(Shell, Script("trap '' TERM; while :; do sleep 0.1; done")); });
    QTimer::singleShot(300, [&] {
        waiting = processes::Waiting();
        processes::StopWaiting();
    });
    QElapsedTimer timer;
    timer.start();
    const auto outer = processes::RunAndWait(QStringLiteral("sleep"), {QStringLiteral("60")});
    EXPECT_LT(timer.elapsed(), 20000);
    EXPECT_EQ(waiting, 2);
    EXPECT_GT(ticks, 10);
    EXPECT_TRUE(outer && outer->Stopped);
    EXPECT_TRUE(inner && inner->Stopped);
}

// Help lives on by itself: no wait, and no dead child left behind.
TEST(Processes, StartDetached)
{
    const TestFolder folder;
    const QString made = folder.Path(QStringLiteral("made"));
    EXPECT_FALSE(processes::StartDetached(folder.Path(QStringLiteral("none")), {}));
    ASSERT_TRUE(processes::StartDetached(Shell, {QStringLiteral("-c"), QStringLiteral("echo $1 > $0"), made, made}));
    const QByteArray expected = QFile::encodeName(made) + '\n';
    for (int i = 0; i < 1000 && folder.Read(QStringLiteral("made")) != expected; ++i)
        usleep(10000);
    EXPECT_EQ(folder.Read(QStringLiteral("made")), expected);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

// A second start is seen; the lock of one that was killed, or a runtime folder that is missing or foreign, is no
// obstacle.
TEST(SingleInstance, SurvivesAKilledHolder)
{
    const TestFolder folder;
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    for (const QString& place : {folder.Path(), folder.Path(QStringLiteral("missing")), QString()}) {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(place));
        const QString name = QStringLiteral("test-%1").arg(getpid());
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        if (child == 0) {
            const SingleInstance first(name);
            const char answer = first.AnotherRuns() ? 'y' : 'n';
            _exit(write(ready[1], &answer, 1) == 1 ? pause() : 1);
        }
        char answer = 0;
        ASSERT_EQ(read(ready[0], &answer, 1), 1);
        EXPECT_EQ(answer, 'n');
        EXPECT_TRUE(SingleInstance(name).AnotherRuns());
        EXPECT_FALSE(SingleInstance(name + u'2').AnotherRuns());
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const SingleInstance next(name);
        EXPECT_FALSE(next.AnotherRuns());
        EXPECT_TRUE(SingleInstance(name).AnotherRuns()) << "the lock is held for the object's life";
        close(ready[0]);
        close(ready[1]);
    }
    qputenv("XDG_RUNTIME_DIR", runtime);
}

// Two instances on one data folder because a service, a container or sudo named another runtime folder.
TEST(SingleInstance, AFolderIsHeldWhateverTheRuntimeFolder)
{
    const TestFolder shared, one, other;
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(one.Path()));
    SingleInstance first(QStringLiteral("test"));
    first.Claim(shared.Path());
    EXPECT_FALSE(first.AnotherRuns());
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(other.Path()));
    SingleInstance second(QStringLiteral("test"));
    EXPECT_FALSE(second.AnotherRuns());
    second.Claim(other.Path(QStringLiteral("missing")));
    EXPECT_FALSE(second.AnotherRuns());
    second.Claim(shared.Path());
    EXPECT_TRUE(second.AnotherRuns());
    qputenv("XDG_RUNTIME_DIR", runtime);
}

// SIGTERM ends in the event loop, where texts can still be kept, and only while someone listens.
TEST(EndSignals, ComeThroughTheEventLoop)
{
    QList<int> seen;
    {
        EndSignals ends;
        QEventLoop loop;
        QObject::connect(&ends, &EndSignals::EndWanted, &loop, [&](int number) {
            seen.append(number);
            if (seen.size() == 3)
                loop.quit();
        });
        QTimer::singleShot(5000, &loop, &QEventLoop::quit);
        for (const int number : {SIGTERM, SIGHUP, SIGINT})
            raise(number);
        EXPECT_TRUE(seen.isEmpty());
        loop.exec();
    }
    EXPECT_EQ(seen, QList<int>({SIGTERM, SIGHUP, SIGINT}));
    struct sigaction now = {};
    sigaction(SIGTERM, nullptr, &now);
    EXPECT_EQ(now.sa_handler, SIG_DFL);
    EXPECT_FALSE(ReadLockKeys().Known) << "no X server on the offscreen platform";
}
