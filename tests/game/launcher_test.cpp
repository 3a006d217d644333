#include "game/launcher.h"

#include "frame/run_scope.h"
#include "game/extract.h"
#include "game/game_program.h"
#include "game/game_scope.h"
#include "game/game_words.h"

#include <QTimer>
#include <signal.h>

namespace {

const QByteArray ChosenSet = "last_level_series: mine\n";

class Launcher : public GameTest
{
protected:
    QString Started() { return Scope.TakeStarts().join(u'\n'); }
    bool HasOutput(const QString& name) const { return QFileInfo::exists(Scope.Game.Path(name)); }
};

// Catches: a start in another folder or home, a window left disabled, a current folder that stays the game's, an output
// file of an earlier run or an empty one.
TEST_F(Launcher, PlaysInItsOwnFolderAndLeavesItsWords)
{
    const QString set = Scope.MakeSet(QStringLiteral("mine"), "name: mine\nsort_priority: 1\n");
    ASSERT_TRUE(OpenDocument(set + QStringLiteral("graphics/graphicsinfo.conf"), false));
    Scope.Game.Write(QStringLiteral("stderr.txt"), "of yesterday");
    bool wasEnabled = true;
    After(50, [&] { wasEnabled = Window.Enabled; });
    GameScope::Acts("sleep 150;say hello;warn something odd;grumble alsa");
    const auto report = LaunchGame(0, false);
    ASSERT_TRUE(report && report->Succeeded());
    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(Window.Enabled);
    EXPECT_EQ(QDir::currentPath() + u'/', Frame.CurrentFolder);
    EXPECT_EQ(Started(), QStringLiteral("cwd=") + Scope.Game.Path().chopped(1) + QStringLiteral(" home=") +
                             Scope.Home.Path().chopped(1) + QStringLiteral(" video="));
    EXPECT_EQ(Scope.Game.Read(QStringLiteral("stdout.txt")), "hello\n");
    EXPECT_EQ(Scope.Game.Read(QStringLiteral("stderr.txt")), "[WARN] something odd\nalsa\n");
    EXPECT_EQ(Words().rowCount(), 1);

    GameScope::Acts("exit 0");
    LaunchGame(0, true);
    EXPECT_FALSE(HasOutput(QStringLiteral("stdout.txt")) || HasOutput(QStringLiteral("stderr.txt")));
    EXPECT_EQ(Words().rowCount(), 0);
}

// Catches: a game that seeks its data beside the link by which it is set, or one that is started from elsewhere
// although its data lie beside the link.
TEST_F(Launcher, AGameBehindALinkFindsItsData)
{
    const QString real = Scope.Game.Path(QStringLiteral("real")), link = Scope.Run.Work.Path(QStringLiteral("linked"));
    ASSERT_TRUE(QFile::copy(QFile::symLinkTarget(Scope.Program()), real));
    ASSERT_TRUE(QFile::link(real, link));
    Frame.Settings.RNDPath = link;
    const auto report = LaunchGame(0, false);
    ASSERT_TRUE(report);
    EXPECT_TRUE(report->Succeeded()) << report->Printed.toStdString();
    EXPECT_TRUE(Started().startsWith(QStringLiteral("cwd=") + Scope.Game.Path().chopped(1) + u' '));
    EXPECT_EQ(ProgramToStart(Scope.Program()), Scope.Program());
}

// Catches: a run without a game, or with one that has gone, that does more than tell so.
TEST_F(Launcher, WithoutAGameOnlyTellsSo)
{
    for (const QString& path : {QString(), Scope.Game.Path(QStringLiteral("gone"))}) {
        Frame.Settings.RNDPath = path;
        EXPECT_FALSE(LaunchGame(0, false));
        EXPECT_EQ(Last().MessageTitle, QStringLiteral("RND Not Located"));
    }
    Scope.Game.Write(QStringLiteral("text"), "no program");
    Frame.Settings.RNDPath = Scope.Game.Path(QStringLiteral("text"));
    EXPECT_FALSE(LaunchGame(0, false));
    EXPECT_TRUE(Last().MessageText.startsWith(Frame.Settings.RNDPath));
    EXPECT_TRUE(Window.Enabled);
}

// Catches: a game that hangs holding the program up, or being ended by a signal at which it drops its set.
TEST_F(Launcher, AHangingGameIsKilledAndKeepsItsSetup)
{
    Scope.Home.Write(QStringLiteral(".rocksndiamonds/levelsetup.conf"), ChosenSet);
    for (const StopReason reason : {StopReason::Esc, StopReason::Break, StopReason::Close}) {
        GameScope::Acts("say still here;hang");
        WhenSaid(QStringLiteral("still here"), [=] { StopRuns(reason); });
        const auto report = LaunchGame(0, false);
        ASSERT_TRUE(report);
        EXPECT_EQ(report->End, GameEnd::Stopped);
        EXPECT_EQ(report->Printed, "still here\n"); // printed before the kill
        EXPECT_EQ(Scope.Home.Read(QStringLiteral(".rocksndiamonds/levelsetup.conf")), ChosenSet);
        EXPECT_EQ(RunningWork(), 0);
    }
}

// Catches: a crash taken for an end, a flood kept in memory without limit.
TEST_F(Launcher, CrashAndFloodAreTold)
{
    GameScope::Acts("crash");
    EXPECT_TRUE(LaunchGame(0, false)->Crashed);
    EXPECT_EQ(Window.Notices.back(), QStringLiteral("The game has crashed."));
    GameScope::Acts("exit 3");
    LaunchGame(0, false);
    EXPECT_TRUE(Window.Notices.back().contains(u'3'));
    GameScope::Acts("flood 50;exit 0");
    const auto report = LaunchGame(0, false);
    EXPECT_TRUE(report->Succeeded());
    EXPECT_EQ(report->Printed.size(), qsizetype(32) << 20);
}

// Catches: a dump whose text is torn by messages, in the user's own home, of the wrong conf or in the wrong mode; head
// lines that lose their "#", entries that keep it.
TEST_F(Launcher, ExtractsEachConf)
{
    const std::pair<int, int> kinds[] = {{ModeGfx, 14870}, {ModeSfx, 449}, {ModeMus, 46},
                                         {ModeHlt, 65},    {ModeHla, 361}, {ModeEdi, 1472}};
    GameScope::ActsAtPrint("warn cannot write somewhere");
    for (int index = 1; index <= 6; ++index) {
        CurrentPane().SetModified(false);
        ExtractFromGame(index);
        const auto [mode, lines] = kinds[index - 1];
        EXPECT_EQ(Frame.CurrentMode, mode) << index;
        EXPECT_EQ(CurrentPane().LineCount(), lines + 1) << index; // the last line ends
        EXPECT_TRUE(CurrentPane().GetLine(0).startsWith(QLatin1String("# You can configure"))) << index;
        EXPECT_TRUE(CurrentPane().GetLine(1).startsWith(QLatin1String("# (The entries"))) << index;
        const QString entry = CurrentPane().GetLine(20);
        EXPECT_FALSE(entry.startsWith(u'#')) << index;
        EXPECT_FALSE(entry.contains(QLatin1String("# "))) << index;
        EXPECT_EQ(CurrentPane().CaretLine(), 0);
        EXPECT_TRUE(CurrentPane().Modified());
        const QString start = Started();
        EXPECT_FALSE(start.contains(QStringLiteral("home=") + Scope.Home.Path().chopped(1) + u' ')) << start;
        EXPECT_EQ(QDir::currentPath() + u'/', Frame.CurrentFolder);
    }
    EXPECT_EQ(Scope.Game.Read(QStringLiteral("stderr.txt")), "[WARN] cannot write somewhere\n");
    EXPECT_TRUE(CurrentPane().ExecuteCmd(CmdUndo));
    EXPECT_TRUE(CurrentPane().GetLine(20).startsWith(u'#'));
}

// Catches: a pane that is emptied, an unasked loss, a save that writes the dump over the document's file unasked.
TEST_F(Launcher, ExtractGuardsTheText)
{
    const QString path = Scope.Run.Work.Write(QStringLiteral("graphicsinfo.conf"), "name: a\n");
    ASSERT_TRUE(OpenDocument(path, false));
    for (const char* acts : {"exit 0", "exit 1", "crash", "say half a conf;exit 2"}) {
        GameScope::ActsAtPrint(acts);
        ExtractFromGame(1);
        EXPECT_EQ(CurrentPane().GetLine(0), QStringLiteral("name: a")) << acts;
        EXPECT_FALSE(CurrentPane().Modified());
    }
    GameScope::ActsAtPrint("");
    CurrentPane().InsertText(QStringLiteral("x"), {});
    Answers.Next = {QStringLiteral("Cancel")};
    Scope.TakeStarts();
    ExtractFromGame(1);
    EXPECT_TRUE(Started().isEmpty());
    Answers.Next = {QStringLiteral("OK")};
    ExtractFromGame(1);
    EXPECT_TRUE(CurrentPane().GetLine(0).startsWith(u'#'));
    EXPECT_EQ(Frame.Documents[0].Path, path);
    Answers.Next = {QStringLiteral("Cancel")};
    SaveCommand();
    EXPECT_EQ(Last().MessageTitle, QStringLiteral("File Already Exists"));
    EXPECT_EQ(Scope.Run.Work.Read(QStringLiteral("graphicsinfo.conf")), "name: a\n");
}

// Catches: a stop of the printing that leaves half a conf in the pane, or a shell between the words of the command.
TEST_F(Launcher, ExtractCanBeStopped)
{
    GameScope::ActsAtPrint("say # half;hang");
    WhenSaid(QStringLiteral("# half"), [] { StopRuns(StopReason::Break); });
    const QString before = CurrentPane().Text();
    ExtractFromGame(1);
    EXPECT_EQ(CurrentPane().Text(), before);
    EXPECT_TRUE(Started().endsWith(QLatin1String("[-e] [print graphicsinfo.conf]")));
    EXPECT_EQ(CommandWords(QStringLiteral("  -e \"a b\"c  \"\" d")),
              QStringList({QStringLiteral("-e"), QStringLiteral("a bc"), QString(), QStringLiteral("d")}));
}

// Catches: an error log shown although there was none, or over unsaved text unasked, in the mode of the text before.
TEST_F(Launcher, ViewsTheErrorLog)
{
    ViewErrorLog();
    EXPECT_EQ(Last().MessageTitle, QStringLiteral("No Error Log Found!"));
    EXPECT_EQ(Frame.CurrentMode, ModeGfx);
    GameScope::Acts("warn one;warn two");
    LaunchGame(0, false);
    CurrentPane().InsertText(QStringLiteral("x"), {});
    Answers.Next = {QStringLiteral("Cancel")};
    ViewErrorLog();
    EXPECT_EQ(CurrentPane().GetLine(0).left(1), QStringLiteral("x"));
    Answers.Next = {QStringLiteral("OK")};
    ViewErrorLog();
    EXPECT_EQ(CurrentPane().GetLine(0), QStringLiteral("[WARN] one"));
    EXPECT_EQ(Frame.CurrentMode, ModeTxt);
    EXPECT_FALSE(CurrentPane().Modified());
}

// Catches: any program with an exit code of 0 taken for the game, a proof in the user's own home, a program that never
// ends; the game not found, or set over the user's choice.
TEST_F(Launcher, TheGameIsProven)
{
    GameScope::ActsAtProof("warn a home that cannot be written");
    const auto version = ProveGame(Scope.Program());
    ASSERT_TRUE(version) << version.error().Text();
    EXPECT_EQ(*version, QStringLiteral("4.4.2.1"));
    EXPECT_FALSE(QFileInfo::exists(Scope.UserFile(QStringLiteral("rocksndiamonds.log"))));
    EXPECT_TRUE(Scope.Run.Program.Read(QStringLiteral("data/proof.txt")).endsWith("Rocks'n'Diamonds 4.4.2.1\n"));

    EXPECT_FALSE(ProveGame(QStringLiteral("/bin/true")));
    EXPECT_FALSE(ProveGame(QStringLiteral("/bin/echo"))); // prints its argument
    EXPECT_FALSE(ProveGame(Scope.Game.Path()));
    EXPECT_FALSE(ProveGame(Scope.Game.Write(QStringLiteral("text"), "x")));
    for (const char* other : {"x Rocks'n'Diamonds 4.4\n", "Rocks'n'Diamonds\n", "Rocks'n'Diamonds two\n", ""})
        EXPECT_EQ(VersionIn(other, QStringLiteral("Rocks'n'Diamonds")), QString()) << other;

    const QByteArray before = qgetenv("PATH");
    qputenv("PATH",
            "relative:" + QFile::encodeName(Scope.Run.Work.Path()) + ':' + QFile::encodeName(Scope.Game.Path()));
    Frame.Settings.RNDPath = QStringLiteral("/the/users/own");
    FindGameAtStart();
    EXPECT_EQ(Frame.Settings.RNDPath, QStringLiteral("/the/users/own"));
    Frame.Settings.RNDPath.clear();
    FindGameAtStart();
    qputenv("PATH", before);
    EXPECT_EQ(Frame.Settings.RNDPath, Scope.Program());
    EXPECT_EQ(Frame.Settings.LevelsFolder, Scope.Game.Path(QStringLiteral("levels/")));
    EXPECT_TRUE(Scope.Run.UserIni().contains(QByteArray("RNDPath=" + QFile::encodeName(Scope.Program()))));
    EXPECT_TRUE(Window.Notices.back().endsWith(Scope.Program()));
}

} // namespace
