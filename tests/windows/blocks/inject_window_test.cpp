#include "windows/blocks/frm_inject.h"

#include "editor/make_pane.h"
#include "windows/main/main_window_test.h"
#include "windows/parts/dialog_support.h"
#include "windows/parts/place_at_mouse.h"
#include "windows/parts/word_list.h"

#include <QCheckBox>
#include <QCursor>
#include <QLineEdit>
#include <QListView>

namespace {

class InjectWindow : public MainWindowTest
{
protected:
    /// Opens the window by its menu entry on a text and runs `act` in it.
    void Edit(const QByteArray& text, const std::function<void(frmInject&)>& act)
    {
        CurrentPane().LoadBytes(text);
        CurrentPane().SetSel({}, false);
        bool ran = false;
        OnModal([&](QWidget& window) {
            auto* inject = qobject_cast<frmInject*>(&window);
            ASSERT_NE(inject, nullptr);
            ran = true;
            act(*inject);
        });
        MenuOf("mnuEditEdCom")->trigger();
        EXPECT_TRUE(ran);
        EXPECT_FALSE(CurrentPane().UndoGroupOpen());
        EXPECT_TRUE(CurrentPane().SelText().isEmpty());
    }

    static QByteArray Bytes() { return CurrentPane().Bytes().toByteArray(); }

    static void Pick(const WordList* list, const QString& word)
    {
        QTest::keyClick(list->Line(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(list->Line(), word);
        QTest::keyClick(list->Line(), Qt::Key_Return);
    }
};

const QByteArray Block = "yamyam.left:  x.png\nyamyam.left.foo: 1\nyamyam.left.xpos:\t3 # note\n\nother: y.png\n";

} // namespace

// Catches: parts in the wrong list, boxes that do not tell the block, a rebuild that waits for a click, typing that
// rebuilds, a visit of more than one step, the lines of a command lost when its box is ticked again.
TEST_F(InjectWindow, EveryPickRebuildsAndOneUndoTakesTheVisitBack)
{
    Edit(Block, [&](frmInject& window) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Edit Element"));
        EXPECT_EQ(window.lstElement()->Word(), QStringLiteral("yamyam"));
        EXPECT_EQ(window.lstAction()->Word(), QStringLiteral("<None>"));
        EXPECT_EQ(window.lstDirection()->Word(), QStringLiteral("left"));
        EXPECT_TRUE(window.chkOption(0)->isChecked() && window.chkOption(0)->font().bold());
        EXPECT_EQ(window.chkOption(0)->palette().color(QPalette::WindowText), QColor(0, 0x70, 0));
        EXPECT_FALSE(window.chkOption(1)->isChecked() || window.chkOption(1)->font().bold());
        EXPECT_FALSE(window.chkOption(18)->isEnabled());
        EXPECT_EQ(Bytes(), "yamyam.left:  x.png\nyamyam.left.xpos:\t3 # note\n\nother: y.png\n");
        QTest::keyClicks(window.lstAction()->Line(), QStringLiteral("mov"));
        EXPECT_TRUE(Bytes().startsWith("yamyam.left:")) << "typing alone";
        window.chkOption(2)->click();
        window.chkOption(2)->click();
        EXPECT_TRUE(Bytes().startsWith("yamyam.left:")) << "half a word is no part of a key";
        Pick(window.lstAction(), QStringLiteral("moving"));
        EXPECT_TRUE(Bytes().startsWith("yamyam.moving.left:  x.png\nyamyam.moving.left.xpos:\t3 # note\n\n"));
        window.chkOption(0)->click();
        window.chkOption(15)->click();
        EXPECT_TRUE(Bytes().startsWith("yamyam.moving.left:  x.png\nyamyam.moving.left.EDITOR:"));
        EXPECT_TRUE(Bytes().contains("x.png\nyamyam.moving.left.EDITOR.xpos:"));
        window.chkOption(15)->click();
        window.chkOption(0)->click();
        QTest::keyClick(window.lstDirection()->Line(), Qt::Key_Down);
        EXPECT_EQ(Bytes(), "yamyam.moving.right:  x.png\nyamyam.moving.right.xpos:\t3 # note\n\nother: y.png\n");
    });
    EXPECT_EQ(Window->focusWidget(), WidgetOf(CurrentPane()));
    CurrentPane().ExecuteCmd(CmdUndo);
    EXPECT_EQ(Bytes(), Block);
}

// Catches: a visit without a change that marks the text as changed or leaves a step, Enter that closes the window.
TEST_F(InjectWindow, AVisitWithoutAChangeLeavesNothing)
{
    Edit("yamyam: x.png\nyamyam.xpos: 3\n\n", [](frmInject& window) {
        QTest::keyClick(&window, Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_FALSE(CurrentPane().Modified());
    EXPECT_FALSE(CurrentPane().CanUndo());
}

// Catches: the boxes of a crumbled block as those of another, its word shown as a part or lost.
TEST_F(InjectWindow, CrumbledBlocksHaveTheirOwnBoxes)
{
    Edit("sand.CRUMBLED: x.png\nsand.CRUMBLED.frames: 3\n\n", [](frmInject& window) {
        for (int box = 0; box < int(KnownCommands); ++box)
            EXPECT_EQ(window.chkOption(box)->isEnabled(), box < 8 || box == 18) << box;
        EXPECT_EQ(window.lstAction()->Word(), NoPart);
        Pick(window.lstElement(), QStringLiteral("wall"));
        window.chkOption(18)->click();
        EXPECT_TRUE(Bytes().startsWith("wall.CRUMBLED: x.png\nwall.CRUMBLED.frames: 3\nwall.CRUMBLED.border_size:"));
    });
}

// Catches: a window that stays when the mouse has left it, or goes without the setting or before the mouse was there.
TEST_F(InjectWindow, ClosesWhenTheMouseLeavesIfWanted)
{
    for (const int quick : {0, 1}) {
        Frame.Settings.QuickClose = quick;
        QCursor::setPos(700, 400);
        Edit(Block, [quick](frmInject& window) {
            EXPECT_TRUE(window.geometry().contains(QCursor::pos()));
            QTest::qWait(60);
            EXPECT_TRUE(window.isVisible());
            QCursor::setPos(window.frameGeometry().bottomRight() + QPoint(5, 5));
            QTest::qWait(100);
            EXPECT_EQ(window.isVisible(), quick == 0);
        });
    }
}

// Catches: a window across the edge of a screen, or on the first screen when the mouse is on another.
TEST(PlaceAtMouse, StaysOnTheScreenOfTheMouse)
{
    const QRect first(0, 0, 1000, 800), second(1000, -200, 640, 480);
    const QSize window(400, 300);
    EXPECT_EQ(PlaceAtMouse({500, 400}, window, {140, -30}, first), QPoint(440, 220));
    EXPECT_EQ(PlaceAtMouse({10, 5}, window, {140, -30}, first), QPoint(0, 0));
    EXPECT_EQ(PlaceAtMouse({990, 790}, window, {140, -30}, first), QPoint(600, 500));
    EXPECT_EQ(PlaceAtMouse({1010, -190}, window, {140, -30}, second), QPoint(1000, -200));
    EXPECT_EQ(PlaceAtMouse({1600, 200}, window, {140, -30}, second), QPoint(1240, -20));
    EXPECT_EQ(PlaceAtMouse({1600, 200}, {900, 900}, {0, 0}, second), QPoint(1000, -200)) << "larger than the screen";
}
