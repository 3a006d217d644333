#include "platform/processes/running_window.h"

#include "test_support.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLocalServer>
#include <QThread>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace {

/// Runs `call` on another thread while this one serves events.
bool WhileServing(const std::function<bool()>& call)
{
    bool result = false;
    const std::unique_ptr<QThread> other(QThread::create([&] { result = call(); }));
    other->start();
    while (!other->isFinished())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return result;
}

} // namespace

// Catches: a second start that opens a second window, a text cut at a blank, a line break or a letter beyond ASCII, a
// socket left by a crashed window or a window that hangs that keeps a start waiting, and a folder without room for a
// socket.
TEST(RunningWindowTest, LaterStartsHandTheirTextToIt)
{
    const TestFolder folder;
    const QString point = folder.Path(QStringLiteral("meeting"));
    EXPECT_FALSE(HandToRunningWindow(point, QStringLiteral("a")));
    const QString id = QStringLiteral("!graphics info\\w\u00F6rd\nline %41");
    {
        RunningWindow running(point);
        ASSERT_TRUE(running.Listens());
        QStringList came;
        QObject::connect(&running, &RunningWindow::TextCame, &running, [&came](const QString& told) { came += told; });
        EXPECT_TRUE(WhileServing([&] { return HandToRunningWindow(point, id); }));
        EXPECT_TRUE(WhileServing([&] { return HandToRunningWindow(point, QString()); }));
        EXPECT_EQ(came, QStringList({id, QString()}));
    }
    QLocalServer hangs;
    ASSERT_TRUE(hangs.listen(point));
    QElapsedTimer patience;
    patience.start();
    EXPECT_FALSE(HandToRunningWindow(point, id));
    EXPECT_LT(patience.elapsed(), 3000);

    QFile stale(folder.Path(QStringLiteral("stale")));
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    stale.close();
    EXPECT_TRUE(RunningWindow(stale.fileName()).Listens());
    EXPECT_FALSE(RunningWindow(QStringLiteral("/nowhere/at/all")).Listens());
}

// Catches: a start that gives up on a window which is only being made, two starts of a file manager at once.
TEST(RunningWindowTest, AStartWaitsForAWindowThatIsBeingMade)
{
    const TestFolder folder;
    const QString point = folder.Path(QStringLiteral("meeting"));
    std::unique_ptr<RunningWindow> running;
    QString came;
    QTimer::singleShot(200, [&] {
        running = std::make_unique<RunningWindow>(point);
        QObject::connect(running.get(), &RunningWindow::TextCame, [&came](const QString& told) { came = told; });
    });
    EXPECT_TRUE(WhileServing([&] { return HandToRunningWindow(point, QStringLiteral("a"), 20'000); }));
    EXPECT_EQ(came, QStringLiteral("a"));
}
