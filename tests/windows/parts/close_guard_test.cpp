#include "frame/recovery/recovery.h"
#include "frame/run_scope.h"
#include "graphics/picks.h"
#include "windows/main/main_window_test.h"
#include "windows/messages/window_asker.h"
#include "windows/sheet/frm_pcx.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <functional>

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

    /// From now on no text can be kept.
    void BlockKeeper()
    {
        Frame.Keeper = nullptr;
        keeper = std::make_unique<Recovery>(state.Write(QStringLiteral("a file"), "x") + QStringLiteral("/below"));
        Frame.Keeper = keeper.get();
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
    BlockKeeper();
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

namespace {

/// Does something with each modal window as it comes up, and notes its title.
class ModalWatch : public QObject
{
public:
    explicit ModalWatch(std::function<void(QWidget&, const QString&)> wanted) : act(std::move(wanted))
    {
        connect(&timer, &QTimer::timeout, this, &ModalWatch::Look);
        timer.start(10);
    }
    QStringList Titles;

private:
    void Look()
    {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || !modal->isVisible() || modal == last)
            return;
        last = modal;
        Titles << modal->windowTitle();
        act(*modal, modal->windowTitle());
    }

    QTimer timer;
    QPointer<QWidget> last;
    std::function<void(QWidget&, const QString&)> act;
};

void Click(QWidget& window, const QString& caption)
{
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
        if (QString(button->text()).remove(u'&') == caption)
            return button->click();
    FAIL() << caption << " in " << window.windowTitle();
}

} // namespace

// Catches: a user's close while a modal window is up that ends the program although a text could be kept nowhere,
// without the question; one that answers the window with more than its way out.
TEST_F(CloseGuard, CloseUnderAModalWindowAsksForTextsThatAreKeptNowhere)
{
    BlockKeeper();
    const QString conf = Run.Work.Write(QStringLiteral("a.conf"), "one\n");
    QImage sheet(64, 32, QImage::Format_RGB32);
    sheet.fill(Qt::red);
    const QString picture = Run.Work.Path(QStringLiteral("a.png"));
    ASSERT_TRUE(sheet.save(picture));
    CurrentPane().SetModified(false);
    ASSERT_TRUE(OpenDocument(conf, false));
    ProgramScope::Type(QStringLiteral("mine "));
    Run.Work.Write(QStringLiteral("a.conf"), "another program's\n");

    const std::pair<QString, std::function<void()>> windows[] = {
        {QStringLiteral("Unsaved Changes"), [] { NewDocument(ModeGfx); }},
        {QStringLiteral("File Was Changed"), [] { SaveCommand(); }},
        {QStringLiteral("Pick"), [&] { frmPCX::Run(Window.get(), MacroSheet(picture, QStringLiteral("Pick"))); }},
    };
    WindowAsker asker(Window.get());
    Frame.Ask = &asker;
    for (const auto& [title, open] : windows) {
        SCOPED_TRACE(title.toStdString());
        ModalWatch watch([&](QWidget& modal, const QString& shown) {
            if (shown == QLatin1String("Unsaved Text"))
                Click(modal, QStringLiteral("Cancel"));
            else
                QTimer::singleShot(0, Window.get(), &frmmain::CloseAfterWork);
        });
        open();
        QTest::qWait(100);
        EXPECT_EQ(watch.Titles.size(), 2) << watch.Titles.join(u'|');
        EXPECT_EQ(watch.Titles.value(1), QLatin1String("Unsaved Text"));
        EXPECT_TRUE(Window->isVisible());
        EXPECT_EQ(CurrentPane().GetLine(0), QLatin1String("mine one"));
        EXPECT_TRUE(CurrentPane().Modified());
        EXPECT_EQ(Run.Work.Read(QStringLiteral("a.conf")), "another program's\n");
        EXPECT_EQ(RunningWork(), 0);
    }
    ModalWatch watch([&](QWidget& modal, const QString& shown) {
        if (shown == QLatin1String("Unsaved Text"))
            Click(modal, QStringLiteral("Close Anyway"));
        else
            QTimer::singleShot(0, Window.get(), &frmmain::CloseAfterWork);
    });
    NewDocument(ModeGfx);
    QTest::qWait(100);
    EXPECT_FALSE(Window->isVisible());
    Frame.Ask = &Run.Scope.Answers;
}

// Catches: an end by signal that loses what was typed since the last copy, or waits for an answer.
TEST_F(CloseGuard, EndBySignalKeepsUnsavedTextAndEndsTheLoop)
{
    QTimer::singleShot(0, Window.get(), &frmmain::EndProgram);
    QCoreApplication::exec();
    EXPECT_EQ(Offered().size(), 1);
    EXPECT_TRUE(Run.TakeMessages().isEmpty());
}
