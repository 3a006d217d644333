#include "editor/make_pane.h"
#include "frame/frame_events.h"
#include "frame/host_ports.h"
#include "windows/blocks/frm_comment.h"
#include "windows/blocks/frm_inject.h"
#include "windows/main/dialog_keys.h"
#include "windows/main/main_window_test.h"
#include "windows/messages/window_asker.h"
#include "windows/parts/dialog_support.h"

#include <QMenu>
#include <QToolBar>

class HelpSubjectTest : public MainWindowTest
{
protected:
    /// Puts a program in the place of Help that only notes its id.
    void WatchHelp()
    {
        const QString told = Run.Work.Path(QStringLiteral("told"));
        Frame.HelpExe =
            Run.Program.Write(QStringLiteral("Help"), "#!/bin/sh\nprintf '<%s>' \"$1\" >> '" + told.toUtf8() + "'\n");
        QFile::setPermissions(Frame.HelpExe, QFile::ReadOwner | QFile::ExeOwner);
    }
    /// In any order: an early start may write late.
    bool Told(const QByteArray& id) const
    {
        const QByteArray marked = '<' + id + '>';
        return Run.Work.Read(QStringLiteral("told")).contains(marked);
    }
};

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

// Catches: a window in which F1 does nothing, one whose page nobody has written, a menu whose entries F1 does not know,
// a window that closes at any key and never sees this one.
TEST_F(HelpSubjectTest, F1InAWindowAboveShowsItsPage)
{
    QStringList asked;
    QObject::connect(Window->findChild<DialogKeys*>(), &DialogKeys::HelpPressed,
                     [&](const QString& id) { asked << id; });
    WatchHelp();
    const auto press = [](QWidget* in) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
        QCoreApplication::sendEvent(in->focusWidget() ? in->focusWidget() : in, &key);
    };
    WindowAsker asker(Window.get());
    const std::function<void()> windows[] = {
        [&] { asker.Ask(MessageQuestion{}); },
        [&] { asker.Ask(InputQuestion{}); },
        [&] { asker.Ask(FileQuestion{}); },
        [&] {
            asker.Ask(FileQuestion{FileQuestion::Save, {}, {}, {}, {}});
        },
        [&] { asker.Ask(FolderQuestion{}); },
        [&] { Tools().OpenTool(ToolWindow::Project); },
        [&] { Tools().OpenTool(ToolWindow::About); },
        [&] { frmComment::Ask(Window.get()); },
        [&] { RunInjectWindow(CurrentPane(), {}, Window.get()); },
    };
    for (const auto& open : windows) {
        OnModal([&](QWidget& window) { press(&window); });
        open();
    }
    for (const auto& [kind, name] :
         {std::pair(FindKind::Find, "FindDialog"), std::pair(FindKind::GotoLine, "GotoDialog")}) {
        emit CurrentPane().FindWanted(kind);
        auto* dialog = Window->findChild<QDialog*>(QLatin1String(name));
        press(dialog);
        dialog->close();
    }
    QDialog silent(Window.get());
    SetHelpSubject(&silent, NoHelpSubject);
    QKeyEvent itsOwn(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    QCoreApplication::sendEvent(&silent, &itsOwn);
    EXPECT_FALSE(itsOwn.isAccepted());
    QMenu* menu = Window->Menus().Find(QStringLiteral("mnuEdit"));
    menu->popup(QPoint(0, 0));
    menu->setActiveAction(MenuOf("mnuTidyup"));
    press(menu);
    EXPECT_FALSE(menu->isVisible());
    EXPECT_EQ(asked.size(), 12);
    EXPECT_EQ(asked.constLast(), QStringLiteral("H_main_tidy_up"));
    for (const QString& id : std::as_const(asked))
        EXPECT_TRUE(QFile::exists(ProjectFile(QStringLiteral("help/")) + id.toLower() + QStringLiteral(".html"))) << id;
    EXPECT_TRUE(WaitUntil([&] { return Told("H_main_tidy_up"); }));
}

// Catches: F1 that starts nothing, hands over no id or the word of a part that the mouse has left.
TEST_F(HelpSubjectTest, F1StartsTheHelpProgramOnTheSubject)
{
    WatchHelp();
    CurrentPane().SetText(QStringLiteral("Custom_12: x"));
    MouseOver(WidgetOf(CurrentPane()));
    Press(Qt::Key_F1);
    EXPECT_TRUE(WaitUntil([&] { return Told("!graphics info\\custom"); }));
    MouseOver(Tabs());
    Press(Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_TRUE(WaitUntil([&] { return Told("H_main_tabs"); }));
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
