#include "frame/files/tab_commands.h"
#include "game/safe_test.h"

#include "frame/media/media_lists.h"
#include "frame/run_scope.h"
#include "game/check_with_game.h"
#include "game/game_scope.h"
#include "game/game_words.h"
#include "game/set_under_work.h"

#include <sys/stat.h>
#include <sys/wait.h>

namespace {

const QByteArray SafeTestConf = "name: mine\nsort_priority: 100\nbug: bugs.png\nrock.xpos: 1\n";

class SafeTestOfSet : public GameTest
{
protected:
    SafeTestOfSet()
    {
        Set = Scope.MakeSet(QStringLiteral("mine"), SafeTestConf);
        const QString files = QStringLiteral(".rocksndiamonds/levels/mine/");
        Scope.Home.Write(files + QStringLiteral("graphics/bugs.png"), "\x89PNG" + QByteArray(100'000, 'x'));
        Scope.Home.Write(files + QStringLiteral("005.level"), "RND1");
        Scope.Home.Write(files + QStringLiteral("tapes/001.tape"), "tape");
        Scope.Home.Write(QStringLiteral(".rocksndiamonds/levelsetup.conf"), "last_level_series: other\n");
        Scope.Home.Write(QStringLiteral(".rocksndiamonds/scores/mine/001.score"), "42");
        Scope.Home.Write(QStringLiteral(".rocksndiamonds/setup.conf"), "player_name: Me\n");
        Seen = Scope.Home.Path(QStringLiteral("seen"));
    }

    void Open(const QString& name) { ASSERT_TRUE(OpenDocument(Set + name, false)); }
    /// The test, until the stand-in has ended.
    static bool Ends()
    {
        return WaitUntil([] { return !TheGame.Test; });
    }
    QMap<QString, QByteArray> UserFiles() const { return GameScope::Snapshot(Scope.UserFile(QString())); }
    QString Homes() const { return Scope.Home.Path(QStringLiteral("xdg_cache_home/gemforge/game")); }
    int ScratchHomes() const { return int(QDir(Homes()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size()); }
    static QStringList ShownKeys()
    {
        QStringList keys;
        for (int row = 0; row < Words().rowCount(); ++row)
            keys << Words().At(row)->Finding.Key + u':' + QString::number(Words().At(row)->Line);
        return keys;
    }

    QString Set, Seen;
};

// Catches: the saved text in place of the tab's, a set that is not chosen, a large picture that is copied, a file of
// the user that is written through a link or left changed, a home that stays.
TEST_F(SafeTestOfSet, TheGamePlaysACopyWithTheUnsavedTexts)
{
    Open(QStringLiteral("graphics/graphicsinfo.conf"));
    CurrentPane().InsertText(QStringLiteral("bug.xpos: 7\n"), {});
    OpenNewTab();
    ActivateTab();
    Open(QStringLiteral("levelinfo.conf"));
    CurrentPane().InsertText(QStringLiteral("author: me\n"), {});
    const auto before = UserFiles();
    GameScope::Acts("append 001.level;append graphics/graphicsinfo.conf;append levelinfo.conf;setup x;"
                    "score mine;keep " +
                    QFile::encodeName(Seen));
    TestSetSafely();
    ASSERT_TRUE(TheGame.Test);
    EXPECT_TRUE(Window.Enabled);
    ASSERT_TRUE(Ends());
    EXPECT_EQ(UserFiles(), before);
    EXPECT_TRUE(Scope.Home.Read(QStringLiteral("seen/graphics/graphicsinfo.conf")).startsWith("bug.xpos: 7\nname"));
    EXPECT_TRUE(Scope.Home.Read(QStringLiteral("seen/levelinfo.conf")).startsWith("author: me\n"));
    EXPECT_EQ(Scope.Home.Read(QStringLiteral("seen/001.level")), "RND1edited\n");
    EXPECT_TRUE(CurrentPane().Modified());
    EXPECT_EQ(ScratchHomes(), 0);
    EXPECT_EQ(RunningWork(), 0);
    EXPECT_TRUE(Answers.Asked.empty());
}

// Catches: a level beside the chosen one, a level of another folder, texts of a group or artwork of another set that
// the game does not find.
TEST_F(SafeTestOfSet, SetLevelAndSurroundingsAreThere)
{
    Scope.Home.Write(QStringLiteral(".rocksndiamonds/levels/donor/levelinfo.conf"), "name: Donor\n");
    Scope.Home.Write(QStringLiteral(".rocksndiamonds/levels/donor/graphics/d.png"), "\x89PNG");
    Scope.Home.Write(QStringLiteral(".rocksndiamonds/graphics/own/o.png"), "\x89PNG");
    const QString group = QStringLiteral(".rocksndiamonds/levels/group/");
    Scope.Home.Write(group + QStringLiteral("levelinfo.conf"), "level_group: yes # a group\n");
    Scope.Home.Write(group + QStringLiteral("helptext.conf"), "bug: help\n");
    Scope.Home.Write(group + QStringLiteral("in/levelinfo.conf"), "levels: 9\ngraphics_set: donor # note\n");
    Set = Scope.Home.Path(group + QStringLiteral("in/"));
    Open(QStringLiteral("levelinfo.conf"));
    auto set = PrepareSet({Set, 5, TextsOfTabs(), true});
    ASSERT_TRUE(set) << set.error().Text();
    const QString levels = set->Home.Folder() + QStringLiteral("levels/");
    EXPECT_EQ(set->Copy, levels + QStringLiteral("group/in/"));
    EXPECT_EQ(set->Arguments, QStringList({QStringLiteral("-l"), levels.chopped(1)}));
    const auto files = GameScope::Snapshot(set->Home.Folder().chopped(1));
    const QString user = set->Home.UserFolder();
    EXPECT_TRUE(files.contains(levels + QStringLiteral("group/helptext.conf")));
    EXPECT_TRUE(QFileInfo::exists(levels + QStringLiteral("donor/graphics/d.png")));
    EXPECT_TRUE(QFileInfo::exists(user + QStringLiteral("graphics/own/o.png")));
    EXPECT_EQ(files.value(user + QStringLiteral("setup.conf")), "player_name: Me\n");
    EXPECT_TRUE(files.value(user + QStringLiteral("levelsetup/in/levelsetup.conf")).contains("last_played_level: 5"));
    EXPECT_TRUE(files.value(user + QStringLiteral("serversetup.conf")).contains("use_api_server: off"));
    GameFinding word{GameSeverity::Warning,
                     {},
                     set->Copy + QStringLiteral("a.conf"),
                     set->Copy + QStringLiteral("a.png"),
                     QStringLiteral("no music in '%1music'").arg(set->Copy)};
    set->LeadBack(word);
    EXPECT_EQ(word.File, Set + QStringLiteral("a.conf"));
    EXPECT_EQ(word.Picture, Set + QStringLiteral("a.png"));
    EXPECT_EQ(word.Text, QStringLiteral("no music in '%1music'").arg(Set));
    EXPECT_FALSE(set->IsInMenu());

    EXPECT_TRUE(IsGroupOfSets(Scope.Home.Path(group)));
    EXPECT_FALSE(IsGroupOfSets(Set));
    EXPECT_EQ(SetFolderOf(Set + QStringLiteral("graphics/deep")), Set);
    EXPECT_EQ(SetFolderOf(QStringLiteral("/")), QString());
}

// Catches: a selected level that is not the one tested.
TEST_F(SafeTestOfSet, TheSelectedLevelIsUnderWork)
{
    Open(QStringLiteral("levelinfo.conf"));
    Lists().SavedListIndex.at(size_t(MediaSource::PCXBrowser)) = Lists().Base.Find(QStringLiteral("005.level"));
    EXPECT_EQ(WishOfCurrentSet()->Level, 5);
    Open(QStringLiteral("graphics/graphicsinfo.conf"));
    EXPECT_EQ(WishOfCurrentSet()->Level, 5); // the list shows pictures now
    OpenNewTab();
    ActivateTab();
    EXPECT_FALSE(WishOfCurrentSet());
    EXPECT_TRUE(Window.Notices.back().contains(QLatin1String("no file")));
}

// Catches: links inside a set copied as a file that is not there, a loop of links followed for ever, a socket or pipe
// read.
TEST_F(SafeTestOfSet, LinksOfTheSetAreFollowed)
{
    const QString shared = Scope.Run.Work.Write(QStringLiteral("shared/graphicsinfo.conf"), "name: shared\n");
    QDir(Set + QStringLiteral("graphics")).removeRecursively();
    QFile::link(QFileInfo(shared).path(), Set + QStringLiteral("graphics"));
    QFile::link(Set.chopped(1), Set + QStringLiteral("loop"));
    mkfifo(QFile::encodeName(Set + QStringLiteral("pipe")), 0600);
    ASSERT_TRUE(OpenDocument(shared, false));
    CurrentPane().InsertText(QStringLiteral("sand.xpos: 1\n"), {});
    const auto set = PrepareSet({Set, {}, TextsOfTabs(), false});
    ASSERT_TRUE(set) << set.error().Text();
    QFile conf(set->Copy + QStringLiteral("graphics/graphicsinfo.conf"));
    ASSERT_TRUE(conf.open(QIODevice::ReadOnly));
    EXPECT_EQ(conf.readAll(), "sand.xpos: 1\nname: shared\n");
    EXPECT_EQ(set->Count.Linked, 0);
}

// Catches: a large picture copied byte by byte, or a link through which the game's editor would write.
TEST_F(SafeTestOfSet, OnlyWhatTheGameMayNotWriteIsLinked)
{
    Scope.Home.Write(QStringLiteral(".rocksndiamonds/levels/mine/009.level"), "RND1" + QByteArray(200'000, 'x'));
    const auto set = PrepareSet({Set, {}, {}, false});
    ASSERT_TRUE(set);
    EXPECT_EQ(set->Count.Linked, 1);
    EXPECT_EQ(QFileInfo(set->Copy + QStringLiteral("graphics/bugs.png")).symLinkTarget(),
              Set + QStringLiteral("graphics/bugs.png"));
    EXPECT_FALSE(QFileInfo(set->Copy + QStringLiteral("009.level")).isSymLink());
}

// Catches: two tests at once, one that is not started again or more than once, a text of before the edit.
TEST_F(SafeTestOfSet, OneKeyStartsAgainAfterAnEdit)
{
    Open(QStringLiteral("graphics/graphicsinfo.conf"));
    GameScope::Acts("say ready;play");
    TestSetSafely();
    ASSERT_TRUE(WaitUntil([] { return RunInFront() != nullptr && ScopeSays(QStringLiteral("ready")); }));
    CurrentPane().InsertText(QStringLiteral("bug.ypos: 3\n"), {});
    GameScope::Acts("keep " + QFile::encodeName(Seen));
    TestSetSafely();
    TestSetSafely();
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Scope.TakeStarts().size(), 2);
    EXPECT_TRUE(Scope.Home.Read(QStringLiteral("seen/graphics/graphicsinfo.conf")).startsWith("bug.ypos: 3\n"));
    EXPECT_EQ(ScratchHomes(), 0);
}

// Catches: a test that holds other work up, ends with what runs in front of it or stands in front of that; a bad end
// without a word.
TEST_F(SafeTestOfSet, OtherWorkGoesOnBesideIt)
{
    Open(QStringLiteral("levelinfo.conf"));
    GameScope::Acts("say ready;play");
    {
        RunScope earlier(RunKind::Macro, QStringLiteral("earlier"));
        TestSetSafely();
        EXPECT_EQ(RunInFront(), &earlier);
    }
    EXPECT_FALSE(IsWorkHeldUp());
    EXPECT_TRUE(AnyRun());
    ASSERT_TRUE(WaitUntil([] { return ScopeSays(QStringLiteral("ready")); }));
    for (const StopReason reason : {StopReason::Esc, StopReason::Break}) {
        RunScope front(RunKind::Macro, QStringLiteral("front"));
        StopRuns(reason);
        EXPECT_TRUE(front.Stopped());
        const WorkScope modal;
        StopRuns(reason);
    }
    EXPECT_FALSE(RunInFront()->Stopped());
    StopRuns(StopReason::Esc);
    ASSERT_TRUE(Ends());
    GameScope::Acts("exit 3");
    TestSetSafely();
    ASSERT_TRUE(Ends());
    EXPECT_TRUE(Window.Notices.back().contains(QLatin1String("exit code 3")));
}

// Catches: a close of the program that a test holds up, or one that leaves the game behind.
TEST_F(SafeTestOfSet, AStopEndsItForGood)
{
    Open(QStringLiteral("levelinfo.conf"));
    GameScope::Acts("say ready;hang");
    TestSetSafely();
    ASSERT_TRUE(WaitUntil([] { return ScopeSays(QStringLiteral("ready")); }));
    StopRuns(StopReason::Close);
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Scope.TakeStarts().size(), 1);
    EXPECT_EQ(RunningWork(), 0);
    EXPECT_TRUE(Answers.Asked.empty() && Window.Notices.empty()) << "trouble is told that is none";
}

// Catches: the home of a game that still plays swept away, or one that is never swept.
TEST_F(SafeTestOfSet, AKillLeavesAHomeThatIsSweptOnceNobodyHoldsIt)
{
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t gemforge = fork();
    if (gemforge == 0) {
        const auto home = ScratchHome::Make();
        const pid_t game = fork();
        if (game == 0)
            _exit(write(ready[1], "x", 1) == 1 ? pause() : 1); // holds the file, as the game does
        _exit(write(ready[1], &game, sizeof game) == sizeof game ? 0 : 1);
    }
    char held[1 + sizeof(pid_t)];
    size_t got = 0;
    while (got < sizeof held)
        got += size_t(qMax<ssize_t>(0, read(ready[0], held + got, sizeof held - got)));
    waitpid(gemforge, nullptr, 0);
    pid_t game = 0;
    memcpy(&game, held[0] == 'x' ? held + 1 : held, sizeof game);
    EXPECT_EQ(SweepScratchHomes(), 0);
    EXPECT_EQ(ScratchHomes(), 1);
    kill(game, SIGKILL);
    EXPECT_TRUE(WaitUntil([] { return SweepScratchHomes() == 1; }));
    EXPECT_EQ(ScratchHomes(), 0);
}

// Catches: a game that cannot be asked by a user without a home that can be written, or in another user's folder.
TEST_F(SafeTestOfSet, WithoutAHomeTheTemporaryFilesServe)
{
    Scope.Home.Write(QStringLiteral("file"), "no folder");
    const QString temporary = Scope.Home.Path(QStringLiteral("temporary"));
    QDir().mkpath(temporary);
    qputenv("XDG_CACHE_HOME", QFile::encodeName(Scope.Home.Path(QStringLiteral("file"))));
    qputenv("TMPDIR", QFile::encodeName(temporary));
    const QString spare = QStringLiteral("%1/gemforge-%2").arg(temporary).arg(geteuid());
    {
        const auto home = ScratchHome::Make();
        ASSERT_TRUE(home) << home.error().Text();
        EXPECT_TRUE(home->Folder().startsWith(spare + u'/'));
    }
    QDir(spare).removeRecursively();
    QFile::link(Scope.Home.Path(), spare);
    EXPECT_FALSE(ScratchHome::Make());
    qunsetenv("TMPDIR");
}

// Catches: a check that waits for the limit, in the user's home, with the saved text, whose rows name the copy.
TEST_F(SafeTestOfSet, CheckWithTheGameShowsItsWords)
{
    Open(QStringLiteral("graphics/graphicsinfo.conf"));
    CurrentPane().InsertText(QStringLiteral("nosuch.png: 1\nbug.frames:\nsand: gone.png\nx.clone_from: y\n"), {});
    const auto before = UserFiles();
    CheckWithTheGame();
    EXPECT_EQ(ShownKeys(), QStringList({QStringLiteral("nosuch.png:0"), QStringLiteral("x.clone_from:3"),
                                        QStringLiteral("bug.frames:1"), QStringLiteral("sand:2"),
                                        QStringLiteral("x.clone_from:3")}));
    for (int row = 0; row < Words().rowCount(); ++row)
        EXPECT_EQ(Words().At(row)->Finding.File, Set + QStringLiteral("graphics/graphicsinfo.conf"));
    EXPECT_EQ(Words().data(Words().index(1, GameWords::FileColumn), Qt::DisplayRole),
              QStringLiteral("graphics/graphicsinfo.conf:4"));
    EXPECT_EQ(Window.Notices.back(), QStringLiteral("The game complains about 5 things."));
    EXPECT_EQ(UserFiles(), before);
    EXPECT_TRUE(Scope.TakeStarts().last().contains(QLatin1String("video=dummy")));
    EXPECT_EQ(ScratchHomes(), 0);

    CurrentPane().ExecuteCmd(CmdDocumentEnd);
    OpenNewTab();
    ActivateTab();
    GoToGameWord(2); // in the tab that has the file
    EXPECT_EQ(Frame.CurrentTab, 0);
    EXPECT_EQ(CurrentPane().CaretLine(), 1);
}

// Catches: an error screen that is waited at, a game that never writes its state held for ever, a crash without a word.
TEST_F(SafeTestOfSet, CheckEndsHoweverTheGameDoes)
{
    struct
    {
        const char* Acts;
        GameEnd End;
        const char* Text;
    } const ways[] = {{"fatal the end", GameEnd::SaidAll, "the end"},
                      {"crash", GameEnd::ByItself, "the game has crashed"},
                      {"exit 7", GameEnd::ByItself, "the game ended with exit code 7"},
                      {"flood 2;play", GameEnd::SaidAll, nullptr}};
    for (const auto& way : ways) {
        GameScope::Acts(way.Acts);
        RunScope scope(RunKind::Game, QStringLiteral("check"));
        const auto check = CheckSet(Scope.Program(), {}, {Set, {}, {}, false}, scope, 20'000, AuthorsText);
        ASSERT_TRUE(check);
        EXPECT_EQ(check->End, way.End) << way.Acts;
        EXPECT_EQ(check->Findings.size(), way.Text ? 1U : 0U) << way.Acts;
        const QString text = check->Findings.empty() ? QString() : check->Findings[0].Finding.Text;
        EXPECT_EQ(text, QLatin1String(way.Text));
    }
    Scope.Home.Write(QStringLiteral(".rocksndiamonds/levels/mine/graphics/bugs.png"), "no picture");
    RunScope scope(RunKind::Game, QStringLiteral("check"));
    const auto check = CheckSet(Scope.Program(), {}, {Set, {}, {}, false}, scope, 20'000, AuthorsText);
    ASSERT_EQ(check->Findings.size(), 1U);
    EXPECT_EQ(check->Findings[0].Finding.Severity, GameSeverity::Fatal);
    EXPECT_EQ(check->Findings[0].Line, 2);
}

} // namespace
