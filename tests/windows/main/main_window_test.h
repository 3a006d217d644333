#pragma once

#include "frame/program_scope.h"
#include "windows/find/find_box.h"
#include "windows/lists/recent_popup.h"
#include "windows/main/frmmain.h"
#include "windows/main/status_panels.h"
#include "windows/main/tab_strip.h"
#include "windows/parts/help_subject.h"

#include <QTabBar>
#include <QTest>

/// The real main window on a program folder of its own; questions are answered from a list.
class MainWindowTest : public testing::Test
{
protected:
    MainWindowTest() { Run.Edit("1stTime=1", "1stTime=0"); }

    void SetUp() override { Open({}); }

    void TearDown() override
    {
        Window.reset();
        Frame.Host = &Run.Scope.Host;
    }

    void Open(const QStringList& arguments)
    {
        ASSERT_TRUE(Run.Prepare(arguments));
        Window = MakeWindow();
        InstallHost(*Window, Run.Scope.Answers);
        Window->RestorePosition();
        Window->show();
        FinishStart();
        Window->ShowStarted();
        ShowHeldMessages();
        Window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
        QCoreApplication::processEvents();
    }

    virtual std::unique_ptr<frmmain> MakeWindow() { return std::make_unique<frmmain>(); }

    QTabBar* Tabs() const { return Window->ssTxtWindows().Bar(); }

    void ClickTab(int tab, Qt::MouseButton button) const
    {
        QTest::mouseClick(Tabs(), button, {}, Tabs()->tabRect(tab).center());
        QCoreApplication::processEvents();
    }

    void Press(int key, Qt::KeyboardModifiers keys = {}) const
    {
        QWidget* focus = Window->focusWidget();
        QTest::keyClick(focus ? focus : Window.get(), Qt::Key(key), keys);
        QCoreApplication::processEvents();
    }

    void MouseOver(QWidget* part) const
    {
        QTest::mouseMove(part, part->rect().center());
        QTest::mouseMove(part, part->rect().center() + QPoint(1, 0));
        QCoreApplication::processEvents();
    }

    QAction* MenuOf(const char* control) const { return Window->Commands().Menu(QString::fromLatin1(control)); }
    QAction* ButtonOf(const char* control) const { return Window->Commands().Button(QString::fromLatin1(control)); }

    ProgramScope Run;
    std::unique_ptr<frmmain> Window;
};
