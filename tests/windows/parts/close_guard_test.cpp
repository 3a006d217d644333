#include "frame/recovery/recovery.h"
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

// Catches: a window that closes under running work, or a wait that nobody ends: the loops unwind from the inside.
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
    EXPECT_TRUE(Frame.StopRequested && Window->Ending());
    EXPECT_EQ(Frame.RunningWork, 0);
}

// Catches: an end by signal that loses what was typed since the last copy, or waits for an answer.
TEST_F(CloseGuard, EndBySignalKeepsUnsavedTextAndEndsTheLoop)
{
    QTimer::singleShot(0, Window.get(), &frmmain::EndProgram);
    QCoreApplication::exec();
    EXPECT_EQ(Offered().size(), 1);
    EXPECT_TRUE(Run.TakeMessages().isEmpty());
}
