#include "frame/recovery/recovery.h"
#include "frame/run_scope.h"
#include "windows/main/main_window_test.h"

#include <QCloseEvent>
#include <QDialog>
#include <QTimer>

class CloseGuard : public MainWindowTest
{
protected:
    void SetUp() override
    {
        MainWindowTest::SetUp();
        Frame.Keeper = keeper.get();
        ProgramScope::Type(QStringLiteral("unsaved"));
        Frame.Globals.FindMRUList = QStringLiteral("needle");
    }

    void TearDown() override
    {
        Frame.Keeper = nullptr;
        MainWindowTest::TearDown();
    }

    /// What a next run is offered.
    QStringList Offered()
    {
        Frame.Keeper = nullptr;
        keeper.reset();
        QStringList texts;
        for (const RecoveredText& text : Recovery(state.Path()).FindRecovered())
            texts << QString::fromUtf8(text.Bytes);
        return texts;
    }

    TestFolder state;
    std::unique_ptr<Recovery> keeper = std::make_unique<Recovery>(state.Path());
};

// Catches: a close that asks, that waits for the pace of the copies, or that forgets the histories.
TEST_F(CloseGuard, CloseKeepsUnsavedTextAndHistoriesWithoutAsking)
{
    EXPECT_TRUE(Window->close());
    EXPECT_TRUE(Run.TakeMessages().isEmpty());
    EXPECT_TRUE(Run.UserIni().contains("1=needle"));
    const QStringList offered = Offered();
    ASSERT_EQ(offered.size(), 1);
    EXPECT_TRUE(offered[0].startsWith(QLatin1String("unsaved")));
}

// Catches: a window that closes under running work, a wait that nobody ends, and a close that the work swallows: the
// loops unwind from the inside, then the window closes.
TEST_F(CloseGuard, CloseDuringWorkEndsTheWaitFirst)
{
    QStringList order;
    QTimer::singleShot(0, Window.get(), [&] {
        const WorkScope work;
        QDialog question(Window.get());
        QTimer::singleShot(0, &question, [&] {
            QCloseEvent close;
            QCoreApplication::sendEvent(Window.get(), &close);
            order << (close.isAccepted() ? QStringLiteral("closed") : QStringLiteral("refused"));
        });
        question.exec();
        order << QStringLiteral("work returned");
    });
    QCoreApplication::exec();
    order << QStringLiteral("loop ended");
    EXPECT_EQ(order.join(u','), QStringLiteral("refused,work returned,loop ended"));
    EXPECT_FALSE(Window->isVisible());
    EXPECT_EQ(RunningWork(), 0);
}

// Catches: a close under a modal window or a run that takes a text along which could be kept nowhere, without the
// question; and one after which the window can not be closed again.
TEST_F(CloseGuard, CloseDuringWorkStillAsksForTextsThatAreKeptNowhere)
{
    Frame.Keeper = nullptr;
    keeper = std::make_unique<Recovery>(state.Write(QStringLiteral("a file"), "x") + QStringLiteral("/below"));
    Frame.Keeper = keeper.get();
    for (const char* button : {"Cancel", "Close Anyway"}) {
        Run.Scope.Answers.Next = {QString::fromLatin1(button)};
        QTimer::singleShot(0, Window.get(), [&] {
            RunScope run(RunKind::Macro, QStringLiteral("test"));
            QTimer::singleShot(0, Window.get(), [&] { Window->close(); });
            while (run.Turn())
                ;
            EXPECT_EQ(run.Why(), StopReason::Close);
            EXPECT_TRUE(Window->isVisible());
        });
        QTimer::singleShot(300, Window.get(), [] { QCoreApplication::exit(); });
        QCoreApplication::exec();
        EXPECT_EQ(Window->isVisible(), QLatin1StringView(button) == QLatin1StringView("Cancel"));
        ASSERT_EQ(Run.TakeMessages().size(), 1) << button;
    }
}

// Catches: an end by signal that loses what was typed since the last copy, or waits for an answer.
TEST_F(CloseGuard, EndBySignalKeepsUnsavedTextAndEndsTheLoop)
{
    QTimer::singleShot(0, Window.get(), &frmmain::EndProgram);
    QCoreApplication::exec();
    EXPECT_EQ(Offered().size(), 1);
    EXPECT_TRUE(Run.TakeMessages().isEmpty());
}
