#include "windows/macro/frm_macro_edit.h"

#include "frame/editor_pane.h"
#include "macro/language/run_state.h"
#include "macro/stopped_run.h"
#include "macro/watch_lines.h"
#include "macro/word_facts.h"
#include "windows/macro/code_look.h"
#include "windows/macro/command_list.h"
#include "windows/macro/stop_bar.h"
#include "windows/macro/watch_list.h"

#include <QAction>
#include <QMenuBar>
#include <QTabWidget>

// What stops a test run, and what a person sees and does while it stands still.

namespace {

using Way = CodeStops::Way;

struct RunEntry
{
    const char *Name, *Caption;
    int Key; ///< with its modifiers
    Way How; ///< On: only a run that stands still can go on so
    bool AlsoStarts, OnBar;
};
constexpr RunEntry RunEntries[] = {
    {"mnuContinue", "&Continue", Qt::Key_F5, Way::On, false, true},
    {"mnuStep", "&Step", Qt::Key_F11, Way::Step, true, true},
    {"mnuStepOver", "Step &Over", Qt::Key_F10, Way::Over, true, true},
    {"mnuStepOut", "Step O&ut", int(Qt::SHIFT) | Qt::Key_F11, Way::Out, false, true},
    {"mnuRunToCaret", "&Run To Caret", int(Qt::CTRL) | Qt::Key_F10, Way::ToLine, true, true},
};

} // namespace

void frmMacroEdit::MakeRunMenu()
{
    mnuRun = menus->addMenu(QStringLiteral("R&un"));
    const auto add = [this](const char* name, const char* caption, int key) {
        QAction* entry = mnuRun->addAction(QString::fromLatin1(caption));
        entry->setObjectName(QString::fromLatin1(name));
        entry->setShortcut(QKeySequence(key));
        return entry;
    };
    for (const RunEntry& row : RunEntries) {
        QAction* entry = add(row.Name, row.Caption, row.Key);
        connect(entry, &QAction::triggered, this, [this, how = row.How] { GoOn(how); });
        if (!row.AlsoStarts)
            onlyStopped << entry;
        if (row.OnBar)
            bar->AddButton(entry);
    }
    mnuRun->addSeparator();
    EditorPane& code = txtEdit(Code);
    connect(add("mnuBreakpoint", "&Breakpoint", Qt::Key_F9), &QAction::triggered, this,
            [this, &code] { stops->Toggle(code.CaretLine()); });
    connect(add("mnuCondition", "Breakpoint Con&dition", int(Qt::SHIFT) | Qt::Key_F9), &QAction::triggered, this,
            [this, &code] { stops->AskForCondition(code.CaretLine()); });
    connect(add("mnuNoBreakpoints", "Clear &All Breakpoints", int(Qt::CTRL) | Qt::SHIFT | Qt::Key_F9),
            &QAction::triggered, stops.get(), &CodeStops::Clear);
    for (QAction* entry : onlyStopped)
        entry->setEnabled(false);
    connect(bar, &StopBar::PlaceWanted, this, [&code](int line) {
        code.FocusPane();
        code.ExecuteCmd(CmdGotoLine, line);
    });
    connect(lstWatch, &WatchList::ValueSet, this, [this](int line, const QString& value) {
        if (RunState* run = stops->Waiting(); run && SetVariableAt(*run, line, value))
            ShowWatch(*run);
    });
    code.HoverText = [this](EditorPane& pane, int line, int column) {
        return HoverOf(WordAt(pane.GetLine(line), column));
    };
}

/// A run that stands still goes on, else one begins.
void frmMacroEdit::GoOn(Way how)
{
    lstWatch->FinishChange();
    if (stops->Waiting())
        stops->Go(how);
    else
        TestFrom(how);
}

bool frmMacroEdit::StopsBefore(RunState& run)
{
    return stops->StopsBefore(run);
}

void frmMacroEdit::ShowStep(RunState& run)
{
    const QString& fault = stops->Fault();
    bar->ShowPlace(GosubChain(run),
                   fault.isEmpty() ? QString() : QStringLiteral("The condition can't be told: ") + fault);
    ShowWatch(run);
    txtEdit(Code).ExecuteCmd(CmdGotoLine, run.CurrentLine);
    MarkLine(CodeMarks(FormInUse()).Step, run.CurrentLine);
}

void frmMacroEdit::MarkLine(int colour, int line)
{
    txtEdit(Code).SetColor(HighlightedLineSlot, colour);
    txtEdit(Code).SetHighlightedLine(line);
}

void frmMacroEdit::WaitAt(RunState& run)
{
    SSmacro->setCurrentIndex(Code);
    ShowStep(run);
    LetLook(true);
    lstWatch->LetChange(run.Variables.Count());
    txtEdit(Code).FocusPane();
    stops->Wait(run);
    lstWatch->LetChange(0);
    LetLook(false);
    MarkLine(CodeMarks(FormInUse()).Caret, txtEdit(Code).CaretLine()); // it stands there no longer
}

/// The parts of the window that do not change the code come alive while a run stands still.
void frmMacroEdit::LetLook(bool on)
{
    body->setEnabled(on);
    menus->setEnabled(on);
    for (QAction* entry : mnuRun->actions())
        entry->setEnabled(on);
    words->setEnabled(!on);
    txtEdit(Code).SetReadOnly(on);
}

void frmMacroEdit::ShowWatch(RunState& run)
{
    lstWatch->ShowLines(WatchLines(run));
}

QString frmMacroEdit::HoverOf(const QString& word)
{
    if (RunState* run = stops->Waiting(); run && word.startsWith(u'$'))
        if (const std::optional<QString> value = ValueNow(*run, word))
            return word + QStringLiteral(" = ") + *value;
    const std::optional<WordFacts> facts = FactsOfWord(word);
    return facts ? TipOf(*facts) : QString();
}
