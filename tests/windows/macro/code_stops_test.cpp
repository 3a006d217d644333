#include "editor/make_pane.h"
#include "frame/program_scope.h"
#include "frame/run_scope.h"
#include "windows/macro/frm_macro_edit.h"
#include "windows/macro/watch_list.h"
#include "windows/parts/dialog_support.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <Qsci/qsciscintilla.h>

using namespace Qt::StringLiterals;

namespace {

class Stops : public testing::Test
{
protected:
    void Open(const QString& source, const std::function<void()>& act)
    {
        Run.Start();
        OnModal([&](QWidget& window) {
            Window = static_cast<frmMacroEdit*>(&window);
            Code().SetText(source);
            act();
            Code().SetModified(false);
        });
        frmMacroEdit::Run(nullptr);
    }

    EditorPane& Code() const { return Window->txtEdit(frmMacroEdit::Code); }
    QString Output() const { return Window->txtEdit(frmMacroEdit::Output).Text(); }
    void Choose(const char* entry) const { Part<QAction>(*Window, entry).trigger(); }
    void PutCaretIn(int line) const { Code().SetSel({line, 0, line, 0}, true); }
    void Mark(int line) const
    {
        PutCaretIn(line);
        Choose("mnuBreakpoint");
    }
    QStringList Marked() const
    {
        QStringList lines;
        for (const LineMark& stop : Code().Stops())
            lines << QString::number(stop.Line) + stop.Message;
        return lines;
    }

    /// Begins a run by an entry and makes these choices, one each time that it stands still; the lines where it stood.
    QStringList Stood(const char* begin, const std::vector<std::function<void()>>& choices)
    {
        QStringList lines;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            if (!Part<QAction>(*Window, "mnuContinue").isEnabled())
                return;
            lines << QString::number(Code().CaretLine());
            if (size_t(lines.size()) > choices.size())
                StopRuns(StopReason::Esc);
            else
                choices[size_t(lines.size()) - 1]();
        });
        look.start(5);
        Choose(begin);
        return lines;
    }

    std::function<void()> Entry(const char* name) const
    {
        return [this, name] { Choose(name); };
    }

    ProgramScope Run;
    frmMacroEdit* Window = nullptr;
};

const QString Counting = u"dim $n\nset $n =0\n# to three\nloop 1 3\nset $n +1\nprint $n\nendloop\n"_s;
const QString Nested = u"print a\ngosub @one\nprint b\nstop\nsub @one\nprint 1\ngosub @two\nprint 3\nendsub\nsub @two\n"
                       "print 2\nendsub\n"_s;

} // namespace

// Catches: a mark that a click beside the text does not set or take away, one that loses its line while its user types,
// stays with another macro's code, or stops a run although its condition does not hold.
TEST_F(Stops, MarkedLinesStopARun)
{
    Open(Counting, [&] {
        auto* component = qobject_cast<QsciScintilla*>(WidgetOf(Code()));
        const int height = int(component->SendScintilla(QsciScintillaBase::SCI_TEXTHEIGHT, 0UL));
        for (const int line : {2, 5, 5, 5})
            QTest::mouseClick(component->viewport(), Qt::LeftButton, {}, QPoint(3, line * height + height / 2));
        EXPECT_EQ(Marked(), QStringList({u"2"_s, u"5"_s}));
        Code().InsertText(u"print z\r\n"_s, {});
        EXPECT_EQ(Marked(), QStringList({u"3"_s, u"6"_s}));
        Code().DeleteLine(0);
        EXPECT_EQ(Stood("mnutest", {Entry("mnuContinue"), Entry("mnuContinue")}),
                  QStringList({u"3"_s, u"5"_s, u"5"_s}));
        EXPECT_EQ(Output(), u"1"_s) << "the run was stopped in front of the second";
        Part<QAction>(*Window, "mnuClear").trigger();
        Mark(2);
        PutCaretIn(5);
        Run.Scope.Answers.Next.emplace_back(u" $n ==3 "_s);
        Choose("mnuCondition");
        EXPECT_EQ(Marked(), QStringList(u"5$n ==3"_s));
        EXPECT_EQ(Stood("mnutest", {Entry("mnuContinue")}), QStringList(u"5"_s));
        EXPECT_EQ(Output(), u"123"_s);
        Code().SetModified(false);
        Choose("mnuNew");
        EXPECT_EQ(Marked(), QStringList());
    });
}

// Catches: a step that goes into a sub or past its end against its name, a run to the caret that stops elsewhere, an
// entry that lives when nothing stands still.
TEST_F(Stops, StepsGoIntoOverAndOut)
{
    Open(Nested, [&] {
        EXPECT_FALSE(Part<QAction>(*Window, "mnuContinue").isEnabled());
        EXPECT_EQ(Stood("mnuStep", {Entry("mnuStep"), Entry("mnuStep"), Entry("mnuStepOver"), Entry("mnuStepOver"),
                                    Entry("mnuStepOut")}),
                  QStringList({u"0"_s, u"1"_s, u"5"_s, u"6"_s, u"7"_s, u"2"_s}));
        EXPECT_EQ(Output(), u"a123"_s);
        Part<QAction>(*Window, "mnuClear").trigger();
        PutCaretIn(10);
        EXPECT_EQ(Stood("mnuRunToCaret", {Entry("mnuContinue")}), QStringList(u"10"_s));
        EXPECT_EQ(Output(), u"a123b"_s);
        EXPECT_FALSE(Part<QAction>(*Window, "mnuStepOut").isEnabled());
        Part<QCheckBox>(*Window, "chkStep").setChecked(true);
        for (const int answer : {1, 1, 3})
            Run.Scope.Answers.Next.emplace_back(Pressed{answer});
        Choose("mnutest");
        EXPECT_EQ(Part<QListWidget>(*Window, "lstChain").item(0)->text(), u"line 1: gosub @one"_s)
            << "the prompts show it too";
        EXPECT_TRUE(Part<QAction>(*Window, "mnutest").isEnabled());
    });
}

// Catches: code that is edited under its run, a chain or a value that is not the run's, a change that the run does not
// see, a window that stays as it was while the run stood.
TEST_F(Stops, AStandingRunIsLookedIntoAndChanged)
{
    Open(u"dim $a\nset $a =old\ngosub @one\nstop\nsub @one\nprint $a\nendsub\n"_s, [&] {
        Part<QCheckBox>(*Window, "chkWatch").setChecked(true);
        auto& watch = Part<WatchList>(*Window, "lstWatch");
        Mark(5);
        const auto look = [&] {
            const auto& chain = Part<QListWidget>(*Window, "lstChain");
            EXPECT_EQ(chain.item(0)->text(), u"line 2: gosub @one"_s);
            EXPECT_EQ(chain.count(), 2);
            EXPECT_EQ(Code().HoverText(Code(), 1, 6), u"$a = old"_s);
            QTest::keyClick(QApplication::focusWidget(), 'x');
            EXPECT_EQ(Code().GetLine(5), u"print $a"_s);
            watch.setCurrentRow(0);
            watch.setFocus();
            QTest::keyClick(&watch, Qt::Key_F2);
            auto* editor = watch.findChild<QLineEdit*>();
            ASSERT_TRUE(editor);
            EXPECT_EQ(editor->text(), u"old"_s);
            QTest::keyClicks(editor, u"brand new"_s);
            QTest::keyClick(editor, Qt::Key_Return);
            QCoreApplication::processEvents();
            EXPECT_EQ(watch.item(0)->text(), u"$a = brand|new"_s);
            QTest::keyClick(&watch, Qt::Key_F2);
            QTest::keyClicks(QApplication::focusWidget(), u"newer"_s);
            Choose("mnuContinue");
        };
        EXPECT_EQ(Stood("mnutest", {look}), QStringList(u"5"_s));
        EXPECT_EQ(Output(), u"newer"_s) << "what stands in the open line counts";
        EXPECT_FALSE(Part<QWidget>(*Window, "stopBar").isVisible());
        EXPECT_FALSE(watch.item(0)->flags().testFlag(Qt::ItemIsEditable));
        Code().InsertText(u"x"_s, {});
        EXPECT_EQ(Code().GetLine(0), u"xdim $a"_s) << "the code can be typed in again";
        EXPECT_FALSE(Code().HoverText(Code(), 5, 2).isEmpty()) << "a word tells its form then";
    });
}

// Catches: a window that cannot be closed while a run stands still, or leaves the run behind.
TEST_F(Stops, AStandingRunEndsWithTheWindow)
{
    Open(Counting, [&] {
        Code().SetModified(false);
        EXPECT_EQ(Stood("mnuStep", {Entry("mnuStep"), [&] { Window->close(); }}), QStringList({u"0"_s, u"1"_s}));
        EXPECT_FALSE(Window->isVisible());
        EXPECT_FALSE(AnyRun());
    });
}

// Catches: a place that the list lacks, or that it does not go to; a jump whose name is not followed.
TEST_F(Stops, PlacesAreGoneTo)
{
    Open(Nested, [&] {
        auto& places = Part<QComboBox>(*Window, "cboPlaces");
        EXPECT_TRUE(WaitUntil([&] { return places.count() == 3; }));
        EXPECT_EQ(places.itemText(2), u"sub @two"_s);
        emit places.activated(2);
        EXPECT_EQ(Code().CaretLine(), 9);
        PutCaretIn(7);
        EXPECT_EQ(places.currentText(), u"sub @one"_s);
        Code().SetSel({6, 8, 6, 8}, true);
        Choose("mnuGotoPlace");
        EXPECT_EQ(Code().CaretLine(), 9);
    });
}
