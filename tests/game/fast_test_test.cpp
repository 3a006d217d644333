#include "game/fast_test.h"

#include "fault_steps.h"
#include "frame/run_scope.h"
#include "game/game_scope.h"

#include <QFile>
#include <QTimer>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

const QByteArray FastTestConf = "# head\r\n"
                                "name: mine\r\n"
                                " name: indented\r\n"
                                "sort_priority: 100\r\n"
                                "\r\n"
                                "bug: bugs.png\r\n"
                                "bug.xpos: 1\r\n"
                                "rock: rocks.png\r\n";

class FastTest : public GameTest
{
protected:
    FastTest()
    {
        Set = Scope.MakeSet(QStringLiteral("mine"), FastTestConf);
        Scope.Home.Write(QStringLiteral(".rocksndiamonds/levels/mine/sounds/ding.wav"), "sound");
        Path = Set + QStringLiteral("graphics/graphicsinfo.conf");
        EXPECT_TRUE(OpenDocument(Path, false));
        // The set as the game finds it, kept aside by the stand-in.
        Scope.Home.Write(QStringLiteral(".rocksndiamonds/levelsetup.conf"), "last_level_series: mine\n");
        Seen = Scope.Home.Path(QStringLiteral("seen"));
        GameScope::Acts("keep " + QFile::encodeName(Seen));
        Before = GameScope::Snapshot(Set);
    }

    static void Select(int line, int from, int toLine, int to)
    {
        CurrentPane().SetSel({line, from, toLine, to}, false);
    }
    QByteArray SeenConf() const { return Scope.Home.Read(QStringLiteral("seen/graphics/graphicsinfo.conf")); }
    bool SawSounds() const { return QFileInfo::exists(Seen + QStringLiteral("/sounds")); }
    QString LastTitle() const { return Last().MessageTitle; }

    QString Set, Path, Seen;
    QMap<QString, QByteArray> Before;
};

// Catches: a selection that is not widened to its lines, a header in the order of the file, the text of the disk in
// place of the pane's, another line end, a caret left elsewhere.
TEST_F(FastTest, TheGameSeesHeaderAndBlock)
{
    CurrentPane().InsertText(QStringLiteral("bug.ypos: 2\r\n"), {6, 0, 6, 0});
    Select(5, 3, 7, 4);
    FastLaunch();
    EXPECT_EQ(SeenConf(), "sort_priority: 100\r\nname: mine\r\nbug: bugs.png\r\nbug.ypos: 2\r\nbug.xpos: 1");
    EXPECT_TRUE(SawSounds());
    EXPECT_EQ(GameScope::Snapshot(Set), Before);
    EXPECT_TRUE(CurrentPane().Modified());
    EXPECT_EQ(CurrentPane().CaretColumn(), 0);
    EXPECT_EQ(CurrentPane().CaretLine(), 7);
    EXPECT_TRUE(Window.Enabled);
    EXPECT_TRUE(Answers.Asked.empty());
}

// Catches: the next block's main line in the test although nothing of it is selected.
TEST_F(FastTest, ALineThatIsOnlyTouchedStaysOut)
{
    Select(5, 0, 7, 0);
    FastLaunch();
    EXPECT_TRUE(SeenConf().endsWith("bug.xpos: 1"));
}

// Catches: sounds left in sight, or hidden for good; a set without them taken for a failure.
TEST_F(FastTest, SoundsAreOutOfSightOnlyIfWanted)
{
    Frame.Settings.DisableSoundLaunch = 1;
    Select(5, 0, 6, 3);
    FastLaunch();
    EXPECT_FALSE(SawSounds());
    EXPECT_TRUE(QFileInfo::exists(Seen + QStringLiteral("/_gfg_sounds/ding.wav")));
    EXPECT_FALSE(QFileInfo::exists(Seen + QStringLiteral("/_gfg_music")));
    EXPECT_EQ(GameScope::Snapshot(Set), Before);
    EXPECT_EQ(RootOfGraphics(QStringLiteral("/a/graphics/b/Graphics/c/")), QStringLiteral("/a/graphics/b/"));
    EXPECT_EQ(RootOfGraphics(QStringLiteral("/a/graphics")), QString());
}

// Catches: a start without what it needs, or one that touches a file before it knows.
TEST_F(FastTest, RefusesBeforeAnythingIsTouched)
{
    FastLaunch();
    EXPECT_EQ(LastTitle(), QStringLiteral("No Selection"));
    CurrentPane().DeleteLine(3);
    CurrentPane().InsertText(QString(18, u'\n') + QStringLiteral("sort_priority: 1\n"), {4, 0, 4, 0});
    Select(2, 0, 2, 3);
    FastLaunch(); // it stands in the 22nd line
    EXPECT_EQ(LastTitle(), QStringLiteral("No Header in conf file"));
    CurrentPane().DeleteLine(4);
    CurrentPane().SetModified(false);
    NewDocument(ModeGfx);
    CurrentPane().ExecuteCmd(CmdSelectAll);
    FastLaunch();
    EXPECT_EQ(LastTitle(), QStringLiteral("Not Saved"));
    Frame.Settings.RNDPath.clear();
    FastLaunch();
    EXPECT_EQ(LastTitle(), QStringLiteral("RND Not Located"));
    EXPECT_TRUE(Scope.TakeStarts().isEmpty());
    EXPECT_EQ(GameScope::Snapshot(Set), Before);
}

// Catches: a conf that stays away when the game is stopped, crashes or cannot be started, or when the program is
// closed.
TEST_F(FastTest, HoweverTheGameEndsAllIsBack)
{
    Frame.Settings.DisableSoundLaunch = 1;
    for (const char* acts : {"crash", "exit 1", "say ready;hang"}) {
        Select(5, 0, 6, 3);
        GameScope::Acts(acts);
        WhenSaid(QStringLiteral("ready"), [] { StopRuns(StopReason::Close); });
        FastLaunch();
        EXPECT_EQ(GameScope::Snapshot(Set), Before) << acts;
    }
    Frame.Settings.RNDPath = Scope.Run.Work.Write(QStringLiteral("no_program"), "x");
    Select(5, 0, 6, 3);
    FastLaunch();
    EXPECT_EQ(LastTitle(), QStringLiteral("Path Error"));
    EXPECT_EQ(GameScope::Snapshot(Set), Before);
}

// Catches: the document on the screen, or another tab, told as changed by another program after each test.
TEST_F(FastTest, NobodyIsAskedAboutTheSwap)
{
    Select(5, 0, 6, 3);
    After(100, [] { CheckChangedOutside(); });
    GameScope::Acts("sleep 250");
    FastLaunch();
    CheckChangedOutside();
    EXPECT_TRUE(Answers.Asked.empty());
}

// Catches: what another editor saved during the test thrown away, or put in the place of the author's conf.
TEST_F(FastTest, ForeignTextIsKeptAndTold)
{
    Select(5, 0, 6, 3);
    After(100, [&] {
        Scope.Home.Write(QStringLiteral(".rocksndiamonds/levels/mine/graphics/graphicsinfo.conf"), "foreign");
    });
    GameScope::Acts("sleep 300");
    FastLaunch();
    EXPECT_EQ(LastTitle(), QStringLiteral("Put Back"));
    const QString aside = Path + QStringLiteral("_000.GemforgeBackup");
    EXPECT_TRUE(Last().MessageText.endsWith(aside));
    EXPECT_EQ(Scope.Home.Read(QStringLiteral(".rocksndiamonds/levels/mine/graphics/graphicsinfo.conf")), FastTestConf);
}

// Catches: a crash of the program during the test that the next start does not make good, before it reads the conf.
TEST_F(FastTest, TheNextStartPutsAllBackAndTellsIt)
{
    Frame.Settings.DisableSoundLaunch = 1;
    Select(5, 0, 6, 3);
    GameScope::Acts("sleep 200");
    const pid_t child = fork();
    if (child == 0) {
        QTimer::singleShot(100, [] { _exit(0); });
        FastLaunch();
        _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_EQ(WEXITSTATUS(status), 0);
    ASSERT_NE(GameScope::Snapshot(Set), Before);
    Scope.Run.Start({Path});
    EXPECT_EQ(GameScope::Snapshot(Set), Before);
    EXPECT_EQ(CurrentPane().GetLine(7), QStringLiteral("rock: rocks.png"));
    EXPECT_EQ(LastTitle(), QStringLiteral("Put Back"));
    EXPECT_TRUE(Last().MessageText.contains(Path));
}

// Catches: the same left in a folder that only another user's notes tell of: opening a file there must put it back.
TEST_F(FastTest, OpeningAFilePutsItsFolderBack)
{
    const pid_t child = fork();
    if (child == 0) {
        auto swap = name_swap::Begin({Path, QStringLiteral("graphicsinfo.confABCDE"), "small", {}});
        _exit(swap ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_EQ(WEXITSTATUS(status), 0);
    QDir(Scope.Home.Path(QStringLiteral("xdg_state_home"))).removeRecursively();
    ASSERT_TRUE(OpenDocument(Path, true));
    EXPECT_EQ(CurrentPane().GetLine(7), QStringLiteral("rock: rocks.png"));
    EXPECT_EQ(GameScope::Snapshot(Set), Before);
}

// Catches: a step of the whole command that fails (full disk, no permission) and leaves the small conf behind.
TEST_F(FastTest, AFailingStepIsToldAndLeavesNothing)
{
    Frame.Settings.DisableSoundLaunch = 1;
    GameScope::Acts("exit 0");
    for (int nth = 1; nth < 200; ++nth) {
        Select(5, 0, 6, 3);
        const auto count = std::make_shared<int>(0);
        FileSteps steps = FileSteps::OfSystem();
        steps.Sync = [](int) { return 0; };
        {
            const FileStepsScope scope(FailingAt(steps, nth, ENOSPC, count));
            FastLaunch();
        }
        if (*count < nth)
            break;
        name_swap::FinishAll();
        name_swap::FinishIn(Set + QStringLiteral("graphics/"));
        EXPECT_EQ(GameScope::Snapshot(Set), Before) << nth;
    }
    EXPECT_FALSE(Answers.Asked.empty());
}

} // namespace
