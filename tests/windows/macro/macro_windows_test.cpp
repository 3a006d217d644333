#include "frame/run_scope.h"
#include "windows/macro/frm_macro_copy.h"
#include "windows/macro/frm_macro_multi.h"
#include "windows/macro/frm_macro_new.h"
#include "windows/macro/frm_macro_pause.h"
#include "windows/macro/side_by_side.h"
#include "windows/parts/dialog_support.h"
#include "windows/parts/frm_zip.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

ChoiceQuestion WordsQuestion()
{
    return {u"Pick"_s,
            {{u"Element"_s, {u"acid"_s, u"yamyam"_s}}, {u"Action"_s, {u"moving"_s}}, {u"Direction"_s, {u"left"_s}}},
            false};
}

void Select(QListView* list, int row)
{
    list->setCurrentIndex(list->model()->index(row, 0));
}

} // namespace

// Catches: the text in the place of the place, a cancel that chooses, a double click that does nothing.
TEST(MacroWindows, AListGivesThePlaceChosen)
{
    const ChoiceQuestion question{u"Fruit"_s, {{{}, {u"plum"_s, u"apple"_s, u"plum"_s}}}, false};
    OnModal([](QWidget& window) {
        auto& dialog = static_cast<frmMacroMulti&>(window);
        EXPECT_EQ(dialog.windowTitle(), u"Fruit"_s);
        EXPECT_EQ(dialog.SSMultiPage()->currentIndex(), 0);
        EXPECT_FALSE(dialog.txtPreview()->isVisible());
        Select(dialog.lstAsk(), 2);
        QTest::keyClick(dialog.lstAsk(), Qt::Key_Return);
    });
    EXPECT_EQ(frmMacroMulti::Ask(question, nullptr), Answer(3));
    OnModal([](QWidget& window) {
        QListView* list = static_cast<frmMacroMulti&>(window).lstAsk();
        const QPoint second = list->visualRect(list->model()->index(1, 0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, second);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, second);
    });
    EXPECT_EQ(frmMacroMulti::Ask(question, nullptr), Answer(2));
    OnModal([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    EXPECT_EQ(frmMacroMulti::Ask(question, nullptr), Answer(Cancelled{}));
}

// Catches: parts in another order than the lists', an OK while nothing is chosen, a choice that cannot be taken back,
// lists that reach beyond a small screen.
TEST(MacroWindows, WordsAreJoinedInTheListsOrder)
{
    OnModal([](QWidget& window) {
        auto& dialog = static_cast<frmMacroMulti&>(window);
        EXPECT_EQ(dialog.SSMultiPage()->currentIndex(), 1);
        EXPECT_FALSE(dialog.cmdOK()->isEnabled());
        EXPECT_LE(dialog.minimumSizeHint().width(), 640 - 16);
        Select(dialog.lstElements(2), 0);
        EXPECT_EQ(dialog.txtPreview()->text(), u"left"_s);
        Select(dialog.lstElements(0), 1);
        Select(dialog.lstElements(1), 0);
        EXPECT_EQ(dialog.txtPreview()->text(), u"yamyam.moving.left"_s);
        dialog.lstElements(1)->clearSelection();
        EXPECT_EQ(dialog.txtPreview()->text(), u"yamyam.left"_s);
        dialog.cmdOK()->click();
    });
    EXPECT_EQ(frmMacroMulti::Ask(WordsQuestion(), nullptr), Answer(u"yamyam.left"_s));
    ChoiceQuestion one = WordsQuestion();
    one.Lists.resize(1);
    OnModal([](QWidget& window) {
        auto& dialog = static_cast<frmMacroMulti&>(window);
        EXPECT_FALSE(dialog.cmdOK()->isEnabled());
        Select(dialog.lstElements(0), 1);
        dialog.cmdOK()->click();
    });
    EXPECT_EQ(frmMacroMulti::Ask(one, nullptr), Answer(2));
}

// Catches: a pause that no click ends, one that outlives its time, a text that is taken for markup.
TEST(MacroWindows, APauseEndsByClickOrTime)
{
    OnModal([](QWidget& window) {
        auto& pause = static_cast<frmMacroPause&>(window);
        EXPECT_EQ(pause.lblMessage()->text(), u"<b>Wait</b>"_s);
        EXPECT_EQ(pause.lblMessage()->textFormat(), Qt::PlainText);
        QTest::mouseClick(pause.lblMessage(), Qt::LeftButton);
    });
    EXPECT_EQ(frmMacroPause::Ask({u"<b>Wait</b>"_s, {}}, nullptr), Answer(Pressed{}));
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(frmMacroPause::Ask({u"short"_s, 50}, nullptr), Answer(Cancelled{}));
    EXPECT_GE(clock.elapsed(), 45);
    OnModal([](QWidget& window) {
        const QLabel* label = static_cast<frmMacroPause&>(window).lblMessage();
        for (const int at : {33, 57}) {
            QCursor::setPos(at, at + 11);
            const QString place = u"Mouse X: %1  Mouse Y: %2"_s.arg(at).arg(at + 11);
            EXPECT_TRUE(QTest::qWaitFor([&] { return label->text() == place; })) << label->text();
        }
    });
    frmMacroPause::Ask({u"PauseMouse"_s, {}}, nullptr);
}

// Catches: a macro of pauses that Esc cannot stop, a pause that needs the mouse.
TEST(MacroWindows, EscInAPauseStopsTheMacro)
{
    const RunScope macro(RunKind::Macro, u"trial"_s);
    OnModal([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
    EXPECT_EQ(frmMacroPause::Ask({u"Wait"_s, {}}, nullptr), Answer(Pressed{}));
    EXPECT_FALSE(macro.Stopped());
    OnModal([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    frmMacroPause::Ask({u"Wait"_s, {}}, nullptr);
    EXPECT_EQ(macro.Why(), StopReason::Esc);
}

// Catches: a power that is not told, a copy offered where it holds nothing back, an Enter that runs what is risky.
TEST(MacroWindows, ANewMacroTellsWhatItDoes)
{
    EXPECT_EQ(PowerLines(0).size(), 1);
    EXPECT_EQ(
        PowerLines(TouchesFiles | StartsPrograms | SendsKeys | SteersWindows | WritesLevels | UsesRegistry).size(), 6);
    OnModal([](QWidget& window) {
        auto& dialog = static_cast<frmMacroNew&>(window);
        EXPECT_FALSE(dialog.cmdRunOnCopy()->isVisible());
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(frmMacroNew::Ask({u"a.gfb"_s, TouchesFiles, false}, nullptr), NewMacroChoice::Cancel);
    OnModal([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
    EXPECT_EQ(frmMacroNew::Ask({u"a.gfb"_s, 0, true}, nullptr), NewMacroChoice::RunOnCopy);
    OnModal([](QWidget& window) { static_cast<frmMacroNew&>(window).cmdRun()->click(); });
    EXPECT_EQ(frmMacroNew::Ask({u"a.gfb"_s, 0, true}, nullptr), NewMacroChoice::Run);
}

// Catches: lines paired with the wrong ones, a line that is there on one side only shown on both.
TEST(MacroWindows, ChangesStandBesideEachOther)
{
    const auto rows = CompareSideBySide("a\nb\nc\nd\n", "a\nB\nx\nc\nd\n");
    ASSERT_TRUE(rows);
    ASSERT_EQ(rows->size(), 5);
    EXPECT_EQ(rows->at(1).Left, u"b"_s);
    EXPECT_EQ(rows->at(1).Right, u"B"_s);
    EXPECT_FALSE(rows->at(2).HasLeft);
    EXPECT_EQ(rows->at(2).Right, u"x"_s);
    EXPECT_FALSE(rows->at(3).Differs());
    OnModal([](QWidget& window) {
        auto& dialog = static_cast<frmMacroCopy&>(window);
        EXPECT_EQ(dialog.Comparison()->Side(0)->blockCount(), 5);
        EXPECT_EQ(dialog.Comparison()->Side(1)->toPlainText(), u"a\nB\nx\nc\nd"_s);
        dialog.cmdTake()->click();
    });
    EXPECT_TRUE(frmMacroCopy::Ask({u"m"_s, "a\nb\nc\nd\n", "a\nB\nx\nc\nd\n"}, nullptr));
    OnModal([](QWidget& window) { EXPECT_FALSE(static_cast<frmMacroCopy&>(window).cmdTake()->isEnabled()); });
    EXPECT_FALSE(frmMacroCopy::Ask({u"m"_s, "a\n", "a\n"}, nullptr));
}

// Catches: an entry below a folder that the archive does not list, one listed twice, a choice while there is none, a
// path that is not the archive's own.
TEST(MacroWindows, AnArchivesEntriesAreATree)
{
    const ZipEntryQuestion question{u"Pick"_s, {u"sub/deep/a.txt"_s, u"b.txt"_s, u"sub/"_s, u"sub/deep/c.txt"_s}};
    OnModal([](QWidget& window) {
        auto& dialog = static_cast<frmMacroMulti&>(window);
        EXPECT_EQ(dialog.SSMultiPage()->currentIndex(), 2);
        EXPECT_FALSE(dialog.cmdOK()->isEnabled());
        QTreeView* tree = dialog.lstZipTree();
        const auto* model = tree->model();
        ASSERT_EQ(model->rowCount(), 2);
        const QModelIndex sub = model->index(0, 0), deep = model->index(0, 0, sub);
        EXPECT_EQ(model->rowCount(sub), 1);
        EXPECT_EQ(model->rowCount(deep), 2);
        tree->setCurrentIndex(deep);
        EXPECT_EQ(dialog.txtZipFile()->text(), u"sub\\deep\\"_s);
        EXPECT_TRUE(dialog.cmdOK()->isEnabled());
        tree->setCurrentIndex(model->index(1, 0, deep));
        EXPECT_EQ(dialog.txtZipFile()->text(), u"sub\\deep\\c.txt"_s);
        QTest::mouseClick(dialog.cmdOK(), Qt::LeftButton);
    });
    EXPECT_EQ(frmMacroMulti::AskEntry(question, nullptr), Answer(u"sub/deep/c.txt"_s));
    OnModal([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    EXPECT_EQ(frmMacroMulti::AskEntry(question, nullptr), Answer(Cancelled{}));
}

// Catches: work that is done before the window is seen or not at all, an outcome that is lost, a close box that leaves
// the work running, one that closes before the work has ended.
TEST(MacroWindows, PatienceWhileAnArchiveIsMade)
{
    const QWidget* seen = nullptr;
    const Result<> done = frmZip::Run(
        frmZip::Unzip,
        [&seen](const CountedTurn& turn) -> Result<> {
            seen = QApplication::activeModalWidget();
            EXPECT_EQ(static_cast<const frmZip*>(seen)->lblZip()->text(), u"Unzipping files, please wait.........."_s);
            EXPECT_TRUE(turn(1, 4));
            EXPECT_EQ(static_cast<const frmZip*>(seen)->Bar()->value(), 250);
            return Fail(u"x"_s, u"y"_s);
        },
        nullptr);
    ASSERT_NE(seen, nullptr);
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().Reason, u"y"_s);
    const Result<> stopped = frmZip::Run(
        frmZip::Zip,
        [](const CountedTurn& turn) -> Result<> {
            QApplication::activeModalWidget()->close();
            EXPECT_TRUE(QApplication::activeModalWidget()->isVisible());
            return turn(1, 2) ? Result<>() : Stopped();
        },
        nullptr);
    ASSERT_FALSE(stopped);
    EXPECT_TRUE(WasStopped(stopped.error()));
    EXPECT_EQ(RunningWork(), 0);
}
