#include "windows/main/handed_files.h"

#include "frame/documents/documents.h"
#include "macro/run_macro.h"
#include "services/archive_tool.h"
#include "windows/macro/frm_macro_edit.h"
#include "windows/main/dropped_files.h"
#include "windows/main/main_window_test.h"
#include "windows/parts/dialog_help.h"

#include <QLabel>

using HandedFilesTest = MainWindowTest;

// Catches: a file of a later start that is opened under a question or a pass at work, one that is forgotten then, a
// second tab for a file that a tab holds, a window that stays minimised.
TEST_F(HandedFilesTest, AreOpenedOnceNothingElseIsAtWork)
{
    const QString first = Run.Work.Write(QStringLiteral("graphicsinfo.conf"), "name: one\n");
    const QString second = Run.Work.Write(QStringLiteral("levelinfo.conf"), "name: two\n");
    HandedFiles handed(Run.Work.Path(QStringLiteral("meeting")), *Window);
    const auto fileOf = [](int tab) {
        const Document& document = Frame.Documents.at(tab);
        return HasFile(document) ? document.Path : QString();
    };
    const auto shown = [&] { return fileOf(Frame.CurrentTab); };
    {
        const ModalScope question;
        handed.Take(first);
        handed.Take(second);
        QCoreApplication::processEvents();
        EXPECT_EQ(shown(), QString());
    }
    EXPECT_EQ(shown(), QString()) << "the window of the question has not gone yet";
    QCoreApplication::processEvents();
    EXPECT_EQ(shown(), second);
    Window->showMinimized();
    handed.Take(first);
    EXPECT_EQ(shown(), first);
    EXPECT_FALSE(Window->isMinimized());
    EXPECT_EQ(fileOf(2), QString());
    QWidget inFront;
    inFront.show();
    inFront.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&inFront));
    handed.Take(second);
    EXPECT_TRUE(QTest::qWaitForWindowActive(Window.get()));
}

// Catches: a macro that shows its bytes in a tab or runs, two windows of it above each other, one that opens although
// no game is set or takes the tab of the conf beside it.
TEST_F(HandedFilesTest, MacrosOpenOnTheWorkbenchOneAfterTheOther)
{
    const QString macro = Run.Work.Path(QStringLiteral("a.gfb"));
    ASSERT_TRUE(AddBytesToResource(QStringLiteral("basic.txt"), "clear\r\n", macro));
    const QString plain = Run.Work.Write(QStringLiteral("b.GFBASIC"), "print b\r\n");
    const QString conf = Run.Work.Write(QStringLiteral("soundsinfo.conf"), "name: one\n");
    OpenDroppedFiles({macro});
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(Run.TakeMessages().size(), 1) << "the game is asked for first";
    Frame.Settings.RNDPath = Run.Work.Write(QStringLiteral("game"), "program");
    OpenDroppedFiles({macro, conf, plain});
    QStringList shown;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, Window.get(), [&shown] {
        auto* modal = dynamic_cast<frmMacroEdit*>(QApplication::activeModalWidget());
        if (!modal || !modal->isVisible())
            return;
        shown << modal->findChild<QLabel*>(QStringLiteral("lblFile"))->text() +
                     modal->txtEdit(frmMacroEdit::Code).GetLine(0);
        modal->close();
    });
    look.start(20);
    EXPECT_TRUE(WaitUntil([&] { return shown.size() == 2; }));
    EXPECT_EQ(shown, QStringList({QStringLiteral("a.gfbclear"), QStringLiteral("b.GFBASICprint b")}));
    EXPECT_EQ(CurrentPane().Text(), QStringLiteral("name: one\r\n"));
}
