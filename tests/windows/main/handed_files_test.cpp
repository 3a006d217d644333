#include "windows/main/handed_files.h"

#include "frame/documents/documents.h"
#include "windows/main/main_window_test.h"
#include "windows/parts/dialog_help.h"

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
}
