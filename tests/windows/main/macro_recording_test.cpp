#include "frame/run_scope.h"
#include "macro/plain_stage.h"
#include "macro/recorder.h"
#include "macro/run_macro.h"
#include "windows/macro/frm_macro_edit.h"
#include "windows/main/main_window_test.h"
#include "windows/parts/dialog_support.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// A person at the main window whose deeds are recorded.
struct MacroRecordingTest : MainWindowTest
{
    void Begin(const QString& text)
    {
        start = text;
        EditorPane& pane = CurrentPane();
        pane.SetText(text);
        pane.ExecuteCmd(CmdDocumentStart);
        pane.FocusPane();
        Window->RecordMacro();
        EXPECT_TRUE(Sign().isVisible());
        EXPECT_EQ(MenuOf("mnuRecordMacro")->text(), u"Stop Recording"_s);
    }
    /// The lines of the code that opens on the workbench, without the comment in front.
    QStringList Stop()
    {
        QString code;
        OnModal([&](QWidget& window) {
            EditorPane& pane = static_cast<frmMacroEdit&>(window).txtEdit(frmMacroEdit::Code);
            EXPECT_TRUE(pane.Modified()); // so that it is asked about before it goes
            code = pane.Text();
            pane.SetModified(false);
        });
        Window->RecordMacro();
        EXPECT_FALSE(Sign().isVisible());
        EXPECT_TRUE(code.startsWith(u"# A recorded macro"_s)) << code;
        source = code.remove(u'\r');
        return source.split(u'\n', Qt::SkipEmptyParts).mid(1);
    }
    /// What the macro makes of the text at its start.
    TextMoment Replayed()
    {
        OwnClipboard clipboard;
        PlainStage stage(clipboard);
        stage.Target().SetText(start);
        stage.Target().ExecuteCmd(CmdDocumentStart);
        MacroRequest request;
        request.Source = PrepareSource(source);
        RunScope scope(RunKind::Macro, u"replay"_s);
        const auto error = RunMacro(request, stage, scope);
        EXPECT_FALSE(error) << error->Text;
        return MomentOf(stage.Target());
    }
    void TypeKeys(const char* keys) const
    {
        QTest::keyClicks(Window->focusWidget(), QString::fromLatin1(keys));
        QCoreApplication::processEvents();
    }
    QToolButton& Sign() const { return *Window->findChild<QToolButton*>(u"cmdStopRecording"_s); }

    QString start, source;
};

} // namespace

// Catches: keys that are recorded twice, in another order or not at all: typed ones, moves, commands of the menu, a
// click, an undo.
TEST_F(MacroRecordingTest, KeysAndCommandsComeAgain)
{
    Begin(u"one two\r\nthree \"four\"\r\nfive"_s);
    TypeKeys("say \"[q]\" $a ");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Return);
    Press(Qt::Key_Down);
    Press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    MenuOf("mnuCut")->trigger();
    Press(Qt::Key_End, Qt::ControlModifier);
    MenuOf("mnuPaste")->trigger();
    TypeKeys("gone");
    MenuOf("mnuUndo")->trigger();
    CurrentPane().SetSel({1, 1, 1, 4}, true); // as a click and a drag do
    QCoreApplication::processEvents();
    TypeKeys("X");
    Press(Qt::Key_Delete, Qt::ControlModifier);
    CurrentPane().SetFindText(u"e"_s);
    MenuOf("mnuFindNext")->trigger();
    const QStringList lines = Stop();
    EXPECT_TRUE(lines.filter(u"cannot"_s).isEmpty()) << source;
    EXPECT_FALSE(lines.join(u' ').contains(u"gone"_s)) << source;
    const TextMoment wanted = MomentOf(CurrentPane()), made = Replayed();
    EXPECT_EQ(made.Text, wanted.Text) << source;
    EXPECT_EQ(made.Selection, wanted.Selection) << source;
}

// Catches: a command without a word that is passed over, or whose inner steps are recorded; a macro that is recorded
// with what it did; a tab that counts as the one before.
TEST_F(MacroRecordingTest, OtherCommandsAreTold)
{
    Begin(u"a:1\r\nb:2"_s);
    MenuOf("mnuTidyup")->trigger();
    MenuOf("mnuViewLineNums")->trigger();
    {
        const RunScope scope(RunKind::Macro, u"inner"_s);
        CurrentPane().ExecuteCmd(CmdDocumentEnd);
        CurrentPane().ReplaceSel(u"inner"_s);
    }
    QCoreApplication::processEvents();
    MenuOf("mnuAddTab")->trigger();
    TypeKeys("new");
    CurrentPane().SetModified(false);
    OpenDocument(Run.Work.Write(u"other.txt"_s, "other"), true);
    QCoreApplication::processEvents();
    const QStringList lines = Stop();
    EXPECT_EQ(lines, (QStringList{u"# Tidy Up cannot be replayed"_s, u"# Line Numbers cannot be replayed"_s,
                                  u"# The macro inner cannot be replayed"_s, u"# Open Tab cannot be replayed"_s,
                                  u"print new"_s, u"# Opening another text cannot be replayed"_s}));
    EXPECT_EQ(Run.TakeMessages().filter(u"Tidy Up^Line Numbers^The macro inner^Open Tab^Opening"_s).size(), 1);
}

// Catches: a recording that is lost when the window is closed, a window that stays.
TEST_F(MacroRecordingTest, ClosingShowsTheMacroFirst)
{
    Begin({});
    TypeKeys("kept");
    CurrentPane().SetModified(false);
    QString code;
    Window->close();
    EXPECT_TRUE(Window->isVisible());
    QTimer::singleShot(0, qApp, [&code] {
        OnModal([&code](QWidget& window) {
            EditorPane& pane = static_cast<frmMacroEdit&>(window).txtEdit(frmMacroEdit::Code);
            code = pane.Text();
            pane.SetModified(false);
        });
    });
    QCoreApplication::processEvents();
    EXPECT_TRUE(code.contains(u"print kept"_s)) << code;
    EXPECT_FALSE(Window->isVisible());
}

// Catches: a recording of nothing that opens the workbench, a sign that does not end it.
TEST_F(MacroRecordingTest, NothingDoneIsToldAndTheSignEndsIt)
{
    Begin(u"text"_s);
    Sign().click();
    EXPECT_FALSE(Sign().isVisible());
    EXPECT_EQ(MenuOf("mnuRecordMacro")->text(), u"Record Macro"_s);
}
