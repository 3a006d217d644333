#include "editor/make_pane.h"
#include "frame/host_ports.h"
#include "frame/run_scope.h"
#include "windows/main/main_window_test.h"
#include "windows/media/media_tabs.h"
#include "windows/media/media_view.h"

#include <QDialog>
#include <QLineEdit>
#include <QToolButton>
#include <memory>

using WindowKeysTest = MainWindowTest;

// Catches: keys that the pane or the find box keeps for itself: Ctrl+A in the box, Ctrl+L and Ctrl+T in the pane.
TEST_F(WindowKeysTest, CommandsComeBeforeThePart)
{
    Window->Bars().cmbFind()->setFocus();
    Window->Bars().cmbFind()->setEditText(QStringLiteral("box"));
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(CurrentPane().SelText(), CurrentPane().Text());
    EXPECT_TRUE(WidgetOf(CurrentPane())->hasFocus());
    CurrentPane().SetText(QStringLiteral("a: 1\r\nb: 2"));
    CurrentPane().SetSel({1, 1, 1, 1}, false);
    Press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(CurrentPane().SelText(), QStringLiteral("b: 2"));
    Press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_GT(CurrentPane().GetLineLength(1), 40);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(CurrentPane().GetLine(1), QStringLiteral("b: 2"));
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_GT(CurrentPane().GetLineLength(1), 40);
    EXPECT_TRUE(MenuOf("mnuRedo")->shortcut().isEmpty());
}

// Catches: Ctrl+C, V and X of the find box that work on the text instead.
TEST_F(WindowKeysTest, FindBoxKeepsItsClipboardKeys)
{
    const QString text = CurrentPane().Text();
    FindBox* box = Window->Bars().cmbFind();
    box->setFocus();
    box->setEditText(QStringLiteral("box"));
    box->lineEdit()->selectAll();
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(box->currentText(), QString());
    EXPECT_EQ(CurrentPane().Text(), text);
}

// Catches: F3 that searches in the tab of the find box only, and asks again in every other.
TEST_F(WindowKeysTest, FindBoxSetsTheSearchOfEveryTab)
{
    Run.OpenInNewTab(Run.Work.Write(QStringLiteral("a.txt"), "one\ntwo\n"));
    Run.OpenInNewTab(Run.Work.Write(QStringLiteral("b.txt"), "none\ntwo\n"));
    FindBox* box = Window->Bars().cmbFind();
    box->setFocus();
    box->setEditText(QStringLiteral("two"));
    Press(Qt::Key_Return);
    EXPECT_EQ(CurrentPane().CaretLine(), 1);
    ClickTab(1, Qt::LeftButton);
    Press(Qt::Key_F3);
    EXPECT_EQ(CurrentPane().SelText(), QStringLiteral("two"));
}

// Catches: an Esc that stops the work while a list floats, one that a disabled window never sees.
TEST_F(WindowKeysTest, EscapeClosesWhatFloatsBeforeItStops)
{
    ProgramScope::Type(QStringLiteral("yam"));
    CurrentPane().SetSel({0, 3, 0, 3}, false);
    Press(Qt::Key_Space, Qt::ControlModifier);
    ASSERT_TRUE(CurrentPane().CodeListOpen());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(CurrentPane().CodeListOpen());
    ShowRecentList();
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Window->RecentBack().isVisible());
    Window->Bars().cmbFind()->setFocus();
    Press(Qt::Key_Escape);
    EXPECT_TRUE(WidgetOf(CurrentPane())->hasFocus());
    RunScope run(RunKind::Macro, QStringLiteral("test"));
    EXPECT_FALSE(run.Stopped());
    Press(Qt::Key_Escape);
    EXPECT_EQ(run.Why(), StopReason::Esc);
    RunScope inner(RunKind::Child, QStringLiteral("child"));
    Busy().SetEnabled(false);
    QTest::keyClick(Window->windowHandle(), Qt::Key_Escape);
    EXPECT_EQ(inner.Why(), StopReason::Esc);
    Busy().SetEnabled(true);
}

// Catches: a panel that tells of work which is over while a window stands open, one that goes while the work asks.
TEST_F(WindowKeysTest, RunPanelStaysAsLongAsTheRun)
{
    const auto shown = [this] {
        const auto buttons = Window->findChildren<QToolButton*>();
        return std::ranges::any_of(buttons, [](const QToolButton* button) {
            return button->objectName() == QStringLiteral("cmdStopRuns") && button->isVisible();
        });
    };
    const WorkScope window;
    {
        const RunScope run(RunKind::Pass, QStringLiteral("test"));
        EXPECT_TRUE(QTest::qWaitFor(shown));
        const WorkScope question;
        EXPECT_TRUE(shown());
    }
    EXPECT_FALSE(shown());
}

// Catches: a window that keeps open at Esc because a game runs beside the work, or a game that ends with it; a panel
// that stays under a message when nothing runs any more.
TEST_F(WindowKeysTest, EscapeOfAWindowIsItsOwnBesideAGame)
{
    auto beside = std::make_unique<RunScope>(RunKind::Beside, QStringLiteral("game"));
    QDialog other(Window.get());
    other.show();
    QTest::keyClick(other.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(other.isVisible());
    EXPECT_FALSE(beside->Stopped());
    const auto* stop = Window->findChild<QToolButton*>(QStringLiteral("cmdStopRuns"));
    ASSERT_TRUE(stop);
    EXPECT_TRUE(WaitUntil([&] { return stop->isVisible(); }));
    const WorkScope message;
    EXPECT_TRUE(stop->isVisible());
    beside.reset();
    EXPECT_FALSE(stop->isVisible());
}

// Catches: overtype in one pane only, a panel that does not follow the key.
TEST_F(WindowKeysTest, InsertKeyHoldsForAllPanes)
{
    Press(Qt::Key_Insert);
    ClickTab(0, Qt::RightButton);
    CurrentPane().SetText(QStringLiteral("abc"));
    CurrentPane().SetSel({0, 0, 0, 0}, false);
    QTest::keyClicks(WidgetOf(CurrentPane()), QStringLiteral("x"));
    EXPECT_EQ(CurrentPane().Text(), QStringLiteral("xbc"));
    Press(Qt::Key_Insert);
    QTest::keyClicks(WidgetOf(CurrentPane()), QStringLiteral("y"));
    EXPECT_EQ(CurrentPane().Text(), QStringLiteral("xybc"));
}

// Catches: parts that only the mouse reaches.
TEST_F(WindowKeysTest, F6GoesRoundTheParts)
{
    Press(Qt::Key_F6);
    EXPECT_TRUE(Window->Bars().cmbFind()->hasFocus());
    Press(Qt::Key_F6);
    EXPECT_TRUE(Tabs()->hasFocus());
    Press(Qt::Key_F6);
    EXPECT_TRUE(Window->Media().View(MediaSource::PCXBrowser).hasFocus());
    Press(Qt::Key_F6);
    EXPECT_TRUE(WidgetOf(CurrentPane())->hasFocus());
}

// Catches: a search that runs twice, when the box is only left, or that leaves the focus in the box; a history that
// is not cut.
TEST_F(WindowKeysTest, FindBoxSearchesOnEnterOnly)
{
    Frame.Settings.FindHistoryLimit = 2;
    Frame.Globals.FindMRUList = QStringLiteral("b\nold\nolder");
    CurrentPane().SetText(QStringLiteral("a b b b"));
    CurrentPane().SetSel({0, 0, 0, 0}, false);
    FindBox* box = Window->Bars().cmbFind();
    box->setFocus();
    EXPECT_EQ(box->count(), 2);
    QTest::keyClicks(box, QStringLiteral("b"));
    Panes().FocusPane();
    EXPECT_EQ(CurrentPane().SelText(), QString());
    box->setFocus();
    EXPECT_EQ(box->currentText(), QStringLiteral("b"));
    Press(Qt::Key_Return);
    EXPECT_EQ(CurrentPane().GetSel(true).StartCol, 2);
    EXPECT_TRUE(WidgetOf(CurrentPane())->hasFocus());
    Press(Qt::Key_F3);
    EXPECT_EQ(CurrentPane().GetSel(true).StartCol, 4);
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(CurrentPane().GetSel(true).StartCol, 2);
    EXPECT_FALSE(Window->StatusBar().PanelText(3).startsWith(QLatin1String("Not found")));
    box->setFocus();
    box->setEditText(QStringLiteral("zzz"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Window->StatusBar().PanelText(3), QStringLiteral("Not found: zzz"));
}
