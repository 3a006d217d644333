#include "frame/program_scope.h"
#include "windows/macro/frm_macro_edit.h"
#include "windows/parts/dialog_support.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {

class CodeHelp : public testing::Test
{
protected:
    void Open(const QString& source, const std::function<void(QWidget&, EditorPane&)>& act)
    {
        Run.Start();
        OnModal([&](QWidget& window) {
            EditorPane& code = static_cast<frmMacroEdit&>(window).txtEdit(frmMacroEdit::Code);
            code.SetText(source);
            act(window, code);
            code.SetModified(false);
        });
        frmMacroEdit::Run(nullptr);
    }

    static void Type(const QString& text)
    {
        for (const QChar c : text)
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
        QCoreApplication::processEvents();
    }

    ProgramScope Run;
};

} // namespace

// Catches: marks that come without a pause or never, a key that goes to the wrong one or not round the ends, a line
// whose mark nobody reads without the mouse.
TEST_F(CodeHelp, MarksComeWhileTypingAndAreGoneThrough)
{
    Open(u"print a\nnoword\nprint $b\nprint c"_s, [](QWidget& window, EditorPane& code) {
        const auto& says = Part<QLabel>(window, "lblSays");
        auto& next = Part<QAction>(window, "mnuNextMark");
        const auto place = [&] { return u"%1 %2"_s.arg(code.CaretLine()).arg(says.text().section(u' ', 0, 2)); };
        next.trigger();
        EXPECT_EQ(place(), u"1 Unrecognised command: noword"_s);
        next.trigger();
        EXPECT_EQ(place(), u"2 The variable: $b"_s);
        next.trigger();
        EXPECT_EQ(code.CaretLine(), 1);
        Part<QAction>(window, "mnuPreviousMark").trigger();
        EXPECT_EQ(code.CaretLine(), 2);
        code.SetSel({1, 0, 1, 6}, true);
        code.ReplaceSel(u"dim $b"_s);
        EXPECT_EQ(says.text(), QString());
        code.SetSel({3, 0, 3, 5}, true);
        code.ReplaceSel(u"nothing"_s);
        EXPECT_TRUE(WaitUntil([&] { return says.text().startsWith(u"Unrecognised command: nothing"_s); }));
        next.trigger();
        EXPECT_EQ(code.CaretLine(), 3);
    });
}

// Catches: marks of long code that never come, or of code that has been typed over meanwhile.
TEST_F(CodeHelp, LongCodeIsLookedAtBeside)
{
    Open(QString(u"print a\n"_s).repeated(5000) + u"noword"_s, [](QWidget& window, EditorPane& code) {
        const auto& says = Part<QLabel>(window, "lblSays");
        code.SetSel({5000, 0, 5000, 0}, true);
        EXPECT_TRUE(WaitUntil([&] { return says.text().contains(u"noword"_s); }));
        code.InsertText(u"other\r\n"_s, {});
        EXPECT_TRUE(WaitUntil([&] { return says.text().contains(u"noword"_s); }));
        code.SetSel({0, 0, 0, 0}, true);
        EXPECT_EQ(says.text(), u"Unrecognised command: other"_s);
    });
}

// Catches: a list that does not open in the workbench, an item whose form is put in, Enter taken from a whole word.
TEST_F(CodeHelp, TheCodeListCompletes)
{
    Open(u"dim $Counted\n"_s, [](QWidget&, EditorPane& code) {
        code.ExecuteCmd(CmdDocumentEnd);
        Type(u"varmids"_s);
        EXPECT_TRUE(code.CodeListOpen());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        Type(u"$co"_s);
        EXPECT_TRUE(code.CodeListOpen());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(code.GetLine(1), u"varmidset $Counted"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        Type(u"endif"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(code.LineCount(), 4);
    });
}

// Catches: form and meaning of another word, a filter that typing in the list does not reach or that shows nothing for
// a word of a meaning, an entry that only the mouse can choose.
TEST_F(CodeHelp, TheCommandListTellsAndFilters)
{
    Open({}, [](QWidget& window, EditorPane& code) {
        auto& list = Part<QListWidget>(window, "lstCom");
        const auto& facts = Part<QLabel>(window, "lblForm");
        list.setFocus();
        Type(u"varm"_s);
        EXPECT_EQ(Part<QLineEdit>(window, "txtFilter").text(), u"varm"_s);
        EXPECT_EQ(list.currentItem()->text(), u"varmidset"_s);
        EXPECT_TRUE(facts.text().startsWith(u"varmidset $NAME START"_s)) << facts.text();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        EXPECT_TRUE(facts.text().startsWith(u"varmid TEXT START"_s)) << facts.text();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(code.Text(), u"varmid"_s);
        Part<QLineEdit>(window, "txtFilter").setText(u"lower case"_s);
        EXPECT_EQ(list.currentItem()->text(), u"varlcase"_s);
    });
}
