#include "frame/files/tab_commands.h"
#include "frame/media/inject_path.h"
#include "frame/program_scope.h"
#include "platform/files/file_steps.h"

#include "frame/media/media_lists.h"

#include <filesystem>

class FileCommands : public FrameTest
{
protected:
    void SetUp() override { Run.Start(); }

    QString Open(const QString& name, const QByteArray& bytes)
    {
        const QString path = Run.Work.Write(name, bytes);
        EXPECT_TRUE(OpenDocument(path, false));
        return path;
    }
};

// Catches: blanks that do not bring the values to one column, a negative count at a small width, a template that
// counts as an edit or can be undone.
TEST_F(FileCommands, NewTextsHaveTheirTemplate)
{
    NewDocument(ModeGfx);
    EditorPane& pane = CurrentPane();
    EXPECT_EQ(pane.LineCount(), 8);
    EXPECT_EQ(pane.GetLine(0), QString(32, u'#'));
    EXPECT_EQ(pane.GetLine(5), QStringLiteral("name:") + QString(37, u' ') + QStringLiteral("YourGraphicsSetName"));
    EXPECT_EQ(pane.GetLine(6).indexOf(u'1'), pane.GetLine(5).indexOf(u'Y'));
    EXPECT_EQ(pane.GetSel(true), (Range{7, 0, 7, 0}));
    EXPECT_FALSE(pane.Modified());
    EXPECT_FALSE(pane.CanUndo());
    EXPECT_EQ(pane.FileBytes().count("\r\n"), 7);

    Frame.Settings.SpacerWidth = 10;
    NewDocument(ModeLvl);
    EXPECT_EQ(pane.GetLine(6), QStringLiteral("sort_priority:") + QString(5, u' ') + QStringLiteral("100"));
    NewDocument(ModeEdi);
    EXPECT_EQ(pane.LineCount(), 6);
    EXPECT_EQ(pane.GetLine(1), QStringLiteral("#       editorsetup.conf       #"));
    EXPECT_EQ(pane.GetSel(true).StartLine, 5);
    EXPECT_EQ(Frame.Documents[0].Path, Frame.ProgramFolder);
}

// Catches: a file that was opened and saved without an edit and has other bytes.
TEST_F(FileCommands, OpenAndSaveKeepEveryByte)
{
    const QByteArray texts[] = {"a: 1\r\nb: 2\nc: 3", QByteArray("nul\0here\r\n", 10),
                                "\xEF\xBB\xBFmark\n", "latin \xE9\x81\n",
                                "utf \xC3\xA9\r\r\n", "\n\n"};
    for (const QByteArray& text : texts) {
        Open(QStringLiteral("levelinfo.conf"), text);
        SaveCommand();
        EXPECT_EQ(Run.Work.Read(QStringLiteral("levelinfo.conf")), text);
        CloseTab();
    }
}

// Catches: a second tab for a file that is open already, by a link, by other letters or by "..".
TEST_F(FileCommands, AFileThatIsOpenIsShownAndNotLoadedAgain)
{
    const QString path = Open(QStringLiteral("set/graphicsinfo.conf"), "name: x\n");
    Run.Type(QStringLiteral("edit "));
    std::filesystem::create_symlink(path.toStdString(), Run.Work.Path(QStringLiteral("link.conf")).toStdString());
    for (const QString& spelling : {path, Run.Work.Path(QStringLiteral("link.conf")),
                                    Run.Work.Path(QStringLiteral("set/../set/graphicsinfo.conf")),
                                    Run.Work.Path(QStringLiteral("SET\\GraphicsInfo.conf"))}) {
        OpenNewTab();
        ActivateTab();
        const int before = Frame.CurrentTab;
        ASSERT_NE(before, 0);
        EXPECT_TRUE(OpenDocument(spelling, false)) << spelling;
        EXPECT_EQ(Frame.CurrentTab, 0);
        EXPECT_EQ(Frame.FlashTab, 0);
        EXPECT_EQ(Frame.Documents[std::size_t(before)].Face.Caption, EmptyCaption);
        EXPECT_EQ(CurrentPane().GetLine(0), QStringLiteral("edit name: x"));
    }
}

// Catches: an open that empties the tab or moves its path before it knows that the file can be read.
TEST_F(FileCommands, AFileThatCannotBeReadLeavesTheTabAsItWas)
{
    const QString path = Open(QStringLiteral("graphicsinfo.conf"), "name: x\n");
    Run.Type(QStringLiteral("edit "));
    const std::size_t recent = Frame.Recent.size();
    for (const QString& told :
         {Run.Work.Path(QStringLiteral("gone.conf")), Run.Work.Path(), QStringLiteral("/dev/zero"), QString()}) {
        EXPECT_FALSE(OpenDocument(told, false)) << told;
        EXPECT_EQ(Run.TakeMessages().size(), 1);
        EXPECT_EQ(Frame.CurrentFolder + Frame.CurrentFile, path);
        EXPECT_EQ(Frame.Documents[0].Path, path);
        EXPECT_EQ(CurrentPane().GetLine(0), QStringLiteral("edit name: x"));
        EXPECT_TRUE(CurrentPane().Modified());
        EXPECT_EQ(Frame.Recent.size(), recent);
    }
}

// Catches: an empty file with no line to type in, or that counts as changed.
TEST_F(FileCommands, AnEmptyFileHasOneLine)
{
    Open(QStringLiteral("helptext.conf"), "");
    EXPECT_EQ(CurrentPane().LineCount(), 1);
    EXPECT_FALSE(CurrentPane().Modified());
}

// Catches: a backup of the new text instead of the old, an old backup written over, and no backup at the second save.
TEST_F(FileCommands, EachSaveBacksUpTheStateBeforeIt)
{
    Run.Work.Write(QStringLiteral("a.conf_000.GemforgeBackup"), "older");
    Open(QStringLiteral("a.conf"), "one\n");
    CurrentPane().SetText(QStringLiteral("two\r\n"));
    SaveCommand();
    CurrentPane().SetText(QStringLiteral("three\r\n"));
    SaveCommand();
    EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf_000.GemforgeBackup")), "older");
    EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf_001.GemforgeBackup")), "one\n");
    EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf_002.GemforgeBackup")), "two\n");
    EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf")), "three\n");
    EXPECT_FALSE(CurrentPane().Modified());
    Frame.Settings.BackupOnSave = 0;
    SaveCommand();
    EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf_003.GemforgeBackup")), "<no such file>");
    EXPECT_EQ(UniqueName(Run.Work.Path(QStringLiteral("a.conf")), false), Run.Work.Path(QStringLiteral("a.conf_000")));
}

// Catches: a full disk that costs the old file, clears Modified, or moves the tab to a path that was never written;
// another tab emptied for a file that it still holds; a numbered backup for each attempt of a save that fails.
TEST_F(FileCommands, AFailedSaveChangesNothing)
{
    const QString other = Open(QStringLiteral("other.conf"), "the other\n");
    Run.OpenInNewTab(Run.Work.Write(QStringLiteral("a.conf"), "old\n"));
    CurrentPane().SetText(QStringLiteral("a much longer text\r\n"));
    {
        const FileSizeLimit full(8);
        Answers.Next = {QStringLiteral("OK"), QStringLiteral("Overwrite"), QStringLiteral("OK")};
        SaveCommand();
        EXPECT_FALSE(SaveDocument(other));
        EXPECT_FALSE(SaveDocument(Run.Work.Path(QStringLiteral("no/such/folder.conf"))) && true);
    }
    {
        FileSteps steps = FileSteps::OfSystem();
        steps.Rename = [](const char*, const char*) {
            errno = EIO;
            return -1;
        };
        const FileStepsScope broken(steps);
        SaveCommand();
    }
    const QStringList told = Run.TakeMessages();
    EXPECT_TRUE(told[0].contains(QStringLiteral("a.conf"))) << told[0];
    EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf_000.GemforgeBackup")), "<no such file>");
    EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf")), "old\n");
    EXPECT_EQ(Run.Work.Read(QStringLiteral("other.conf")), "the other\n");
    EXPECT_TRUE(CurrentPane().Modified());
    EXPECT_EQ(Frame.CurrentFile, QStringLiteral("a.conf"));
    EXPECT_EQ(Frame.Documents[0].Path, other);
    EXPECT_EQ(Window.Pane(0).GetLine(0), QStringLiteral("the other"));
}

// Catches: a save that goes on although the state before it could not be kept.
TEST_F(FileCommands, WithoutABackupTheUserDecides)
{
    Open(QStringLiteral("a.conf"), QByteArray(5'000, 'x'));
    CurrentPane().SetText(QStringLiteral("short"));
    const FileSizeLimit full(2'000);
    SaveCommand();
    EXPECT_TRUE(CurrentPane().Modified());
    EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf")).size(), 5'000);
    Answers.Next = {QStringLiteral("Save Without Backup")};
    SaveCommand();
    EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf")), "short");
}

// Catches: a tab that keeps the path of a file another tab has written, so that its next save brings the old text
// back; and a caption, mode or command set that stays that of the old name.
TEST_F(FileCommands, TheTabOfAReplacedFileGivesWay)
{
    const QString path = Open(QStringLiteral("soundsinfo.conf"), "old\n");
    OpenNewTab();
    ActivateTab();
    CurrentPane().SetText(QStringLiteral("new"));
    Answers.Next = {QStringLiteral("Overwrite")};
    EXPECT_TRUE(SaveDocument(path));
    EXPECT_EQ(Run.Work.Read(QStringLiteral("soundsinfo.conf")), "new");
    EXPECT_EQ(Frame.Documents[0].Path, QString());
    EXPECT_EQ(Window.Faces[0].Caption, EmptyCaption);
    EXPECT_TRUE(Window.Faces[0].Visible);
    EXPECT_EQ(Window.Pane(0).Text(), QString());
    EXPECT_EQ(Frame.CurrentMode, ModeSfx);
    EXPECT_EQ(Frame.Documents[1].Path, path);
    EXPECT_EQ(Window.Faces[1].Caption, u' ' + path.left(10));
    EXPECT_TRUE(SaveDocument(Run.Work.Path(QStringLiteral("SoundsInfo.conf.txt"))));
    EXPECT_EQ(Frame.CurrentMode, ModeTxt);
}

// Catches: text of another file written over a conf without a question, characters that turn into "?".
TEST_F(FileCommands, QuestionsBeforeASave)
{
    const QString path = Open(QStringLiteral("a.conf"), "latin \xE9\n");
    Frame.Documents[0].ForeignText = true;
    EXPECT_FALSE(SaveDocument(path));
    Answers.Next = {QStringLiteral("Overwrite")};
    EXPECT_TRUE(SaveDocument(path));
    EXPECT_TRUE(SaveDocument(path)) << "asked again";
    EXPECT_FALSE(SaveDocument(Run.Work.Path(QStringLiteral("A.conf"))))
        << "the file that is there is not the one named";

    Run.Type(QString(QChar(0x4E2D)));
    EXPECT_FALSE(SaveDocument(path));
    EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf")), "latin \xE9\n");
    Answers.Next = {QStringLiteral("Save As UTF-8")};
    EXPECT_TRUE(SaveDocument(path));
    EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf")), "\xE4\xB8\xADlatin \xC3\xA9\n");
}

// Catches: dialogs that start in the wrong folder or with another filter, and a cancel that goes on.
TEST_F(FileCommands, FileDialogsAskAsTold)
{
    OpenCommand();
    SaveCommand(); // a text without a file
    InsertFileAtCaret();
    const auto asked = Answers.AskedFor<FileQuestion>();
    ASSERT_EQ(asked.size(), 3U);
    EXPECT_EQ(asked[0].Title, QStringLiteral("Open a file"));
    EXPECT_EQ(asked[1].Preset, QStringLiteral("graphicsinfo.conf"));
    EXPECT_TRUE(asked[0].For == FileQuestion::Open && asked[1].For == FileQuestion::Save);
    EXPECT_EQ(asked[2].Folder, Frame.ProgramFolder);
    EXPECT_EQ(asked[2].Filter, DocumentFilter());
    Frame.Settings.OpenSaveInLevelDir = 1;
    Frame.Settings.LevelsFolder = QStringLiteral("/levels/");
    const QString part = Run.Work.Write(QStringLiteral("part.conf"), "a\nb");
    Answers.Next = {part};
    CurrentPane().SetSel({1, 3, 1, 3}, false);
    InsertFileAtCaret();
    EXPECT_EQ(Answers.AskedFor<FileQuestion>().back().Folder, QStringLiteral("/levels/"));
    EXPECT_EQ(CurrentPane().GetLine(1), QStringLiteral("#  a"));
    EXPECT_TRUE(CurrentPane().Modified());
    EXPECT_EQ(Frame.CurrentFile, QString());
}

// Catches: a revert that loads nothing because the tab itself holds the path, and one that forgets to ask.
TEST_F(FileCommands, RevertLoadsTheFileAgain)
{
    Open(QStringLiteral("a.conf"), "one\n");
    Run.Type(QStringLiteral("edit "));
    RevertDocument();
    EXPECT_EQ(CurrentPane().GetLine(0), QStringLiteral("edit one"));
    Answers.Next = {QStringLiteral("OK")};
    RevertDocument();
    EXPECT_EQ(CurrentPane().GetLine(0), QStringLiteral("one"));
    EXPECT_FALSE(CurrentPane().Modified());
    EXPECT_EQ(Window.Faces[0].Caption.size(), 11);
}

// Catches: a stored folder that is read with the wrong separator, or that is taken although it does not exist.
TEST_F(FileCommands, StoredInjectPathsGoToTheExtraList)
{
    Run.Work.Write(QStringLiteral("art/one.pcx"), "");
    const QString folder = Run.Work.Path(QStringLiteral("art"));
    Open(QStringLiteral("graphicsinfo.conf"), "#!*" + QString(folder).replace(u'/', u'*').toUtf8() + "\nx\n");
    EXPECT_EQ(Frame.Media.ExtraFolder, folder + u'/');
    EXPECT_EQ(Lists().Extra.Name(0), QStringLiteral("one.pcx"));
    ApplyInjectPath(QStringLiteral("C:*Games*none"));
    ApplyInjectPath({});
    EXPECT_EQ(Frame.Media.ExtraFolder, folder + u'/');
    const QString line = CurrentPane().GetLine(0);
    CurrentPane().DeleteLine(0);
    InsertInjectPath();
    EXPECT_EQ(CurrentPane().GetLine(0), line);
}
