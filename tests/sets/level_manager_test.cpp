#include "sets/level_manager.h"

#include "game/game_scope.h"
#include "services/archive_tool.h"
#include "services/made_archive.h"
#include "sets/get_files.h"
#include "sets/set_facts.h"
#include "sets/setup_file.h"

#include <QFile>

namespace {

const QByteArray SetupHead = "# ====\n# levelsetup.conf\n# ====\n\n";
const QByteArray SetupTail = "\nlast_played_menu_used:                  false\n";

/// The game's levels with a set in a group and a zipped one, the player's own with a set, all seen by a manager.
class LevelManagerTest : public GameTest
{
protected:
    LevelManagerTest()
    {
        Scope.Game.Write(QStringLiteral("levels/group/deep/001.level"), "RND1");
        Scope.Game.Write(QStringLiteral("levels/group/deep/002.level"), "RND1");
        Scope.Game.Write(QStringLiteral("levels/box/Boxed/levelinfo.conf"), "name: boxed\n");
        Scope.Game.Write(QStringLiteral("levels/box/Boxed/001.level"), "RND1 of the box");
        [[maybe_unused]] const auto zipped = ZipFiles(Level("box/Boxed"), Level("box/Boxed.levzip")).map([&] {
            QDir(Level("box/Boxed")).removeRecursively();
        });
        Scope.MakeSet(QStringLiteral("mine"), "name: mine\n");
        WriteSetup("last_level_series:                      tutorial\n");
        QObject::connect(&Manager, &LevelManager::Told, &Manager, [this](const QString& text) { Told << text; });
        QObject::connect(&Manager, &LevelManager::Busy, &Manager, [this](const QString& text) { BusyWith = text; });
    }

    QString Level(const char* name) const { return Scope.Game.Path(QStringLiteral("levels/") + QLatin1String(name)); }
    void WriteSetup(const QByteArray& line) const
    {
        Scope.Home.Write(QStringLiteral(".rocksndiamonds/levelsetup.conf"), SetupHead + line + SetupTail);
    }
    QByteArray Setup() const { return Scope.Home.Read(QStringLiteral(".rocksndiamonds/levelsetup.conf")); }
    QByteArray SetupWith(const QByteArray& name) const
    {
        return SetupHead + "last_level_series:                      " + name + '\n' + SetupTail;
    }
    void OpenAndScan()
    {
        ASSERT_EQ(Manager.Open(), QString());
        Manager.Scan();
    }
    void Select(const QString& text)
    {
        const QModelIndexList found =
            Manager.Tree.match(Manager.Tree.index(0), Qt::DisplayRole, text, 1, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << text;
        Manager.SelectNode(found.front().row());
    }
    int ImageOf(const QString& text) const
    {
        for (int row = 0; row < Manager.Tree.rowCount(); ++row)
            if (Manager.Tree.index(row).data() == text)
                return Manager.Tree.index(row).data(SetTree::ImageRole).toInt();
        return 0;
    }
    QStringList Texts() const
    {
        QStringList texts;
        for (const SetNode& node : Manager.Tree.Nodes())
            texts << node.Text;
        return texts;
    }

    LevelManager Manager;
    QStringList Told;
    QString BusyWith = QStringLiteral("never told");
};

} // namespace

// Catches: a window that opens without the game's own files; words of its own for that.
TEST_F(LevelManagerTest, WithoutTheGamesSettingsItSaysSo)
{
    QFile::remove(Scope.UserFile(QStringLiteral("levelsetup.conf")));
    EXPECT_EQ(Manager.Open(), QStringLiteral("Couldn't find levelsetup.conf in 'Your Documents'"));
    QDir(Scope.Home.Path(QStringLiteral(".rocksndiamonds"))).removeRecursively();
    LevelManager other;
    EXPECT_TRUE(other.Open().startsWith(QLatin1String("Couldn't find the Rocks'n'Diamonds settings folder in 'Your "
                                                      "Documents'.")));
}

// Catches: a game that is missing, doubled or called otherwise; a circle of links that is walked for ever; a list that
// does not come back, or one that a stop has emptied; the player's own folder that is made while the window is open.
TEST_F(LevelManagerTest, TheScanFindsEveryGameOnce)
{
    QFile::link(Scope.Game.Path(QStringLiteral("levels")), Level("group/deep/circle"));
    QFile::link(Level("tutorial"), Level("linked"));
    Scope.Game.Write(QStringLiteral("levels/tutorial/sub/003.LEVEL"), "RND1");
    Scope.Game.Write(QStringLiteral("levels/tutorial/.gemforge-1-2/001.level"), "work in progress");
    OpenAndScan();
    const QStringList all{QStringLiteral("Boxed - box"),  QStringLiteral("deep - group"),
                          QStringLiteral("linked"),       QStringLiteral("mine"),
                          QStringLiteral("sub - linked"), QStringLiteral("sub - tutorial"),
                          QStringLiteral("tutorial")};
    EXPECT_EQ(Texts(), all);
    EXPECT_EQ(ImageOf(QStringLiteral("tutorial")), SetTree::CurrentSetGame);
    EXPECT_EQ(ImageOf(QStringLiteral("Boxed - box")), SetTree::ZippedGame);
    EXPECT_EQ(Manager.CurrentGame, QStringLiteral("tutorial"));
    EXPECT_EQ(Manager.SelectedNode()->Text, QStringLiteral("tutorial"));
    EXPECT_EQ(Manager.RootOf(*Manager.SelectedNode()), Scope.Game.Path(QStringLiteral("levels/")));
    Manager.Close();

    const QString own = Scope.UserFile(QStringLiteral("levels")), away = Scope.UserFile(QStringLiteral("away"));
    QFile::rename(own, away);
    LevelManager early;
    ASSERT_EQ(early.Open(), QString());
    early.Scan();
    EXPECT_EQ(early.Tree.rowCount(), all.size() - 1);
    QFile::rename(away, own);
    early.Scan();
    EXPECT_EQ(early.Tree.Nodes(), Manager.Tree.Nodes());

    LevelManager next;
    ASSERT_EQ(next.Open(), QString());
    EXPECT_TRUE(next.HasList());
    EXPECT_EQ(next.Tree.Nodes(), Manager.Tree.Nodes());
    QObject::connect(&next, &LevelManager::Progressed, &next, [] { StopRuns(StopReason::Break); });
    next.Scan();
    EXPECT_EQ(next.Tree.Nodes(), Manager.Tree.Nodes());
    EXPECT_TRUE(Window.Enabled);
}

// Catches: another byte of the game's settings that changes with the set game; a line taken from a comment, or from
// "last_level_series.000"; a line end that is lost.
TEST_F(LevelManagerTest, OnlyTheLineOfTheSetGameIsWritten)
{
    const QByteArray filler(22, ' ');
    struct
    {
        QByteArray File, Value, After; ///< an empty After: nothing is written
    } const cases[] = {
        {SetupWith("Old_One"), "Old_One", SetupHead + "last_level_series:" + filler + "new\n" + SetupTail},
        {"last_level_series: a", "a", "last_level_series:" + filler + "new\n"},
        {"x: y\r\nlast_level_series:   a  \r\nlast_level_series.000: b\r\n", "a",
         "x: y\r\nlast_level_series:" + filler + "new\r\nlast_level_series.000: b\r\n"},
        {"last_level_series: a\nlast_level_series: b\n", "b",
         "last_level_series: a\nlast_level_series:" + filler + "new\n"},
        {"# last_level_series: a\n\nmore: 1\n",
         {},
         "# last_level_series: a\nlast_level_series:" + filler + "new\n\nmore: 1\n"},
        {"more: 1\n", {}, {}},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(LastLevelSeries(one.File).value_or(QString()), QString::fromLatin1(one.Value))
            << one.File.toStdString();
        EXPECT_EQ(WithLastLevelSeries(one.File, QStringLiteral("new")).value_or(QByteArray()), one.After)
            << one.File.toStdString();
    }
}

// Catches: a set that the game would not find by what is written; a picture that stays with the game set before; a
// game that is started before its name is written.
TEST_F(LevelManagerTest, SetWritesWhatTheGameCallsIt)
{
    Scope.Home.Write(QStringLiteral(".rocksndiamonds/levels/mine/levelinfo.conf"), "identifier: Real_Name\n");
    OpenAndScan();
    Select(QStringLiteral("mine"));
    Manager.Set();
    EXPECT_EQ(LastLevelSeries(Setup()), QStringLiteral("Real_Name"));
    EXPECT_EQ(Manager.CurrentGame, QStringLiteral("real_name"));
    EXPECT_EQ(ImageOf(QStringLiteral("mine")), SetTree::CurrentSetGame);
    EXPECT_EQ(ImageOf(QStringLiteral("tutorial")), SetTree::NormalGame);
    Select(QStringLiteral("deep - group"));
    GameScope::Acts("setup last_level_series: tutorial");
    Scope.TakeStarts();
    Manager.SetAndPlay();
    EXPECT_EQ(Scope.TakeStarts().size(), 1);
    EXPECT_EQ(ImageOf(QStringLiteral("tutorial")), SetTree::CurrentSetGame); // the truth of the file
    Scope.Home.Write(QStringLiteral(".rocksndiamonds/levelsetup.conf"), "other: 1\n");
    Manager.Set();
    EXPECT_EQ(Setup(), "other: 1\n");
    EXPECT_TRUE(Told.last().startsWith(QLatin1String("levelsetup.conf has no line")));
    EXPECT_TRUE(Answers.AskedFor<MessageQuestion>().empty());
}

// Catches: a set that is zipped while a text of it is open, or over an archive without consent; a set game that stays
// set although the game cannot find it any more; an unzip that leaves the node where it was.
TEST_F(LevelManagerTest, ZipAndUnzipMoveTheNode)
{
    OpenAndScan();
    ASSERT_TRUE(OpenDocument(Level("tutorial/levelinfo.conf"), false));
    Manager.Zip();
    EXPECT_EQ(Last().MessageTitle, QStringLiteral("Open File Error"));
    CloseTab();
    Scope.Game.Write(QStringLiteral("levels/tutorial.levzip"), "of yesterday");
    Answers.Next = {QStringLiteral("Cancel"), QStringLiteral("Overwrite")};
    Manager.Zip();
    EXPECT_EQ(Scope.Game.Read(QStringLiteral("levels/tutorial.levzip")), "of yesterday");
    const int node = Manager.Selected();
    Manager.Zip();
    EXPECT_EQ(Manager.Selected(), node);
    EXPECT_EQ(Manager.SelectedNode()->Key, Level("tutorial.levzip"));
    EXPECT_EQ(ImageOf(QStringLiteral("tutorial")), SetTree::ZippedGame);
    EXPECT_FALSE(QFileInfo::exists(Level("tutorial")));
    EXPECT_EQ(Manager.CurrentGame, QStringLiteral("*NONE*"));
    EXPECT_EQ(LastLevelSeries(Setup()), QStringLiteral("*NONE*"));

    Scope.Game.Write(QStringLiteral("levels/tutorial/mine.txt"), "mine");
    Answers.Next = {QStringLiteral("Cancel"), QStringLiteral("Overwrite")};
    Manager.UnzipAndSet();
    EXPECT_EQ(Manager.SelectedNode()->Key, Level("tutorial.levzip"));
    EXPECT_EQ(Scope.Game.Read(QStringLiteral("levels/tutorial/mine.txt")), "mine");
    Manager.UnzipAndSet();
    EXPECT_EQ(Manager.SelectedNode()->Key, Level("tutorial"));
    EXPECT_EQ(LastLevelSeries(Setup()), QStringLiteral("tutorial"));
    EXPECT_EQ(ImageOf(QStringLiteral("tutorial")), SetTree::CurrentSetGame);
    Select(QStringLiteral("Boxed - box"));
    Scope.Game.Write(QStringLiteral("levels/box/Boxed.levzip"), "damaged");
    Manager.UnzipAndSet();
    EXPECT_EQ(Last().MessageText, QStringLiteral("Couldn't unzip this game!"));
    EXPECT_EQ(BusyWith, QString()) << "the strip stays";
    EXPECT_EQ(LastLevelSeries(Setup()), QStringLiteral("tutorial"));
    EXPECT_TRUE(Window.Enabled);
}

// Catches: an archive or a set game that is not as before; a folder that stays, or that goes although something in it
// was made while it was played.
TEST_F(LevelManagerTest, UnzipPlayDeleteLeavesNothingButWhatIsNew)
{
    QFile::rename(Level("box/Boxed.levzip"), Scope.UserFile(QStringLiteral("levels/Boxed.levzip")));
    OpenAndScan();
    Select(QStringLiteral("Boxed"));
    const auto bytes = [&](const char* name) {
        return Scope.Home.Read(QStringLiteral(".rocksndiamonds/levels/") + QLatin1String(name));
    };
    const QString folder = Scope.UserFile(QStringLiteral("levels/Boxed"));
    const QByteArray archive = bytes("Boxed.levzip");
    bool wasThere = false;
    QString wasSet;
    WhenSaid(QStringLiteral("ready"), [&] {
        wasThere = QFileInfo::exists(folder + QStringLiteral("/001.level"));
        wasSet = LastLevelSeries(Setup()).value_or(QString());
        StopRuns(StopReason::Break);
    });
    GameScope::Acts("say ready;hang");
    Manager.UnzipPlayAndDelete();
    EXPECT_TRUE(wasThere);
    EXPECT_EQ(wasSet, QStringLiteral("Boxed"));
    EXPECT_FALSE(QFileInfo::exists(folder));
    EXPECT_EQ(bytes("Boxed.levzip"), archive);
    EXPECT_EQ(LastLevelSeries(Setup()), QStringLiteral("tutorial"));
    EXPECT_EQ(ImageOf(QStringLiteral("Boxed")), SetTree::ZippedGame);

    GameScope::Acts("append 001.level");
    Manager.UnzipPlayAndDelete();
    EXPECT_EQ(bytes("Boxed/001.level"), "RND1 of the boxedited\n");
    ASSERT_FALSE(Told.isEmpty());
    EXPECT_TRUE(Told.last().contains(QStringLiteral("so it stays")));
    EXPECT_EQ(LastLevelSeries(Setup()), QStringLiteral("tutorial"));
}

// Catches: a tape of the player's own that is lost; tapes of a folder too many, in a folder of another name.
TEST_F(LevelManagerTest, TapesAreInstalledAndOwnOnesKept)
{
    OpenAndScan();
    Manager.InstallTapes();
    EXPECT_EQ(Last().MessageTitle, QStringLiteral("No Tapes folder")); // its way out is Cancel
    Answers.Next = {QStringLiteral("Make A Tape Folder"), Pressed{}, QStringLiteral("Install"),
                    QStringLiteral("Cancel")};
    Manager.InstallTapes();
    EXPECT_EQ(Last().MessageTitle, QStringLiteral("No tapes"));
    Scope.Game.Write(QStringLiteral("levels/tutorial/tapes/001.tape"), "solved");
    Scope.Game.Write(QStringLiteral("levels/tutorial/tapes/002.Tape"), "solved too");
    Scope.Game.Write(QStringLiteral("levels/tutorial/tapes_more/003.tape"), "of another folder");
    Scope.Home.Write(QStringLiteral(".rocksndiamonds/tapes/tutorial/001.tape"), "my own");
    Manager.InstallTapes();
    const auto tape = [&](const char* name) {
        return Scope.Home.Read(QStringLiteral(".rocksndiamonds/tapes/tutorial/") + QLatin1String(name));
    };
    EXPECT_EQ(tape("001.tape"), "solved");
    EXPECT_EQ(tape("002.Tape"), "solved too");
    EXPECT_EQ(tape("001.tape_000.GemforgeBackup"), "my own");
    EXPECT_FALSE(QFileInfo::exists(Scope.UserFile(QStringLiteral("tapes/tutorial/003.tape"))));
    QFile::remove(Level("tutorial/tapes/002.Tape"));
    Scope.Game.Write(QStringLiteral("levels/tutorial/tapes/001.tape"), "newer");
    Manager.InstallTapes();
    EXPECT_EQ(tape("001.tape"), "solved");
}

// Catches: an archive of something else that is taken in, or one that takes another set's place.
TEST_F(LevelManagerTest, ADroppedArchiveIsTakenIn)
{
    OpenAndScan();
    const TestFolder downloads;
    const QString zip = downloads.Path(QStringLiteral("set_v2.zip"));
    MakeArchive(zip, {{"fresh/levelinfo.conf", "name: fresh\n"}, {"fresh/001.level", "RND1"}});
    Manager.TakeArchive(zip);
    EXPECT_EQ(Manager.SelectedNode()->Key, Scope.UserFile(QStringLiteral("levels/fresh.levzip")));
    EXPECT_EQ(ImageOf(QStringLiteral("fresh")), SetTree::ZippedGame);
    const int rows = Manager.Tree.rowCount();
    Manager.TakeArchive(zip);
    EXPECT_EQ(Last().MessageTitle, QStringLiteral("Path Error"));
    for (const std::vector<MadeEntry>& entries : {std::vector<MadeEntry>{{"mine/levelinfo.conf", "x"}},
                                                  {{"a/levelinfo.conf", "x"}, {"b", "y"}},
                                                  {{"a/b", "x"}}}) {
        MakeArchive(zip, entries);
        Manager.TakeArchive(zip);
    }
    EXPECT_EQ(Manager.Tree.rowCount(), rows);
    Manager.TakeArchive(Level("box/Boxed.levzip"));
    EXPECT_EQ(Manager.SelectedNode()->Text, QStringLiteral("Boxed - box"));
    EXPECT_EQ(Manager.Tree.rowCount(), rows);
}

// Catches: an archive that cannot be read and is said to be gone, as if nothing stood there.
TEST_F(LevelManagerTest, WhatCannotBeReadIsToldApartFromWhatIsGone)
{
    const TestFolder sets;
    const QString archive = sets.Write(QStringLiteral("dig.levzip"), "of a torn download");
    EXPECT_EQ(FactsOf({archive, {}}).Trouble, QStringLiteral("Not a zip archive"));
    for (const char* name : {"gone.levzip", "gone"})
        EXPECT_EQ(FactsOf({sets.Path(QString::fromLatin1(name)), {}}).Trouble, QStringLiteral("not there any more"));
    EXPECT_EQ(FactsOf({sets.Path(), {}}).Trouble, QString());
}

// Catches: names of old sets, which are not in UTF-8, that show as holes.
TEST_F(LevelManagerTest, OldNamesAreReadAsTheyWereWritten)
{
    const TestFolder set;
    for (const char* author : {"B\xf6hm", "B\xc3\xb6hm"}) {
        set.Write(QStringLiteral("levelinfo.conf"), QByteArray("author: ") + author + "\n");
        EXPECT_EQ(FactsOf({set.Path(), {}}).Author, QStringLiteral("B\u00f6hm"));
    }
}
