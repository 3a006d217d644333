#include "frame/run_scope.h"
#include "game/game_state.h"
#include "game/game_words.h"
#include "game/stand_in_place.h"
#include "windows/game/words_panel.h"
#include "windows/main/main_window_test.h"

#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <QTreeWidget>

namespace {

/// The main window with a level set open whose game is the stand-in.
class GameWindowTest : public MainWindowTest
{
protected:
    GameWindowTest()
    {
        Run.Edit("RNDPath=\n", "RNDPath=" + QFile::encodeName(Place.Program()) + '\n');
        Conf = Place.MakeSet(QStringLiteral("mine"), "name: mine\nnosuch.png: 1\nsand: gone.png\n") +
               QStringLiteral("graphics/graphicsinfo.conf");
    }
    void SetUp() override { Open({Conf}); }
    void TearDown() override
    {
        MainWindowTest::TearDown();
        ResetGame();
    }

    void TriggerAndWait(const char* control)
    {
        MenuOf(control)->trigger();
        EXPECT_TRUE(WaitUntil([] { return RunningWork() == 0; }));
        QCoreApplication::processEvents();
    }
    WordsPanel& Panel() const { return Window->WordsOfGame(); }

    StandInPlace Place;
    QString Conf;
};

// Catches: a bar that steals the keyboard or shows without news, a list that leads to another line, a panel that stays
// when there is nothing left, keys that cannot leave it.
TEST_F(GameWindowTest, TheGamesWordsLeadToTheirLines)
{
    EXPECT_FALSE(Panel().isVisible());
    MenuOf("mnuRndWords")->trigger();
    EXPECT_FALSE(Panel().isVisible());
    TriggerAndWait("mnuRndGameCheck");
    ASSERT_TRUE(Panel().isVisible());
    EXPECT_FALSE(Panel().ListShows());
    EXPECT_EQ(Panel().BarText(), QStringLiteral("The game complains about 2 things."));
    EXPECT_FALSE(Panel().HasKeyboard());

    MenuOf("mnuRndWords")->trigger();
    EXPECT_TRUE(Panel().ListShows() && Panel().HasKeyboard());
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(CurrentPane().CaretLine(), 2);
    EXPECT_FALSE(Panel().HasKeyboard());
    for (int key = 0; key < 4; ++key) // find box, tabs, media list, words
        Press(Qt::Key_F6);
    EXPECT_TRUE(Panel().HasKeyboard());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Panel().HasKeyboard());
    EXPECT_TRUE(Panel().isVisible());

    const QString other = Run.Work.Write(QStringLiteral("other.conf"), "name: other\n");
    ASSERT_TRUE(OpenDocument(other, false));
    MenuOf("mnuRndWords")->trigger();
    Press(Qt::Key_Return);
    EXPECT_EQ(Frame.CurrentTab, 1) << "in place of the text that stood there";
    EXPECT_EQ(Frame.Documents.at(0).Path, other);

    Panel().CloseButton()->click();
    TriggerAndWait("mnuRndGameCheck");
    EXPECT_FALSE(Panel().isVisible()); // nothing new
    CurrentPane().InsertText(QStringLiteral("bug.frames:\n"), {});
    TriggerAndWait("mnuRndGameCheck");
    EXPECT_TRUE(Panel().isVisible());
    EXPECT_EQ(Panel().BarText(), QStringLiteral("The game complains about 3 things, 1 of them new."));
    CurrentPane().SetText(QStringLiteral("name: mine\r\n"));
    TriggerAndWait("mnuRndGameCheck");
    EXPECT_FALSE(Panel().isVisible());
}

// Catches: a window that takes input while the game plays, or none to stop it; a command without its action.
TEST_F(GameWindowTest, TheWindowWaitsForTheGameAndStopsIt)
{
    StandInPlace::Acts("say ready;hang");
    bool wasLocked = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (!RunInFront() || RunInFront()->Detail() != QStringLiteral("ready"))
            return;
        wasLocked = !MenuOf("mnuSave")->isEnabled();
        look.stop();
        StopRuns(StopReason::Break);
    });
    look.start(10);
    MenuOf("mnuRndLaunch")->trigger();
    EXPECT_TRUE(wasLocked);
    EXPECT_TRUE(MenuOf("mnuSave")->isEnabled());
    StandInPlace::Acts("");
    CurrentPane().SetText(QStringLiteral("name: a\r\nsort_priority: 1\r\nbug: b.png"));
    CurrentPane().SetSel({2, 0, 2, 3}, false);
    Place.TakeStarts();
    MenuOf("mnuRndFastLoad")->trigger();
    EXPECT_EQ(Place.TakeStarts().size(), 1);
    CurrentPane().SetModified(false);
    MenuOf("mnuRndExtract3")->trigger();
    EXPECT_EQ(Frame.CurrentMode, ModeMus);
    EXPECT_FALSE(MenuOf("mnuRndFastLoad")->isEnabled());
    const auto* extract = qobject_cast<QToolButton*>(
        Window->Bars().Bar(ToolStrip::tbRnD)->widgetForAction(ButtonOf("mnuExtractFromRND")));
    EXPECT_EQ(extract->popupMode(), QToolButton::InstantPopup);
    EXPECT_EQ(extract->menu()->actions().size(), 7); // a title entry in front
}

// Catches: a polite close that does not reach the window, so that each game is killed. Needs a display.
TEST_F(GameWindowTest, AGameWithAWindowIsClosedPolitely)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        GTEST_SKIP();
    StandInPlace::Acts("say ready;play");
    MenuOf("mnuRndSafeTest")->trigger();
    ASSERT_TRUE(TheGame.Test);
    ASSERT_TRUE(WaitUntil([] { return RunInFront() && RunInFront()->Detail() == QStringLiteral("ready"); }));
    EXPECT_TRUE(MenuOf("mnuSave")->isEnabled());
    QElapsedTimer clock;
    clock.start();
    StopRuns(StopReason::Break);
    EXPECT_TRUE(WaitUntil([] { return !TheGame.Test; }));
    EXPECT_LT(clock.elapsed(), 2900); // else it was killed
}

// Catches: a game of the list that is not put in use, lost or doubled; a file that is no game taken in; a name or
// arguments that are not kept or not handed over.
TEST_F(GameWindowTest, GamesAreAddedUsedAndNamed)
{
    const QString other = Place.Game.Path(QStringLiteral("second"));
    QFile::copy(QFile::symLinkTarget(Place.Program()), other);
    Run.Scope.Answers.Next = {QStringLiteral("/bin/true"), Pressed{}, other, Place.Program(), other};
    QTimer::singleShot(0, [&] {
        auto* window = QApplication::activeModalWidget();
        ASSERT_TRUE(window);
        auto* list = window->findChild<QTreeWidget*>(QStringLiteral("treeGames"));
        const auto click = [&](const char* name) {
            window->findChild<QPushButton*>(QString::fromLatin1(name))->click();
        };
        EXPECT_EQ(list->topLevelItemCount(), 1);
        click("cmdAdd");
        EXPECT_EQ(Run.TakeMessages().size(), 1);
        for (int more = 0; more < 3; ++more)
            click("cmdAdd");
        ASSERT_EQ(list->topLevelItemCount(), 2);
        EXPECT_TRUE(Run.UserIni().contains(other.toUtf8()));
        EXPECT_EQ(list->topLevelItem(1)->text(1), QStringLiteral("4.4.2.1"));
        auto* arguments = window->findChild<QLineEdit*>(QStringLiteral("txtArguments"));
        arguments->setText(QStringLiteral("--verbose"));
        emit arguments->editingFinished();
        click("cmdUse");
        EXPECT_EQ(Frame.Settings.RNDPath, other);
        EXPECT_FALSE(window->findChild<QPushButton*>(QStringLiteral("cmdRemove"))->isEnabled());
        click("cmdClose");
    });
    MenuOf("mnuRndGames")->trigger();
    Place.TakeStarts();
    MenuOf("mnuRndLaunch")->trigger();
    EXPECT_TRUE(Place.TakeStarts().value(0).endsWith(QLatin1String("[--verbose]")));
    EXPECT_TRUE(Run.UserIni().contains("Arguments2=--verbose"));
}

// Catches: a first game that is listed but not used; a proof that goes on, or is answered, when its list is closed.
TEST_F(GameWindowTest, TheFirstGameIsUsedAndAClosedListAsksNoMore)
{
    const QString hanging = Place.Game.Path(QStringLiteral("hanging"));
    QFile::copy(QFile::symLinkTarget(Place.Program()), hanging);
    Frame.Settings.RNDPath.clear();
    Run.Scope.Answers.Next = {Place.Program(), hanging};
    QTimer::singleShot(0, [&] {
        auto* window = QApplication::activeModalWidget();
        ASSERT_TRUE(window);
        auto* add = window->findChild<QPushButton*>(QStringLiteral("cmdAdd"));
        add->click();
        EXPECT_EQ(Frame.Settings.RNDPath, Place.Program());
        StandInPlace::ActsAtProof("say asked;sleep 60000");
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&] {
            if (!RunInFront() || RunInFront()->Detail() != QStringLiteral("asked"))
                return;
            look.stop();
            window->findChild<QPushButton*>(QStringLiteral("cmdClose"))->click();
        });
        look.start(10);
        add->click();
    });
    MenuOf("mnuRndGames")->trigger();
    EXPECT_TRUE(Run.TakeMessages().isEmpty());
    EXPECT_EQ(RunningWork(), 0);
}

} // namespace
