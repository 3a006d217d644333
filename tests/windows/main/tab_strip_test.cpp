#include "editor/make_pane.h"
#include "frame/host_ports.h"
#include "windows/main/main_window_test.h"

#include <QStackedWidget>

using TabStripTest = MainWindowTest;

// Catches: a right click that opens two tabs or none, one that the documents do not know, a ninth.
TEST_F(TabStripTest, RightReleaseOpensATabUntilAllEightShow)
{
    for (int tab = 1; tab < 8; ++tab) {
        ClickTab(0, Qt::RightButton);
        EXPECT_EQ(Frame.CurrentTab, tab);
        EXPECT_TRUE(Tabs()->isTabVisible(tab));
        EXPECT_FALSE(tab < 7 && Tabs()->isTabVisible(tab + 1));
    }
    ClickTab(0, Qt::RightButton);
    EXPECT_EQ(Panes().SelectedTab(), 7);
}

// Catches: a tab whose pane comes in front while commands still work on another document, also when the button is
// let go beside the tab.
TEST_F(TabStripTest, LeftButtonActivatesTheDocument)
{
    Run.OpenInNewTab(Run.Work.Write(QStringLiteral("soundsinfo.conf"), "name: x\n"));
    ClickTab(0, Qt::LeftButton);
    EXPECT_EQ(Frame.CurrentTab, 0);
    EXPECT_EQ(Frame.CurrentMode, ModeGfx);
    EXPECT_TRUE(CurrentPane().Visible());
    QTest::mousePress(Tabs(), Qt::LeftButton, {}, Tabs()->tabRect(1).center());
    QTest::mouseRelease(Tabs(), Qt::LeftButton, {}, QPoint(-20, 200));
    EXPECT_EQ(Frame.CurrentTab, 1);
    EXPECT_EQ(Frame.CurrentMode, ModeSfx);
    EXPECT_TRUE(WidgetOf(CurrentPane())->hasFocus());
}

// Catches: a middle click or close button that closes the current document instead of the one under the mouse, loses
// unsaved text without the question, or hides tab 0.
TEST_F(TabStripTest, MiddleReleaseAndCloseButtonCloseTheirTab)
{
    ClickTab(0, Qt::RightButton);
    ProgramScope::Type(QStringLiteral("x"));
    ClickTab(0, Qt::LeftButton);
    Run.Scope.Answers.Next = {QStringLiteral("Cancel"), QStringLiteral("OK")};
    ClickTab(1, Qt::MiddleButton);
    EXPECT_EQ(Run.TakeMessages().size(), 1);
    EXPECT_TRUE(Tabs()->isTabVisible(1));
    ClickTab(0, Qt::LeftButton);
    emit Tabs()->tabCloseRequested(1);
    EXPECT_FALSE(Tabs()->isTabVisible(1));
    EXPECT_EQ(Frame.CurrentTab, 0);
    ClickTab(0, Qt::MiddleButton);
    EXPECT_TRUE(Tabs()->isTabVisible(0));
}

// Catches: a hidden tab that becomes the current one, so that commands work on a text that nobody sees.
TEST_F(TabStripTest, WheelAndKeysPassHiddenTabs)
{
    Window->show();
    Tabs()->setFocus();
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_End, Qt::Key_Left})
        QTest::keyClick(Tabs(), key);
    QWheelEvent turn(QPointF(5, 5), Tabs()->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {}, Qt::NoScrollPhase,
                     false);
    QCoreApplication::sendEvent(Tabs(), &turn);
    EXPECT_EQ(Panes().SelectedTab(), 0);
    EXPECT_EQ(Frame.CurrentTab, 0);
}

// Catches: tabs that the keyboard cannot reach, a step that lands on a hidden tab or stops at the end.
TEST_F(TabStripTest, KeysGoRoundTheVisibleTabs)
{
    ClickTab(0, Qt::RightButton);
    ClickTab(0, Qt::RightButton);
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Frame.CurrentTab, 0);
    Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Frame.CurrentTab, 2);
    Press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Frame.CurrentTab, 1);
    Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Frame.CurrentTab, 2);
    EXPECT_TRUE(WidgetOf(CurrentPane())->hasFocus());
}

// Catches: a flash that makes the component select a neighbour, or that leaves the tab dim.
TEST_F(TabStripTest, FlashDimsTheTabAndKeepsItSelected)
{
    Run.OpenInNewTab(Run.Work.Write(QStringLiteral("a.conf"), "name: x\n"));
    const QString path = Frame.Documents[1].Path;
    ClickTab(0, Qt::LeftButton);
    const QColor bright = Tabs()->tabTextColor(1);
    OpenDocument(path, false);
    EXPECT_TRUE(WaitUntil([&] { return Tabs()->tabTextColor(1) != bright; }));
    EXPECT_EQ(Panes().SelectedTab(), 1);
    EXPECT_TRUE(WaitUntil([&] { return !Frame.Flashing; }));
    EXPECT_EQ(Tabs()->tabTextColor(1), bright);
}

// Catches: captions eaten by the shortcut mark, pictures that do not follow the mode.
TEST_F(TabStripTest, FaceShowsCaptionAndPicture)
{
    Frame.Documents[3].Face = {true, QStringLiteral(" a&b"), ModeMus + 1, true};
    ShowTab(3);
    EXPECT_EQ(Tabs()->tabText(3), QStringLiteral(" a&&b"));
    const QImage before = Tabs()->tabIcon(3).pixmap(16).toImage();
    Frame.Documents[3].Face = {true, QStringLiteral(" a&b"), ModeLvl + 1, true};
    ShowTab(3);
    EXPECT_NE(Tabs()->tabIcon(3).pixmap(16).toImage(), before);
}

// Catches: texts of one folder that cannot be told apart, a caption that stays long when its twin has closed, one that
// the documents take for that of an unsaved text.
TEST_F(TabStripTest, TextsOfOneFolderTellTheirConf)
{
    Run.OpenInNewTab(Run.Work.Write(QStringLiteral("graphicsinfo.conf"), "name: x\n"));
    const QString alone = Tabs()->tabText(1);
    Run.OpenInNewTab(Run.Work.Write(QStringLiteral("soundsinfo.conf"), "name: x\n"));
    Run.OpenInNewTab(Run.Work.Write(QStringLiteral("editorsetup.conf"), "name: x\n"));
    EXPECT_EQ(Tabs()->tabText(1), alone + QStringLiteral(" graphics"));
    EXPECT_EQ(Tabs()->tabText(2), alone + QStringLiteral(" sounds"));
    EXPECT_EQ(Tabs()->tabText(3), alone + QStringLiteral(" editorsetu"));
    EXPECT_EQ(Frame.Documents.at(2).Face.Caption, alone);
    ClickTab(2, Qt::MiddleButton);
    ClickTab(3, Qt::MiddleButton);
    EXPECT_EQ(Tabs()->tabText(1), alone);
}

// Catches: tabs out of sight at the shipped width, tabs that stay cut when the window has grown.
TEST_F(TabStripTest, EightTabsAreInSight)
{
    Window->resize(1100, 700);
    for (const char* name :
         {"one.conf", "another.conf", "third.conf", "a.conf", "five.conf", "sixth.conf", "last.conf"})
        Run.OpenInNewTab(Run.Work.Write(QLatin1String(name), "name: x\n"));
    const auto end = [this] {
        QCoreApplication::processEvents();
        int last = 0;
        for (int tab = 0; tab < 8; ++tab)
            last = qMax(last, Tabs()->tabRect(tab).right());
        return last;
    };
    const int whole = end();
    EXPECT_LT(whole, Tabs()->width());
    EXPECT_LE(Tabs()->mapTo(Window.get(), QPoint(whole, 0)).x(), Window->width());
    Window->resize(1500, 700);
    EXPECT_GT(end(), whole);
}
