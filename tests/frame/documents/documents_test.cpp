#include "frame/documents/documents.h"
#include "frame/files/tab_commands.h"
#include "frame/program_scope.h"

class Documents : public FrameTest
{
protected:
    void SetUp() override { Run.Start(); }
};

// Catches: patterns or a language left from the mode before, listeners that hear of a mode too early or never.
TEST_F(Documents, EachModeHasItsPatternsAndLanguage)
{
    SetMode(ModeGfx);
    EXPECT_EQ(Frame.Media.BasePattern, QStringLiteral("*.pcx;*.png"));
    SetMode(ModeMus);
    EXPECT_EQ(Frame.Media.ListPattern, QStringLiteral("*.1xxx9"));
    SetMode(ModeEdi);
    EXPECT_EQ(CurrentPane().Language(), QStringLiteral("EDI"));
    EXPECT_EQ(Window.Modes.back(), ModeEdi);
    EXPECT_EQ(Window.Faces[0].Picture, 8);
}

// Catches: an upper-case name that opens as plain text, a look-up that takes the beginning of a name.
TEST_F(Documents, ModesComeFromTheExactName)
{
    EXPECT_EQ(ModeFromFileName(QStringLiteral("editorsetup.conf")), ModeEdi);
    EXPECT_EQ(ModeFromFileName(QStringLiteral("GraphicsInfo.conf")), ModeTxt);
    EXPECT_EQ(ModeFromFileName(QStringLiteral("graphicsinfo.conf.old")), ModeTxt);
    EXPECT_EQ(ModeFromFileName(QString()), ModeTxt);
    ASSERT_TRUE(OpenDocument(Run.Work.Write(QStringLiteral("GraphicsInfo.CONF"), "name: x\n"), false));
    EXPECT_EQ(Frame.CurrentMode, ModeGfx);
    EXPECT_EQ(Frame.CurrentFile, QStringLiteral("GraphicsInfo.CONF"));
}

// Catches: a status text that counts from 1, or is negative for a selection that ends left of its start.
TEST_F(Documents, TheCaretStatusCountsFromZero)
{
    EditorPane& pane = CurrentPane();
    pane.SetText(QStringLiteral("abcdef\r\nxy"));
    pane.SetSel({0, 4, 1, 1}, false);
    UpdateCaretStatus(pane);
    EXPECT_EQ(Window.CaretPlace, QStringLiteral("X:4    Y:0    Lines:1    Sel X:0    Sel Y:1    Sel:5     "));
    Answers.Next = {QStringLiteral("OK")};
    NewDocument(ModeTxt);
    EXPECT_EQ(Window.CaretPlace, QStringLiteral("X:0    Y:0    Lines:-1    Sel X:0    Sel Y:0    Sel:0     "));
}

// Catches: globals that stay those of the tab before, so that a save writes one tab's text over another's file.
TEST_F(Documents, GlobalsFollowTheTab)
{
    const QString conf = Run.Work.Write(QStringLiteral("soundsinfo.conf"), "name: x\n");
    Run.OpenInNewTab(conf);
    EXPECT_EQ(Frame.CurrentTab, 1);
    EXPECT_EQ(Frame.CurrentMode, ModeSfx);
    Window.SelectTab(0);
    ActivateTab();
    EXPECT_EQ(Frame.CurrentMode, ModeGfx);
    EXPECT_EQ(Frame.CurrentFolder, Frame.ProgramFolder);
    EXPECT_EQ(Frame.CurrentFile, QString());
    Window.SelectTab(1);
    ActivateTab();
    EXPECT_EQ(Frame.CurrentFolder + Frame.CurrentFile, conf);
    EXPECT_EQ(Window.Path, conf);
    EXPECT_EQ(Frame.Media.BaseFolder, Run.Work.Path());
}

// Catches: a ninth tab, a closed slot that keeps its path or mode, unsaved text that closes without a question and
// a Modified flag, undo step, encoding or line end that survives in an empty slot.
TEST_F(Documents, TabsOpenAndCloseOneByOne)
{
    for (int i = 0; i < 9; ++i)
        OpenNewTab();
    EXPECT_EQ(Window.SelectedTab(), 7);
    ActivateTab();
    ASSERT_TRUE(OpenDocument(Run.Work.Write(QStringLiteral("musicinfo.conf"), "\xE9\n"), false));
    Run.Type(QStringLiteral("edit"));
    CloseTab();
    EXPECT_TRUE(Frame.Documents[7].Face.Visible) << "closed against the answer";
    Answers.Next = {QStringLiteral("OK")};
    CloseTab();
    EXPECT_FALSE(Frame.Documents[7].Face.Visible);
    EXPECT_EQ(Frame.Documents[7].Path, QString());
    EXPECT_EQ(Frame.Documents[7].Mode, ModeGfx);
    EXPECT_FALSE(Window.Pane(7).Modified());
    EXPECT_FALSE(Window.Pane(7).CanUndo());
    EXPECT_EQ(Window.Pane(7).Encoding(), FileEncoding::Utf8);
    EXPECT_EQ(Window.Pane(7).LineEnd(), LineBreak::CrLf);
    EXPECT_EQ(Frame.CurrentTab, 0);
    OpenNewTab();
    ActivateTab();
    EXPECT_EQ(Frame.CurrentTab, 7);
    EXPECT_EQ(CurrentPane().Language(), QStringLiteral("GFX"));
}

// Catches: one question a tab, tab 0 hidden or asking again, and closing although the answer was no.
TEST_F(Documents, AllTabsCloseAfterOneQuestion)
{
    for (const char* name : {"levelinfo.conf", "helptext.conf"}) {
        Run.OpenInNewTab(Run.Work.Write(QString::fromLatin1(name), "x\n"));
        Run.Type(QStringLiteral("edit"));
    }
    Window.Pane(0).AddText(QStringLiteral("edit"));
    CloseAllTabs();
    EXPECT_EQ(ModifiedTabs(), 3);
    Answers.Next = {QStringLiteral("Close All")};
    CloseAllTabs();
    EXPECT_EQ(Run.TakeMessages().size(), 2);
    EXPECT_EQ(ModifiedTabs(), 0);
    EXPECT_TRUE(Frame.Documents[0].Face.Visible);
    EXPECT_FALSE(Frame.Documents[1].Face.Visible);
    EXPECT_EQ(Frame.Documents[0].Face.Caption, EmptyCaption);
    EXPECT_EQ(Frame.CurrentMode, ModeHlt) << "the new text is of the mode that was in front";
}

// Catches: a flash that leaves its tab disabled, or one more flash that leaves the first tab dark.
TEST_F(Documents, AFlashEndsWithTheTabEnabled)
{
    OpenNewTab();
    FlashTabCaption(1);
    int dark = 0, ticks = 1;
    for (; FlashTick(); ++ticks)
        dark += Window.Faces[1].Enabled ? 0 : 1;
    EXPECT_EQ(ticks, 9);
    EXPECT_EQ(dark, 4);
    EXPECT_TRUE(Window.Faces[1].Enabled);
    EXPECT_FALSE(FlashTick());
    FlashTabCaption(1);
    FlashTick();
    FlashTick();
    ASSERT_FALSE(Window.Faces[1].Enabled);
    FlashTabCaption(0);
    EXPECT_TRUE(Window.Faces[1].Enabled);
}
