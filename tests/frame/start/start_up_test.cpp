#include "frame/program_scope.h"

#include <QDir>
#include <QFile>
#include <unistd.h>

using StartUp = FrameTest;

// Catches: a start that stops at the first missing table, goes on without one, or counts a folder as the file.
TEST_F(StartUp, TheLastMissingTableIsNamed)
{
    QFile::remove(Run.Program.Path(QStringLiteral("data/user.ini")));
    QFile::remove(Run.Program.Path(QStringLiteral("data/mapele.ini")));
    EXPECT_FALSE(Run.Prepare());
    EXPECT_EQ(Run.TakeMessages(), QStringList{QStringLiteral("Missing an important file:-^^") +
                                              Run.Program.Path(QStringLiteral("data/mapele.ini"))});
}

// Catches: a start without help, and a macros folder that is asked for or missing afterwards.
TEST_F(StartUp, HelpMustBeThereAndMacrosIsMade)
{
    QFile::remove(Run.Program.Path(QStringLiteral("Help.zip")));
    EXPECT_FALSE(Run.Prepare());
    EXPECT_EQ(Run.TakeMessages(), QStringList{QStringLiteral("The Help files are missing.")});
    EXPECT_TRUE(QDir(Run.Program.Path(QStringLiteral("Macros"))).exists());
}

// Catches: the graphics template missing, a current folder or caption of another text, a clean start that is unsaved.
TEST_F(StartUp, WithoutAPathTheGraphicsTemplateIsOpen)
{
    Run.Start();
    EXPECT_EQ(Frame.CurrentMode, ModeGfx);
    EXPECT_EQ(Window.Faces[0].Caption, EmptyCaption);
    EXPECT_TRUE(Window.Faces[0].Visible);
    EXPECT_FALSE(Window.Faces[1].Visible);
    EXPECT_EQ(CurrentPane().GetLine(1), QStringLiteral("#      GraphicsInfo.conf       #"));
    EXPECT_EQ(Window.Path, Run.Program.Path());
    EXPECT_FALSE(CurrentPane().Modified());
    EXPECT_FALSE(Frame.StartingUp);
    EXPECT_EQ(QDir::currentPath() + u'/', Run.Program.Path());
}

// Catches: a relative path that is read from the program's folder, quotes that are kept or cost a letter, a path with
// blanks that the shell has cut.
TEST_F(StartUp, APathOnTheCommandLineOpens)
{
    const QString path = Run.Work.Write(QStringLiteral("my set/SoundsInfo.conf"), "name: x\n");
    const QStringList forms[] = {{path},
                                 {u'"' + path + u'"'},
                                 {QStringLiteral("my set/SoundsInfo.conf")},
                                 {QStringLiteral("my"), QStringLiteral("set/SoundsInfo.conf")}};
    for (const QStringList& arguments : forms) {
        SCOPED_TRACE(arguments.join(u'|').toStdString());
        QDir::setCurrent(Run.Work.Path());
        Run.Start(arguments);
        EXPECT_EQ(Frame.Documents[0].Path, path);
        EXPECT_EQ(Frame.CurrentMode, ModeSfx);
        EXPECT_EQ(Frame.Recent.size(), 1U);
    }
}

// Catches: a path that does not exist and leaves a window without a text.
TEST_F(StartUp, APathThatCannotBeOpenedIsToldAndTheTemplateOpens)
{
    Run.Start({Run.Work.Path(QStringLiteral("gone.conf"))});
    EXPECT_EQ(Run.TakeMessages().size(), 1);
    EXPECT_EQ(Frame.CurrentFolder, Run.Program.Path());
    EXPECT_EQ(CurrentPane().LineCount(), 8);
}

// Catches: a welcome at every focus, one that another button than its last ends for good.
TEST_F(StartUp, OnlyTheLastButtonEndsTheWelcome)
{
    Run.Start();
    EXPECT_EQ(Frame.ShowWelcome, 1);
    EXPECT_EQ(ShowWelcomeMessage(), message::WelcomeOk);
    EXPECT_EQ(Frame.ShowWelcome, 0);
    EXPECT_TRUE(Run.UserIni().contains("1stTime=1"));
    Answers.Next = {QStringLiteral("Don't Show This Again")};
    ShowWelcomeMessage();
    EXPECT_TRUE(Run.UserIni().contains("1stTime=0"));
}

/// XDG folders of a test's own.
class XdgScope
{
public:
    explicit XdgScope(const TestFolder& home)
    {
        for (const char* name : {"XDG_DATA_HOME", "XDG_STATE_HOME"}) {
            before.push_back(qgetenv(name));
            qputenv(name, (home.Path() + QString::fromLatin1(name)).toUtf8());
        }
    }
    ~XdgScope()
    {
        qputenv("XDG_DATA_HOME", before[0]);
        qputenv("XDG_STATE_HOME", before[1]);
    }
    XdgScope(const XdgScope&) = delete;
    XdgScope& operator=(const XdgScope&) = delete;

private:
    std::vector<QByteArray> before;
};

// Catches: settings of a build written to the user's folder, an update that overwrites settings or brings old tables,
// macros that come back after the user deleted them.
TEST_F(StartUp, AnInstalledProgramFillsTheUsersFolder)
{
    const TestFolder home, installed;
    const XdgScope xdg(home);
    EXPECT_EQ(OrdinaryFolders(Run.Program.Path()).ProgramFolder, Run.Program.Path());

    installed.Write(QStringLiteral("bin/gemforge"), "program");
    installed.Write(QStringLiteral("share/gemforge/data/user.ini"), "[Misc]\nSpacerWidth=43\n");
    installed.Write(QStringLiteral("share/gemforge/data/compat.ini"), "old");
    installed.Write(QStringLiteral("share/gemforge/Help.zip"), "pages");
    installed.Write(QStringLiteral("share/gemforge/Macros/frame.gfb"), "macro");
    installed.Write(QStringLiteral("share/gemforge/previews/gfx_classic.gif"), "old");
    const StartFolders first = OrdinaryFolders(installed.Path(QStringLiteral("bin/")));
    EXPECT_EQ(first.ProgramFolder, home.Path(QStringLiteral("XDG_DATA_HOME/gemforge/")));
    EXPECT_EQ(first.HelpProgram, installed.Path(QStringLiteral("bin/Help")));
    EXPECT_FALSE(first.SettingsReadOnly);

    home.Write(QStringLiteral("XDG_DATA_HOME/gemforge/data/user.ini"), "[Misc]\nSpacerWidth=60\n");
    QFile::remove(home.Path(QStringLiteral("XDG_DATA_HOME/gemforge/Macros/frame.gfb")));
    home.Write(QStringLiteral("XDG_DATA_HOME/gemforge/previews/mine.gif"), "mine");
    installed.Write(QStringLiteral("share/gemforge/previews/gfx_classic.gif"), "new");
    installed.Write(QStringLiteral("share/gemforge/data/compat.ini"), "new");
    EXPECT_EQ(OrdinaryFolders(installed.Path(QStringLiteral("bin"))).ProgramFolder, first.ProgramFolder);
    EXPECT_EQ(home.Read(QStringLiteral("XDG_DATA_HOME/gemforge/data/compat.ini")), "new");
    EXPECT_EQ(home.Read(QStringLiteral("XDG_DATA_HOME/gemforge/data/user.ini")), "[Misc]\nSpacerWidth=60\n");
    EXPECT_EQ(home.Read(QStringLiteral("XDG_DATA_HOME/gemforge/Macros/frame.gfb")), "<no such file>");
    EXPECT_EQ(home.Read(QStringLiteral("XDG_DATA_HOME/gemforge/previews/gfx_classic.gif")), "new");
    EXPECT_EQ(home.Read(QStringLiteral("XDG_DATA_HOME/gemforge/previews/mine.gif")), "mine");
}

// Catches: a home that cannot be written and a program that therefore does not start.
TEST_F(StartUp, AReadOnlyHomeStartsFromTheInstalledFiles)
{
    const TestFolder home, installed;
    home.Write(QStringLiteral("XDG_DATA_HOME"), "a file where the folder should be");
    const XdgScope xdg(home);
    installed.Write(QStringLiteral("share/gemforge/data/user.ini"), "[Misc]\n");
    installed.Write(QStringLiteral("bin/gemforge"), "program");
    const StartFolders folders = OrdinaryFolders(installed.Path(QStringLiteral("bin/")));
    EXPECT_EQ(folders.ProgramFolder, installed.Path(QStringLiteral("share/gemforge/")));
    EXPECT_EQ(folders.SettingsReadOnly,
              access(qPrintable(installed.Path(QStringLiteral("share/gemforge/data/user.ini"))), W_OK) != 0);
}
