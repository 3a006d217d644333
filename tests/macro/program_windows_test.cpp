#include "macro/started_windows.h"
#include "macro_scope.h"

#include <QElapsedTimer>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A stage of a program that has a window, as macros see it.
class StageWithWindow : public PlainStage
{
public:
    using PlainStage::PlainStage;
    bool HasWindow() const override { return true; }
    void ShowMainWindow(bool visible) override { Shown << (visible ? u"shown"_s : u"hidden"_s); }

    QStringList Shown;
};

struct Outcome
{
    QString Text;
    QString Error;
};

struct ProgramWindows : testing::Test
{
    void SetUp() override
    {
        if (!other_windows::Available() || terminal.isEmpty())
            GTEST_SKIP() << "needs an X server and xterm";
    }
    void TearDown() override { StartedWindows.CloseAll(); }

    Outcome Run(const QString& source, std::optional<qint64> deadlineMs = 60'000)
    {
        RunScope scope(RunKind::Macro, u"trial"_s, deadlineMs);
        MacroAnswers asker({});
        asker.AllowFiles = true;
        Frame.Ask = &asker;
        stage.Target().SetText({});
        MacroRequest request;
        request.Source = PrepareSource(QString(source).replace(u"XTERM"_s, terminal));
        request.Folder = folder.Path();
        const auto error = RunMacro(request, stage, scope);
        Frame.Ask = &host.Answers;
        return {stage.Target().Text(), error ? error->Text : QString()};
    }

    HostScope host;
    TestFolder folder;
    OwnClipboard clipboard;
    StageWithWindow stage{clipboard};
    const QString terminal = QStandardPaths::findExecutable(u"xterm"_s);
};

} // namespace

// Catches: a program whose window is not found or is another's, words that work on another window or on none, a
// window that outlives what the macro asked for or comes back elsewhere, an alias that stays.
TEST_F(ProgramWindows, AreFoundSteeredAndClosed)
{
    // What a window manager is asked for comes when it comes.
    auto until = [label = 0](const QString& condition) mutable {
        ++label;
        return QStringLiteral("label @until%1\npause 20\nif %2\ngotolabel @until%1\nendif\n").arg(label).arg(condition);
    };
    const Outcome outcome = Run(
        u"execute XTERM \"-T before -geometry 60x12 -e cat\" term\n"
        "print [winalive] [winvisible] [wintitle] [br]\n"
        "wintitle \"a new name\"\nprint [wintitle] [br]\nwinmove 120 90\n"_s +
        until(u"[winx] <>120"_s) + u"print [winx] | [winy] [br]\nwinsizemin\n"_s + until(u"[winwidth] <>0"_s) +
        u"print minimised [br]\nwinsizenormal\nwinsizemax\n"_s + until(u"[winwidth] <>[screenwidth]"_s) +
        u"print maximised [winx] [br]\nwinsizenormal\nwinhide\n"_s + until(u"[winvisible] ==true"_s) +
        u"print hidden [br]\nwinshow\n"_s + until(u"[winvisible] ==false"_s) +
        u"print shown [winx] | [winy] [br]\nwinset term\nwinkill\nwinwaituntilclose\nprint [winalive] [br]\nwinset term\n"_s);
    EXPECT_EQ(outcome.Text,
              u"truetruebefore\r\na new name\r\n120 90\r\nminimised\r\nmaximised0\r\nhidden\r\nshown120 90\r\n"
              "false\r\n"_s);
    EXPECT_EQ(outcome.Error, u"Alias doesn't exists: term"_s);
}

// Catches: keys that go elsewhere, a notation that is not understood and goes through.
TEST_F(ProgramWindows, TakeKeys)
{
    // The window has the keys at the latest when its program runs and shows its title.
    folder.Write(u"type.sh"_s, "printf '\\033]2;ready\\007'\nexec cat > typed\n");
    const Outcome outcome = Run(u"execute XTERM \"-e sh type.sh\" term\n"
                                "label @wait\npause 50\nif [wintitle] <>ready\ngotolabel @wait\nendif\npause 300\n"
                                "keysend \"Hello+1{LEFT}~\"\nkeysend ^d\nwinwaituntilclose\n"
                                "fileset typed\nprint [lastfilesize]\n"_s);
    EXPECT_EQ(outcome.Error, QString());
    EXPECT_TRUE(folder.Read(u"typed"_s).startsWith("Hello!"));
    EXPECT_EQ(Run(u"execute XTERM \"-e cat\" term\nkeysend {NOKEY}\n"_s).Error, u"Error with send key string."_s);
}

// Catches: an alias that is given twice and starts the program, a window that was closed by others and passes for one.
TEST_F(ProgramWindows, FailAsTheLanguageSays)
{
    EXPECT_EQ(Run(u"winkill\n"_s).Error, u"The window associated with the alias '' no longer exists!"_s);
    EXPECT_EQ(Run(u"winset none\n"_s).Error, u"Alias doesn't exists: none"_s);
    EXPECT_EQ(Run(u"execute XTERM \"-e cat\" term\npause 300\nexecute XTERM \"-e touch bad\" term\n"_s).Error,
              u"Alias already exists: term"_s);
    EXPECT_EQ(Run(u"execute XTERM \"-e sleep 0.3\" term\nwinwaituntilclose\nprint [winalive]\nwinset term\n"_s).Error,
              u"The window associated with the alias 'term' no longer exists!"_s);
    EXPECT_EQ(stage.Target().Text(), u"false"_s);
    EXPECT_FALSE(QFile::exists(folder.Path(u"bad"_s)));
}

// Catches: a run that waits for ever for a window that never comes, a stop that is not heard meanwhile, a window of an
// earlier run that stays, a main window that stays hidden.
TEST_F(ProgramWindows, NothingIsWaitedForWithoutEnd)
{
    Run(u"execute XTERM \"-e cat\" term\nmehide\n"_s);
    EXPECT_EQ(stage.Shown, (QStringList{u"hidden"_s, u"shown"_s}));
    ASSERT_EQ(StartedWindows.Entries().size(), 1U);
    const other_windows::Handle window = StartedWindows.Entries().front().Window;
    EXPECT_TRUE(other_windows::IsAlive(window));
    Run(u"execute /bin/sleep 30 none\nprint x\n"_s, 500);
    EXPECT_EQ(stage.Target().Text(), QString());
    QElapsedTimer passed;
    for (passed.start(); other_windows::IsAlive(window) && passed.elapsed() < 10'000;)
        QThread::msleep(10);
    EXPECT_FALSE(other_windows::IsAlive(window));
}
