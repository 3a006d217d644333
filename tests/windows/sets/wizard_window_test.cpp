#include "frame/run_scope.h"
#include "game/stand_in_place.h"
#include "windows/main/main_window_test.h"
#include "windows/media/folder_tree.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

namespace {

/// The main window whose game is the stand-in, and what a person does in the wizard.
class WizardWindowTest : public MainWindowTest
{
protected:
    WizardWindowTest() { Run.Edit("RNDPath=\n", "RNDPath=" + QFile::encodeName(Place.Program()) + '\n'); }

    /// Opens the wizard, in which `work` is done. It is closed then, if it is still open.
    template <class Work>
    void InWizard(Work work)
    {
        QTimer::singleShot(0, [&] {
            Wizard = QApplication::activeModalWidget();
            ASSERT_TRUE(Wizard);
            work();
            if (QApplication::activeModalWidget() == Wizard)
                Click("cmdCancel");
        });
        MenuOf("mnuRndWizard")->trigger();
        Wizard = nullptr;
    }
    template <class Part>
    Part* Of(const char* name) const
    {
        return Wizard->findChild<Part*>(QString::fromLatin1(name));
    }
    void Click(const char* name) const { QTest::mouseClick(Of<QPushButton>(name), Qt::LeftButton); }
    bool IsOn(const char* name) const { return Of<QPushButton>(name)->isEnabled(); }
    void Next(int times = 1) const
    {
        for (int i = 0; i < times; ++i)
            Click("cmdNext");
    }
    void Type(const char* name, const QString& text) const
    {
        Of<QLineEdit>(name)->clear();
        QTest::keyClicks(Of<QLineEdit>(name), text);
    }
    void TypeNames(const QString& shortName) const
    {
        Type("txtGameName", QStringLiteral("Deep Down"));
        Type("txtGameShortName", shortName);
        Type("txtAuthor", QStringLiteral("Ann"));
    }
    QString Shown(const char* name) const { return Of<QPlainTextEdit>(name)->toPlainText(); }
    int PageNow() const { return Of<QStackedWidget>("page")->currentIndex(); }
    QString LastMessage() const
    {
        const auto shown = Run.Scope.Answers.AskedFor<MessageQuestion>();
        return shown.empty() ? QString() : shown.back().Record.MessageTitle;
    }

    StandInPlace Place;
    QWidget* Wizard = nullptr;
};

} // namespace

// Catches: a page that is skipped, a way that is open or barred where it should not be; hand edits that are lost by
// looking at another page, or that outlive a change of the names; a name that stands there taken all the same.
TEST_F(WizardWindowTest, ThePagesFollowEachOther)
{
    InWizard([&] {
        EXPECT_FALSE(IsOn("cmdBack"));
        TypeNames(QStringLiteral("Tutorial"));
        Next();
        EXPECT_EQ(LastMessage(), QStringLiteral("Game Already Exists"));
        EXPECT_FALSE(IsOn("cmdNext"));
        Click("cmdBack");
        EXPECT_TRUE(IsOn("cmdNext"));
        Type("txtGameShortName", QStringLiteral("My Dig!"));
        Next();
        EXPECT_EQ(Of<QLineEdit>("txtPath")->text(), Place.Game.Path(QStringLiteral("levels/my_dig_")));
        Next();
        EXPECT_TRUE(Shown("txtLevelinfoPrev").contains(QStringLiteral("my_dig__gfx")));
        Of<QPlainTextEdit>("txtLevelinfoPrev")->setPlainText(QStringLiteral("mine"));
        Next();
        Click("cmdBack");
        EXPECT_EQ(Shown("txtLevelinfoPrev"), QStringLiteral("mine"));
        Click("cmdBack");
        Next();
        EXPECT_NE(Shown("txtLevelinfoPrev"), QStringLiteral("mine"));
        Next();
        EXPECT_TRUE(Shown("txtExampleGFX").contains(QStringLiteral("[Default element data will be here]")));
        QTest::mouseClick(Of<QCheckBox>("chkGFXADDDUMP"), Qt::LeftButton, {},
                          QPoint(6, Of<QCheckBox>("chkGFXADDDUMP")->height() / 2));
        EXPECT_FALSE(Shown("txtExampleGFX").contains(u'['));
        EXPECT_FALSE(Of<QCheckBox>("chkSfXExample")->isChecked());
        Next(3);
        EXPECT_EQ(PageNow(), 6);
        EXPECT_FALSE(IsOn("cmdNext"));
        Click("cmdBack");
        EXPECT_TRUE(IsOn("cmdNext"));
    });
    EXPECT_FALSE(QFileInfo::exists(Place.Game.Path(QStringLiteral("levels/my_dig_"))));
}

// Catches: a game made of start values; hand edits, ticks or dumps that do not reach the files; a wizard that closes
// without having made anything; a name and place of the last time that are not kept.
TEST_F(WizardWindowTest, FinishedMakesTheGame)
{
    const auto file = [&](const char* name) {
        return Place.Game.Read(QStringLiteral("levels/deep/") + QLatin1String(name));
    };
    InWizard([&] {
        Next(6);
        Click("cmdDone");
        EXPECT_EQ(LastMessage(), QStringLiteral("Not Finished"));
        emit Of<FolderTree>("Dir1")->Picked(Place.Game.Path(QStringLiteral("elsewhere/")));
        EXPECT_TRUE(Of<QLineEdit>("txtPath")->text().contains(QLatin1String("elsewhere")));
    });
    InWizard([&] {
        TypeNames(QStringLiteral("deep"));
        Next(2);
        Of<QPlainTextEdit>("txtLevelinfoPrev")->insertPlainText(QStringLiteral("# by hand\n"));
        Next(4);
        Click("cmdDone");
        EXPECT_EQ(LastMessage(), QStringLiteral("Finished"));
    });
    EXPECT_TRUE(file("levelinfo.conf").startsWith("# by hand\r\nfile_identifier:"));
    EXPECT_TRUE(file("graphics/graphicsinfo.conf").contains("custom_1.frames:"));
    EXPECT_GT(file("graphics/graphicsinfo.conf").count('\n'), 10000);
    EXPECT_FALSE(file("graphics/graphicsinfo.conf").contains("will be here"));
    EXPECT_TRUE(QFileInfo::exists(Place.Game.Path(QStringLiteral("levels/deep/001.level"))));
    EXPECT_FALSE(QFileInfo::exists(Place.Game.Path(QStringLiteral("levels/deep/sounds/example.wav"))));
    InWizard([&] {
        Click("cmdLastTime");
        EXPECT_EQ(Of<QLineEdit>("txtAuthor")->text(), QStringLiteral("Ann"));
    });
}

// Catches: a wizard that goes while it still works, or cannot be stopped by its own button; half a game that is left
// behind.
TEST_F(WizardWindowTest, AStopWhileTheGamePrintsLeavesNothing)
{
    StandInPlace::ActsAtPrint("hang");
    InWizard([&] {
        TypeNames(QStringLiteral("deep"));
        Next(6);
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, Wizard, [&] {
            if (!RunInFront())
                return;
            EXPECT_FALSE(IsOn("cmdDone") || IsOn("cmdBack"));
            Click("cmdCancel");
        });
        look.start(20);
        Click("cmdDone");
        EXPECT_TRUE(Wizard->isVisible() && IsOn("cmdDone") && IsOn("cmdBack"));
    });
    EXPECT_EQ(LastMessage(), QString());
    const QDir levels(Place.Game.Path(QStringLiteral("levels")));
    EXPECT_EQ(levels.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList(QStringLiteral("tutorial")));
}

// Catches: a wizard that opens without a game.
TEST_F(WizardWindowTest, WithoutAGameOnlyAMessage)
{
    Frame.Settings.RNDPath.clear();
    for (const char* control : {"mnuRndWizard", "mnuRNDlevMan"}) {
        Run.Scope.Answers.Asked.clear();
        MenuOf(control)->trigger();
        EXPECT_EQ(LastMessage(), QStringLiteral("RND Not Located"));
    }
}
