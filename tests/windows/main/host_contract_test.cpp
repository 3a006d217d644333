#include "frame/files/tab_commands.h"
#include "frame/host_ports.h"
#include "main_window_test.h"

namespace {

/// What the rooms below rely on, whatever the host: eight panes and a buffer of their own, and a tab selected is the
/// tab that commands work on.
void KeepsWhatRoomsRelyOn(ProgramScope& run)
{
    run.OpenInNewTab(run.Work.Write(QStringLiteral("soundsinfo.conf"), "one\n"));
    run.OpenInNewTab(run.Work.Write(QStringLiteral("musicinfo.conf"), "two\n"));
    const int second = Frame.CurrentTab;
    EXPECT_EQ(Panes().SelectedTab(), second);
    for (int tab = 0; tab < 8; ++tab) {
        EXPECT_NE(&Panes().Pane(tab), &Panes().txtBuffer());
        for (int other = 0; other < tab; ++other)
            EXPECT_NE(&Panes().Pane(tab), &Panes().Pane(other));
    }
    Panes().txtBuffer().SetText(QStringLiteral("aside"));
    Panes().SelectTab(second - 1);
    ActivateTab();
    EXPECT_EQ(Panes().SelectedTab(), second - 1);
    EXPECT_EQ(Frame.CurrentTab, second - 1);
    EXPECT_EQ(Frame.CurrentMode, ModeSfx);
    EXPECT_EQ(CurrentPane().GetLine(0), QStringLiteral("one"));

    Busy().SetEnabled(false);
    Busy().ShowProgress(10, 5);
    CurrentPane().InsertText(QStringLiteral("pass "), {});
    Busy().HideProgress();
    Busy().SetEnabled(true);
    EXPECT_EQ(CurrentPane().GetLine(0), QStringLiteral("pass one")) << "a pass works on a disabled host";
    CurrentPane().SetModified(false);
    CloseTab();
    EXPECT_EQ(Panes().SelectedTab(), Frame.CurrentTab);
    EXPECT_EQ(Panes().txtBuffer().GetLine(0), QStringLiteral("aside"));
}

} // namespace

// Catches: a routine that works in batch and not in the window, or the other way round, since the hosts differ.
TEST_F(MainWindowTest, TheMainWindowKeepsWhatRoomsRelyOn)
{
    KeepsWhatRoomsRelyOn(Run);
}

TEST(BatchHost, KeepsWhatRoomsRelyOn)
{
    ProgramScope run;
    run.Start();
    KeepsWhatRoomsRelyOn(run);
}
