#include "platform/platform_state.h"
#include "platform/processes/process_tree.h"
#include "platform/screen/other_windows.h"
#include "platform/screen/x11_connection.h"
#include "test_support.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <gtest/gtest.h>

namespace {

using namespace other_windows;

template <class Condition>
bool Until(Condition condition)
{
    QElapsedTimer waited;
    for (waited.start(); !condition(); QThread::msleep(10))
        if (waited.hasExpired(10'000))
            return false;
    return true;
}

/// A terminal, as a program that knows nothing of this one; what is typed into it goes into a file.
class Terminal : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!Available() || QStandardPaths::findExecutable(QStringLiteral("xterm")).isEmpty())
            GTEST_SKIP() << "needs an X server and xterm";
        const QString typed = folder.Path(QStringLiteral("typed"));
        // By way of a shell, which is not the window's process.
        shell.start(QStringLiteral("sh"),
                    {QStringLiteral("-c"), QStringLiteral("xterm -u8 -T 'before' -geometry 60x12+200+150 -e sh -c "
                                                          "'cat > \"%1\"'; exit 0")
                                               .arg(typed)});
        ASSERT_TRUE(shell.waitForStarted());
        ASSERT_TRUE(Until([&] { return !Windows().empty(); }));
        window = Windows().front();
        ASSERT_TRUE(Activate(window));
        ASSERT_TRUE(Until([&] { return Foreground() == window; }));
    }
    void TearDown() override
    {
        for (const Handle left : Windows())
            AskToClose(left);
        if (shell.state() != QProcess::NotRunning && !shell.waitForFinished(10'000))
            shell.kill();
        shell.waitForFinished();
    }

    std::vector<Handle> Windows() const { return OfProcessTree(shell.processId()); }
    State How() const
    {
        const auto placement = PlacementOf(window);
        return placement ? placement->How : State::Normal;
    }
    QRect Place() const { return PlacementOf(window).value_or(Placement{}).Place; }

    const TestFolder folder;
    QProcess shell;
    Handle window = 0;
};

} // namespace

TEST_F(Terminal, IsFoundMovedAndNamed)
{
    EXPECT_NE(ProcessOf(window), shell.processId());
    EXPECT_TRUE(processes::Tree(shell.processId()).contains(ProcessOf(window)));
    EXPECT_EQ(TitleOf(window), QStringLiteral("before"));
    EXPECT_EQ(OwnerOf(window), Handle(0));
    const QString title = QStringLiteral("\u4E2D after \u00FC");
    EXPECT_TRUE(SetTitle(window, title));
    EXPECT_EQ(TitleOf(window), title);

    ASSERT_TRUE(Move(window, {50, 60}));
    EXPECT_TRUE(Until([&] { return Place().topLeft() == QPoint(50, 60); })) << Place().x() << ' ' << Place().y();
    const QRect before = Place();
    ASSERT_TRUE(Resize(window, {600, 400}));
    EXPECT_TRUE(Until([&] { return Place() != before; }));
    EXPECT_LT(qAbs(Place().width() - 600), 20) << "it keeps to whole letters";
    EXPECT_LT(qAbs(Place().height() - 400), 20);
    EXPECT_EQ(Place().topLeft(), before.topLeft());

    ASSERT_TRUE(mouse::Move(Place().center()));
    EXPECT_EQ(mouse::Position(), Place().center());
    EXPECT_TRUE(Until([&] { return UnderMouse() == window; }));
    ASSERT_TRUE(mouse::Move({1, 1}));
    EXPECT_TRUE(Until([&] { return UnderMouse() != window; }));
}

TEST_F(Terminal, States)
{
    EXPECT_EQ(How(), State::Normal);
    EXPECT_TRUE(IsVisible(window));
    const QRect place = Place();
    ASSERT_TRUE(Maximise(window));
    EXPECT_TRUE(Until([&] { return How() == State::Maximised; }));
    ASSERT_TRUE(Restore(window));
    EXPECT_TRUE(Until([&] { return How() == State::Normal && Place() == place; }));
    ASSERT_TRUE(Minimise(window));
    EXPECT_TRUE(Until([&] { return How() == State::Minimised; }));
    EXPECT_TRUE(IsVisible(window)) << "minimised is not hidden";
    ASSERT_TRUE(Restore(window));
    EXPECT_TRUE(Until([&] { return How() == State::Normal && Foreground() == window; }));
    ASSERT_TRUE(Hide(window));
    EXPECT_TRUE(Until([&] { return !IsVisible(window); }));
    EXPECT_TRUE(IsAlive(window));
    EXPECT_NE(Foreground(), window);
    ASSERT_TRUE(Show(window));
    EXPECT_TRUE(Until([&] { return IsVisible(window) && Foreground() == window; }));
    EXPECT_TRUE(Until([&] { return Place() == place; })) << Place().x() << ' ' << Place().y();
    EXPECT_TRUE(KeepAbove(window, true));
    EXPECT_TRUE(KeepAbove(window, false));
    EXPECT_EQ(All().back(), window);
}

// What is typed arrives as it was meant: capitals, marks, letters that the keyboard lacks, editing keys.
TEST_F(Terminal, TakesKeys)
{
    QThread::msleep(300); // the terminal's own program starts after its window
    int turns = 0;
    ASSERT_TRUE(keys::Send(QStringLiteral("Ab+cx{BS}{+}\u00E4\u20AC\u4E2D~two{LEFT}"), [&](int done, int of) {
        EXPECT_EQ(of, 14);
        EXPECT_EQ(done, turns++);
        return true;
    }));
    EXPECT_EQ(turns, 14);
    ASSERT_TRUE(keys::Send(QStringLiteral("{CAPSLOCK}")));
    ASSERT_TRUE(keys::Send(QStringLiteral("{END}~cC~"))) << "as written, whatever is locked";
    ASSERT_TRUE(keys::Send(QStringLiteral("{CAPSLOCK}^d")));
    EXPECT_TRUE(Until([&] { return !IsAlive(window); })) << "the end of the text ends the terminal";
    const QByteArray typed = folder.Read(QStringLiteral("typed"));
    EXPECT_TRUE(typed.startsWith("AbC+\xC3\xA4\xE2\x82\xAC\xE4\xB8\xAD\ntwo") && typed.endsWith("\ncC\n"))
        << typed.constData();

    const auto stopped = keys::Send(QStringLiteral("abc"), [](int done, int) { return done < 1; });
    EXPECT_TRUE(!stopped && WasStopped(stopped.error()));
    EXPECT_FALSE(keys::Send(QStringLiteral("{NOSUCHKEY}")));
}

TEST_F(Terminal, IsAskedToClose)
{
    ASSERT_TRUE(AskToClose(window));
    EXPECT_TRUE(Until([&] { return !IsAlive(window); }));
    EXPECT_TRUE(shell.waitForFinished(10'000));
    EXPECT_EQ(shell.exitCode(), 0);
    // A handle whose window has gone: nothing happens, above all to this program.
    EXPECT_FALSE(IsVisible(window) || Activate(window) || Hide(window) || Show(window) || Minimise(window) ||
                 Maximise(window) || Restore(window) || Move(window, {1, 1}) || Resize(window, {9, 9}) ||
                 KeepAbove(window, true) || SetTitle(window, QStringLiteral("x")) || AskToClose(window));
    EXPECT_EQ(PlacementOf(window).has_value(), false);
    EXPECT_EQ(TitleOf(window), QString());
    EXPECT_EQ(ProcessOf(window), 0);
    EXPECT_EQ(OwnerOf(window), Handle(0));
    EXPECT_FALSE(IsAlive(0) || IsAlive(~Handle(0)));
}

TEST_F(Terminal, ButtonsAndKeysThatAreDown)
{
    ASSERT_TRUE(mouse::Move(Place().center())); // on the desktop a press opens the manager's menu
    EXPECT_EQ(keys::Held(), 0u);
    ASSERT_TRUE(mouse::Press(mouse::Button::Left) && mouse::Press(mouse::Button::Middle));
    EXPECT_TRUE(Until([] { return keys::Held() == (keys::LeftButton | keys::MiddleButton); }));
    ASSERT_TRUE(mouse::Release(mouse::Button::Left) && mouse::Release(mouse::Button::Middle));
    EXPECT_TRUE(Until([] { return keys::Held() == 0u; }));
}

// Catches an end of this program where no server answers, and a connection that is used after it broke.
TEST(OtherWindows, WithoutAServer)
{
    const QByteArray display = qgetenv("DISPLAY");
    Platform.Windows.reset();
    for (const char* const nowhere : {"", ":9999"}) {
        qputenv("DISPLAY", nowhere);
        EXPECT_FALSE(Available());
        EXPECT_EQ(Foreground(), Handle(0));
        EXPECT_EQ(UnderMouse(), Handle(0));
        EXPECT_TRUE(All().empty() && OfProcessTree(1).empty());
        EXPECT_FALSE(IsAlive(1) || IsVisible(1) || Activate(1) || AskToClose(1) || PlacementOf(1) ||
                     mouse::Move({1, 1}) || mouse::Press(mouse::Button::Left) || mouse::Position() || keys::Held() ||
                     keys::Send(QStringLiteral("a")));
    }
    qputenv("DISPLAY", display);
}

TEST(OtherWindows, AServerThatGoes)
{
    if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty())
        GTEST_SKIP() << "needs Xvfb";
    const QByteArray display = qgetenv("DISPLAY");
    Platform.Windows.reset();
    QProcess server;
    server.start(QStringLiteral("Xvfb"), {QStringLiteral("-displayfd"), QStringLiteral("1"),
                                          QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    ASSERT_TRUE(server.waitForReadyRead(10'000));
    qputenv("DISPLAY", ':' + server.readAllStandardOutput().trimmed());
    EXPECT_TRUE(Available());
    EXPECT_TRUE(All().empty()) << "no window manager, no windows";
    EXPECT_TRUE(mouse::Move({5, 6}));
    EXPECT_EQ(mouse::Position(), QPoint(5, 6));
    server.kill();
    server.waitForFinished();
    EXPECT_FALSE(IsAlive(1));
    EXPECT_FALSE(mouse::Move({7, 8}));
    EXPECT_FALSE(Available());
    qputenv("DISPLAY", display);
    Platform.Windows.reset();
}
