#include "frame/files/projects.h"
#include "frame/files/recent_list.h"
#include "frame/files/tab_commands.h"
#include "frame/program_scope.h"
#include "platform/files/paths.h"

#include <QFile>

class RecentAndProjects : public FrameTest
{
protected:
    void SetUp() override { Run.Start(); }

    QString Write(const char* name) { return Run.Work.Write(QString::fromLatin1(name), name); }

    QStringList Recent() const
    {
        QStringList all;
        for (const RecentEntry& entry : Frame.Recent)
            all << paths::FileNameOfPath(entry.Path);
        return all;
    }

    QStringList FirstLines() const
    {
        QStringList lines;
        for (int tab = 0; tab < 8; ++tab)
            if (Frame.Documents[std::size_t(tab)].Face.Visible)
                lines << Window.Pane(tab).GetLine(0);
        return lines;
    }

    /// A project of the files, none of which needs to exist.
    static void Store(const char* name, const QStringList& files)
    {
        for (int i = 0; i < files.size(); ++i)
            WriteIni(files[i], QStringLiteral("prj_") + QString::fromLatin1(name), QString::number(i + 1));
    }
};

struct DisplayCase
{
    const char *Path, *Long, *Short;
};

// Catches: a set's name taken from the wrong folder, and names for paths that fit no form.
TEST_F(RecentAndProjects, DisplayNames)
{
    const DisplayCase cases[] = {
        {"/home/me/levels/Mine/graphics/graphicsinfo.conf", "[Mine] - graphicsinfo.conf", "[Mine]"},
        {"C:\\rnd\\levels\\Mine\\sounds\\soundsinfo.conf", "[Mine] - soundsinfo.conf", "[Mine]"},
        {"/rnd/graphics/MySet/graphicsinfo.CONF", "[MySet] - graphicsinfo.CONF", "[MySet]"},
        {"/rnd/levels/Mine/LevelInfo.conf", "[Mine] - LevelInfo.conf", "[Mine]"},
        {"/a/levelinfo.conf", nullptr, nullptr},
        {"/home/me/Music/notes/readme.txt", nullptr, nullptr},
        {"/home/me/other/place/graphicsinfo.conf", nullptr, nullptr},
    };
    for (const DisplayCase& row : cases) {
        const QString path = QString::fromLatin1(row.Path);
        EXPECT_EQ(RecentDisplayName(path, false), row.Long ? QString::fromLatin1(row.Long) : path);
        EXPECT_EQ(RecentDisplayName(path, true), row.Short ? QString::fromLatin1(row.Short) : path);
    }
}

// Catches: an entry twice, the wrong order, more entries than the limit, an icon by the path instead of the name.
TEST_F(RecentAndProjects, TheNewestStandsFirst)
{
    Frame.Settings.RecentLimit = 3;
    for (const char* name : {"a.conf", "graphicsinfo.conf", "c.conf", "a.conf", "d.conf"})
        ASSERT_TRUE(OpenDocument(Write(name), true));
    EXPECT_EQ(Recent(), (QStringList{QStringLiteral("d.conf"), QStringLiteral("a.conf"), QStringLiteral("c.conf")}));
    ASSERT_TRUE(OpenDocument(Write("graphicsinfo.conf"), true));
    EXPECT_EQ(Frame.Recent[0].Icon, 2);
    EXPECT_EQ(Frame.Recent[1].Icon, 1);
    RecentLoad();
    EXPECT_EQ(Recent().size(), 3) << "not in the file";
}

// Catches: an entry of a vanished file that stays, or takes its neighbours along, or is told before it is gone.
TEST_F(RecentAndProjects, AVanishedFileLeavesTheList)
{
    for (const char* name : {"a.conf", "b.conf", "c.conf"})
        ASSERT_TRUE(OpenDocument(Write(name), true));
    ASSERT_TRUE(QFile::remove(Run.Work.Path(QStringLiteral("b.conf"))));
    RecentOpenSelected(1);
    EXPECT_EQ(Recent(), (QStringList{QStringLiteral("c.conf"), QStringLiteral("a.conf")}));
    ASSERT_EQ(Run.TakeMessages().size(), 1);
    EXPECT_FALSE(Run.UserIni().contains("b.conf"));
    RecentOpenSelected(1);
    EXPECT_EQ(Frame.CurrentFile, QStringLiteral("a.conf"));
    RecentOpenSelected(7);
    EXPECT_EQ(Frame.CurrentFile, QStringLiteral("a.conf"));
}

// Catches: a project of one file or without a name, tabs without a file in it, a name that breaks the ini file.
TEST_F(RecentAndProjects, AProjectIsMadeOfTheOpenFiles)
{
    EXPECT_FALSE(CreateProject());
    EXPECT_EQ(Run.TakeMessages().size(), 1);
    ASSERT_TRUE(OpenDocument(Write("a.conf"), false));
    OpenNewTab();
    EXPECT_FALSE(CreateProject()) << "one file";
    Run.OpenInNewTab(Write("c.conf"));
    Answers.Next = {QStringLiteral("  "), QStringLiteral("x]\ny"), Pressed{}, QStringLiteral(" Mine "),
                    QStringLiteral("MINE")};
    EXPECT_FALSE(CreateProject());
    EXPECT_FALSE(CreateProject());
    EXPECT_TRUE(CreateProject());
    EXPECT_FALSE(CreateProject());
    ASSERT_EQ(LoadPrjList().size(), 1U);
    EXPECT_EQ(LoadPrjList()[0].Name, QStringLiteral("Mine"));

    CloseAllTabs();
    LoadProject(QStringLiteral("Mine"));
    EXPECT_EQ(FirstLines(), (QStringList{QStringLiteral("a.conf"), QStringLiteral("c.conf")}));
    EXPECT_EQ(Frame.CurrentTab, 0);
    EXPECT_EQ(Frame.CurrentFile, QStringLiteral("a.conf"));
    EXPECT_FALSE(Window.ProgressShown);

    WriteIni(QStringLiteral("Second"), QStringLiteral("Projects"), QStringLiteral("3"));
    DeleteProject(LoadPrjList()[0]);
    ASSERT_EQ(LoadPrjList().size(), 1U);
    EXPECT_EQ(LoadPrjList()[0].Key, 3);
    Run.TakeMessages();
    LoadProject(QStringLiteral("Mine"));
    EXPECT_EQ(Run.TakeMessages().size(), 1);
    EXPECT_EQ(FirstLines().size(), 2) << "tabs emptied for a project that is not there";
}

// Catches: a missing file that ends the load, leaves a hole among the tabs or a notice that counts as unsaved; a
// ninth file; a path that stands twice; a file that is there and cannot be read.
TEST_F(RecentAndProjects, AProjectLoadsWhatItCan)
{
    QStringList files = {Run.Work.Path(QStringLiteral("gone.conf")), Write("0.conf"), Write("0.conf"),
                         QStringLiteral("/dev/null")};
    for (const char* name : {"1.conf", "2.conf", "3.conf", "4.conf", "5.conf", "6.conf", "7.conf", "8.conf"})
        files << Write(name);
    Store("Big", files);
    Window.Pane(0).AddText(QStringLiteral("unsaved"));
    LoadProject(QStringLiteral("Big"));
    EXPECT_TRUE(Window.Pane(0).Modified()) << "the answer was no";
    Answers.Next = {QStringLiteral("Close All")};
    LoadProject(QStringLiteral("Big"));
    EXPECT_EQ(FirstLines().join(u' '), QStringLiteral("0.conf 1.conf 2.conf 3.conf 4.conf 5.conf 6.conf 7.conf"));
    EXPECT_EQ(ModifiedTabs(), 0);

    Store("Last", {Write("1.conf"), Run.Work.Path(QStringLiteral("gone.conf"))});
    LoadProject(QStringLiteral("Last"));
    EXPECT_EQ(FirstLines(),
              (QStringList{QStringLiteral("1.conf"), QStringLiteral("You deleted or renamed this file.")}));
    EXPECT_EQ(ModifiedTabs(), 0);
    EXPECT_EQ(Frame.Documents[1].Mode, ModeTxt);
    EXPECT_GT(Window.ProgressMaximum, 0);
}
