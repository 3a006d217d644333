#include "editor/make_pane.h"
#include "main_window_test.h"

#include <QMenu>
#include <QToolBar>

using HelpSubjectTest = MainWindowTest;

// Catches: parts that share the subject of another, a subject that stays behind when the mouse has moved on.
TEST_F(HelpSubjectTest, FollowsTheMouse)
{
    QToolBar* bar = Window->Bars().Bar(ToolStrip::tbEdit);
    MouseOver(bar->widgetForAction(ButtonOf("mnuUndo")));
    EXPECT_EQ(Window->HelpId(), QStringLiteral("H_main_undo"));
    QTest::mouseMove(bar, QPoint(1, 1));
    EXPECT_EQ(Window->HelpId(), QStringLiteral("H_main_"));
    MouseOver(Tabs());
    EXPECT_EQ(Window->HelpId(), QStringLiteral("H_main_tabs"));
    MouseOver(&Window->StatusBar());
    MouseOver(WidgetOf(CurrentPane()));
    EXPECT_EQ(Window->HelpId(), TextSubject);
    QTest::mouseMove(Window->centralWidget(), QPoint(1, Window->centralWidget()->height() / 2));
    EXPECT_EQ(Window->HelpId(), QString());
    for (const QWidget* part : Window->StatusBar().findChildren<QWidget*>())
        if (part->toolTip() == QStringLiteral("Displays the state of the Num Lock Key")) {
            EXPECT_EQ(HelpSubjectOf(part), QStringLiteral("H_main_st_num"));
        }
}

// Catches: F1 that starts nothing, hands over no id or the word of a part that the mouse has left.
TEST_F(HelpSubjectTest, F1StartsTheHelpProgramOnTheSubject)
{
    const QString told = Run.Work.Path(QStringLiteral("told"));
    Frame.HelpExe =
        Run.Program.Write(QStringLiteral("Help"), "#!/bin/sh\nprintf %s \"$1\" > '" + told.toUtf8() + "'\n");
    QFile::setPermissions(Frame.HelpExe, QFile::ReadOwner | QFile::ExeOwner);
    CurrentPane().SetText(QStringLiteral("Custom_12: x"));
    MouseOver(WidgetOf(CurrentPane()));
    Press(Qt::Key_F1);
    EXPECT_TRUE(WaitUntil([&] { return Run.Work.Read(QStringLiteral("told")) == "!graphics info\\custom"; }));
    MouseOver(Tabs());
    Press(Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_TRUE(WaitUntil([&] { return Run.Work.Read(QStringLiteral("told")) == "H_main_tabs"; }));
}

// Catches: a menu of the component's own, none at all, one that the menu key cannot open.
TEST_F(HelpSubjectTest, PaneHasTheEditMenu)
{
    const QMenu* menu = Window->Menus().Find(QStringLiteral("mnuEdit"));
    emit CurrentPane().MousePressed(Qt::RightButton, Qt::AltModifier);
    QCoreApplication::processEvents();
    EXPECT_FALSE(menu->isVisible());
    emit CurrentPane().MousePressed(Qt::RightButton, Qt::NoModifier);
    EXPECT_TRUE(WaitUntil([&] { return menu->isVisible(); }));
    Window->Menus().Find(QStringLiteral("mnuEdit"))->close();
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(WidgetOf(CurrentPane()), &key);
    EXPECT_TRUE(menu->isVisible());
}
