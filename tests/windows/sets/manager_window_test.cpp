#include "game/stand_in_place.h"
#include "level/level_files.h"
#include "platform/files/paths.h"
#include "services/archive_tool.h"
#include "sets/set_tree.h"
#include "windows/main/main_window_test.h"

#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>
#include <QUrl>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The main window whose game is the stand-in, with a zipped set beside its own, and what a person does in the manager.
class ManagerWindowTest : public MainWindowTest
{
protected:
    ManagerWindowTest()
    {
        Run.Edit("RNDPath=\n", "RNDPath=" + QFile::encodeName(Place.Program()) + '\n');
        Place.MakeSet(QStringLiteral("mine"), "name: mine\n");
        Place.Home.Write(QStringLiteral(".rocksndiamonds/levelsetup.conf"), "last_level_series: tutorial\n");
        Place.Game.Write(QStringLiteral("levels/box/levelinfo.conf"), "name: The Box\nauthor: Ann\n");
        Place.Game.Write(QStringLiteral("levels/box/001.level"), LevelImage(QStringLiteral("LEVEL")));
        Place.Game.Write(QStringLiteral("levels/box/002.level"), "RND1");
        for (const char* tape : {"002", "001"})
            Place.Game.Write(QStringLiteral("levels/box/tapes/%1.tape").arg(QLatin1String(tape)), "TAPE");
        const QString box = Place.Game.Path(QStringLiteral("levels/box"));
        if (ZipFiles(box, box + QStringLiteral(".levzip")))
            QDir(box).removeRecursively();
    }

    template <class Work>
    void InManager(Work work)
    {
        QTimer::singleShot(50, [&] {
            Manager = QApplication::activeModalWidget();
            ASSERT_TRUE(Manager);
            work();
            if (QApplication::activeModalWidget() == Manager)
                Click("cmdClose");
        });
        MenuOf("mnuRNDlevMan")->trigger();
        Manager = nullptr;
    }
    template <class Part>
    Part* Of(const char* name) const
    {
        return Manager->findChild<Part*>(QString::fromLatin1(name));
    }
    void Click(const char* name) const { QTest::mouseClick(Of<QPushButton>(name), Qt::LeftButton); }
    QTreeView* Tree() const { return Of<QTreeView>("treeLVL"); }
    QString Text(int row) const { return Tree()->model()->index(row, 0).data().toString(); }
    void Select(const QString& text) const
    {
        for (int row = 0; row < Tree()->model()->rowCount(); ++row)
            if (Text(row) == text)
                Tree()->setCurrentIndex(Tree()->model()->index(row, 0));
        EXPECT_EQ(Tree()->currentIndex().data().toString(), text);
    }
    bool IsOn(const char* name) const { return Of<QPushButton>(name)->isEnabled(); }

    StandInPlace Place;
    QWidget* Manager = nullptr;
};

} // namespace

// Catches: parts that show before there is a list; a frame that is on for the other kind of game; a path that is cut
// wrongly; a filter that hides what is selected; a list that is not there the next time.
TEST_F(ManagerWindowTest, TheListAndWhatItShows)
{
    InManager([&] {
        EXPECT_EQ(Of<QPushButton>("cmdScan")->text(), QStringLiteral("Scan Levels Folder"));
        EXPECT_FALSE(Of<QWidget>("Frame2")->isVisible() || Of<QWidget>("Frame3")->isVisible());
        Click("cmdScan");
        EXPECT_TRUE(Of<QWidget>("Frame2")->isVisible() && Of<QWidget>("Frame3")->isVisible());
    });
    InManager([&] {
        EXPECT_EQ(Of<QPushButton>("cmdScan")->text(), QStringLiteral("Re-scan Levels Folder"));
        EXPECT_EQ(Of<QLineEdit>("txtCurSetGame")->text(), QStringLiteral("tutorial"));
        EXPECT_EQ(Tree()->currentIndex().data().toString(), QStringLiteral("tutorial"));
        EXPECT_TRUE(Of<QGroupBox>("frmDir")->isEnabled());
        EXPECT_FALSE(Of<QGroupBox>("frmZip")->isEnabled() || IsOn("cmdZip0"));
        Select(QStringLiteral("box"));
        EXPECT_TRUE(Of<QGroupBox>("frmZip")->isEnabled() && IsOn("cmdZip0"));
        EXPECT_FALSE(Of<QGroupBox>("frmDir")->isEnabled());
        EXPECT_EQ(Of<QLineEdit>("txtSelected")->text(), Place.Game.Path(QStringLiteral("levels/")));
        EXPECT_EQ(Of<QLineEdit>("txtSel2")->text(), QStringLiteral("box.levzip"));
        EXPECT_TRUE(WaitUntil([&] { return Of<QLabel>("lblFact0")->text() == QStringLiteral("The Box"); }));
        EXPECT_EQ(Of<QLabel>("lblFact2")->text(), QStringLiteral("2"));
        EXPECT_EQ(Of<QLabel>("lblFact4")->text(), QStringLiteral("2: 001, 002"));
        EXPECT_TRUE(
            WaitUntil([&] { return Of<QLabel>("lblMap0")->toolTip().startsWith(QStringLiteral("001.level")); }));
        EXPECT_FALSE(Of<QLabel>("lblMap0")->pixmap(Qt::ReturnByValue).isNull());
        EXPECT_TRUE(Of<QLabel>("lblMap1")->toolTip().isEmpty()); // of what is no level there is no map
        QTest::keyClicks(Of<QLineEdit>("txtFilter"), QStringLiteral("MIN"));
        EXPECT_EQ(Tree()->model()->rowCount(), 1);
        EXPECT_EQ(Of<QLineEdit>("txtSel2")->text(), QStringLiteral("mine"));
        QTest::keyClicks(Of<QLineEdit>("txtFilter"), QStringLiteral("x"));
        EXPECT_FALSE(IsOn("cmdFolder0") || IsOn("cmdZip0"));
    });
}

// Catches: a button that does something else than its caption says; an unzip that closes the wrong form; confs that do
// not open in tabs of their own.
TEST_F(ManagerWindowTest, TheButtonsWork)
{
    InManager([&] {
        Click("cmdScan");
        Select(QStringLiteral("box"));
        int moves = 0;
        QObject::connect(Manager->findChild<QProgressBar*>(), &QProgressBar::valueChanged, Manager, [&] { ++moves; });
        Click("cmdZip1");
        EXPECT_GT(moves, 0) << "nothing is seen of the work";
        EXPECT_TRUE(Of<QGroupBox>("frmDir")->isEnabled());
        EXPECT_EQ(Of<QLineEdit>("txtCurSetGame")->text(), QStringLiteral("box"));
        EXPECT_EQ(Tree()->currentIndex().data(SetTree::ImageRole).toInt(), SetTree::CurrentSetGame);
        Click("cmdFolder2");
        EXPECT_EQ(Of<QLineEdit>("txtCurSetGame")->text(), QStringLiteral("*NONE*"));
        EXPECT_FALSE(QFileInfo::exists(Place.Game.Path(QStringLiteral("levels/box"))));
        Select(QStringLiteral("mine"));
        QTest::keyClick(Tree(), Qt::Key_Return);
        EXPECT_FALSE(Manager->isVisible());
    });
    EXPECT_EQ(Frame.CurrentFile, QStringLiteral("graphicsinfo.conf"));
    EXPECT_EQ(paths::FileNameOfPath(Frame.Documents.at(0).Path), QStringLiteral("levelinfo.conf"));
}

// Catches: a button that is on where the folder cannot be written, or off without a word why.
TEST_F(ManagerWindowTest, InAClosedFolderNothingIsChanged)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root may write everywhere";
    const QByteArray levels = QFile::encodeName(Place.Game.Path(QStringLiteral("levels")));
    chmod(levels, 0555);
    InManager([&] {
        Click("cmdScan");
        EXPECT_TRUE(IsOn("cmdFolder0"));
        EXPECT_FALSE(IsOn("cmdFolder2"));
        EXPECT_FALSE(Of<QPushButton>("cmdFolder2")->toolTip().isEmpty());
        Select(QStringLiteral("mine"));
        EXPECT_TRUE(IsOn("cmdFolder2"));
    });
    chmod(levels, 0755);
}

// Catches: an archive that is dropped and not taken, or any other file that is.
TEST_F(ManagerWindowTest, ADroppedArchiveComesIntoTheList)
{
    const QString zip = Place.Game.Path(QStringLiteral("downloaded.zip"));
    QFile::copy(Place.Game.Path(QStringLiteral("levels/box.levzip")), zip);
    QFile::remove(Place.Game.Path(QStringLiteral("levels/box.levzip")));
    const auto drop = [&](const QString& file) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(file)});
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
        enter.ignore();
        QCoreApplication::sendEvent(Manager, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent dropped(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(Manager, &dropped);
        QCoreApplication::processEvents();
        return true;
    };
    InManager([&] {
        EXPECT_FALSE(drop(Place.Program()));
        EXPECT_TRUE(drop(zip));
        EXPECT_EQ(Of<QLineEdit>("txtSel2")->text(), QStringLiteral("box.levzip"));
        EXPECT_TRUE(Of<QWidget>("Frame3")->isVisible());
    });
    EXPECT_TRUE(QFileInfo::exists(Place.UserFile(QStringLiteral("levels/box.levzip"))));
}

// Catches: a zipped set that is opened as a text.
TEST_F(ManagerWindowTest, AZippedSetOpensInTheManager)
{
    const QString before = CurrentPane().Text();
    QString selected;
    QTimer::singleShot(200, [&] {
        Manager = QApplication::activeModalWidget();
        ASSERT_TRUE(Manager);
        selected = Of<QLineEdit>("txtSel2")->text();
        Click("cmdClose");
    });
    EXPECT_FALSE(OpenDocument(Place.Game.Path(QStringLiteral("levels/box.levzip")), false));
    EXPECT_TRUE(WaitUntil([&] { return !selected.isEmpty(); }));
    EXPECT_EQ(selected, QStringLiteral("box.levzip"));
    EXPECT_EQ(CurrentPane().Text(), before);
}
