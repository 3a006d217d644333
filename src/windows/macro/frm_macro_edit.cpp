#include "windows/macro/frm_macro_edit.h"

#include "conf/help_for_word.h"
#include "frame/documents/documents.h"
#include "frame/files/file_commands.h"
#include "frame/files/tab_commands.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/messages/asker.h"
#include "frame/recovery/recovery.h"
#include "frame/run_scope.h"
#include "macro/language/source_text.h"
#include "macro/macro_file.h"
#include "macro/run_macro.h"
#include "macro/started_windows.h"
#include "macro/test_source.h"
#include "macro/word_facts.h"
#include "platform/files/paths.h"
#include "windows/macro/code_look.h"
#include "windows/macro/command_list.h"
#include "windows/macro/kept_code.h"
#include "windows/macro/live_marks.h"
#include "windows/macro/stop_bar.h"
#include "windows/macro/watch_list.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <algorithm>

namespace {

FileQuestion MacroQuestion(FileQuestion::Use use, const char* title)
{
    return {.For = use,
            .Title = QLatin1String(title),
            .Filter = QStringLiteral("Gemforge BASIC (*.gfb)|*.gfb"),
            .Folder = Frame.MacrosFolder,
            .Preset = {},
            .Completes = use == FileQuestion::Save};
}

} // namespace

void frmMacroEdit::Run(QWidget* owner, const QString& macroToEdit)
{
    Show(owner, [&](frmMacroEdit& window) {
        if (!macroToEdit.isEmpty())
            window.Open(macroToEdit);
    });
}

void frmMacroEdit::RunOn(QWidget* owner, const QString& code)
{
    Show(owner, [&](frmMacroEdit& window) {
        window.txtEdit(Code).SetText(code);
        window.txtEdit(Code).ExecuteCmd(CmdDocumentStart);
    });
}

void frmMacroEdit::TakeBack(QWidget* owner, const RecoveredText& kept)
{
    Show(owner, [&](frmMacroEdit& window) {
        if (paths::FileExists(kept.DocumentPath))
            window.Open(kept.DocumentPath);
        window.kept->TakeBack(kept);
    });
}

void frmMacroEdit::Show(QWidget* owner, const std::function<void(frmMacroEdit&)>& fill)
{
    {
        const ModalScope scope;
        frmMacroEdit window(owner);
        window.New();
        fill(window);
        window.txtEdit(Code).FocusPane();
        window.exec();
    }
    Panes().FocusPane();
}

frmMacroEdit::~frmMacroEdit()
{
    Frame.CurrentFolder = keptFolder;
    Frame.CurrentFile = keptFile;
    paths::ChangeToFolder(Frame.CurrentFolder);
    for (const auto& pane : panes)
        disconnect(pane.get(), nullptr, this, nullptr);
}

void frmMacroEdit::closeEvent(QCloseEvent* event)
{
    if (running) { // that ends first
        closeWanted = true;
        StopRuns(StopReason::Close);
        event->ignore();
    } else if (MayLeave())
        QDialog::closeEvent(event);
    else
        event->ignore();
}

/// Esc stops a run, and never closes the window.
void frmMacroEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Escape)
        QDialog::keyPressEvent(event);
}

// Files

void frmMacroEdit::New()
{
    TakeText({});
    TakeFile({});
}

void frmMacroEdit::AskForMacro()
{
    if (!MayGiveUpCode())
        return;
    if (const auto chosen = AskText(MacroQuestion(FileQuestion::Open, "Open A Gemforge BASIC File")))
        Open(*chosen);
}

/// The first of them that is a macro; whatever else is dropped is none of the workbench's.
void frmMacroEdit::TakeDropped(const QStringList& files)
{
    const auto macro = std::ranges::find_if(files, [](const QString& file) { return !OpensInTab(file); });
    if (!running && macro != files.end() && MayGiveUpCode())
        Open(*macro);
}

void frmMacroEdit::Open(const QString& wanted)
{
    const Result<QByteArray> source = ReadMacroSource(wanted);
    if (!source) {
        TellUnreadableMacro(wanted, source.error());
        return;
    }
    TakeText(SourceFromBytes(*source));
    TakeFile(wanted);
    for (const int command : {CmdDocumentStart, CmdCharRight, CmdCharLeft})
        txtEdit(Code).ExecuteCmd(command);
}

bool frmMacroEdit::Save()
{
    return path.isEmpty() ? SaveAs() : SaveUnder(path);
}

bool frmMacroEdit::SaveAs()
{
    const auto chosen = AskText(MacroQuestion(FileQuestion::Save, "Save A Gemforge BASIC File"));
    if (!chosen)
        return false;
    if (paths::FileExists(*chosen)) {
        ShowMessage(message::BasicNotOverwritten);
        return false;
    }
    return SaveUnder(*chosen);
}

bool frmMacroEdit::SaveUnder(const QString& wanted)
{
    if (const ResourceResult<> saved = SaveMacroSource(txtEdit(Code), wanted); !saved) {
        TellResourceFailure(paths::FileNameOfPath(wanted), saved.error());
        return false;
    }
    TakeFile(wanted);
    txtEdit(Code).SetModified(false);
    return true;
}

void frmMacroEdit::TakeFile(const QString& taken)
{
    path = taken;
    kept->BelongsTo(path);
    const QString name = paths::FileNameOfPath(path);
    mnusave->setText(path.isEmpty() ? QStringLiteral("&Save")
                                    : QStringLiteral("&Save \"%1\"").arg(WithoutMnemonic(name)));
    lblFile->setText(name);
    ShowResources();
}

void frmMacroEdit::TakeText(const QString& text)
{
    kept->GiveUp();
    stops->Clear();
    EditorPane& code = txtEdit(Code);
    code.SetText(text);
    code.ClearUndoBuffer();
    code.SetModified(false);
}

void frmMacroEdit::ShowResources()
{
    constexpr int Fixed = 2; // what stands in front of the resources
    for (QAction* entry : mnuRes->actions().mid(Fixed)) {
        mnuRes->removeAction(entry);
        entry->deleteLater(); // it may be the one that was chosen
    }
    const ArchiveList names = path.isEmpty() ? ArchiveList() : ListResource(path).value_or(ArchiveList());
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QString& name = names.at(i);
        if (name.compare(QLatin1String("basic.txt"), Qt::CaseInsensitive) == 0)
            continue;
        QAction* entry = mnuRes->addAction(WithoutMnemonic(name));
        entry->setObjectName(QStringLiteral("mnuRESMENU%1").arg(i + 1));
        connect(entry, &QAction::triggered, this, [this, name] { RemoveResource(name); });
    }
}

void frmMacroEdit::AddResource()
{
    if (path.isEmpty()) {
        ShowMessage(message::ResourceNeedsSave);
        return;
    }
    const FileQuestion question{.Title = QStringLiteral("Open a file"),
                                .Filter = QStringLiteral("All Files (*.*)|*.*"),
                                .Folder = Frame.MacrosFolder,
                                .Preset = {}};
    const auto file = AskText(question);
    if (!file)
        return;
    if (paths::Canonical(*file) == paths::Canonical(path)) {
        ShowMessage(message::ResourceIsItself);
        return;
    }
    if (const ResourceResult<> added = AddToResource(*file, path); !added)
        TellResourceFailure(paths::FileNameOfPath(*file), added.error());
    ShowResources();
}

void frmMacroEdit::RemoveResource(const QString& name)
{
    if (!Confirmed(message::DeleteResource))
        return;
    if (const ResourceResult<> gone = DeleteFromResource(name, path); !gone)
        TellResourceFailure(name, gone.error());
    ShowResources();
}

bool frmMacroEdit::MayGiveUpCode()
{
    return !txtEdit(Code).Modified() || Confirmed(message::CloseChanged);
}

bool frmMacroEdit::MayLeave()
{
    if (!Frame.Closing && !Frame.Ending) {
        const bool may = MayGiveUpCode();
        if (may)
            kept->GiveUp();
        return may;
    }
    if (!txtEdit(Code).Modified() || kept->KeepForNextStart() || HandCodeToTab())
        return true;
    Frame.Closing = false; // the program stays: the code would be lost
    return Frame.Ending;
}

bool frmMacroEdit::HandCodeToTab()
{
    if (HasFile(Frame.Documents.at(size_t(Frame.CurrentTab))) || CurrentPane().Modified()) {
        const int before = Panes().SelectedTab();
        OpenNewTab();
        if (Panes().SelectedTab() == before)
            return false;
        ActivateTab();
    }
    CurrentPane().SetText(txtEdit(Code).Text());
    return true;
}

// Test runs

void frmMacroEdit::TestFrom(CodeStops::Way way)
{
    stops->Begin(way, txtEdit(Code).CaretLine());
    if (chkClear->isChecked())
        txtEdit(Output).SetText({});
    SetBusy(true);
    txtEdit(Code).ExecuteCmd(CmdLineUp);
    txtEdit(Code).ExecuteCmd(CmdLineDown);
    running = true;
    RunTest();
    running = false;
    bar->hide();
    SetBusy(false);
    if (std::ranges::none_of(StartedWindows.Entries(), &AliasedWindow::IsThere))
        PaneInFront().FocusPane();
    if (std::exchange(closeWanted, false))
        close();
}

void frmMacroEdit::RunTest()
{
    EditorPane& output = txtEdit(Output);
    const UndoGroup group(output);
    std::optional<PreparedSource> source = PrepareTestText(txtEdit(Code));
    if (!source)
        return;
    MacroRequest request;
    request.Source = std::move(*source);
    request.Path = path;
    request.TestRun = true;
    request.Folder = Frame.CurrentFolder;
    TestStage stage(output, *this);
    {
        RunScope scope(RunKind::Macro, QStringLiteral("Test"));
        RunMacro(request, stage, scope);
    }
    stage.WriteBack();
}

void frmMacroEdit::SetBusy(bool busy)
{
    cmdTest->setEnabled(!busy);
    cmdClear->setEnabled(!busy);
    menus->setEnabled(!busy);
    for (QAction* menu : menus->actions())
        for (QAction* entry : menu->menu()->actions())
            entry->setEnabled(!busy && !onlyStopped.contains(entry)); // their keys too
    body->setEnabled(!busy);
}

void frmMacroEdit::ClearOutput()
{
    txtEdit(Output).SetText({});
    SSmacro->setCurrentIndex(Output);
    txtEdit(Output).FocusPane();
}

/// Wipes the mark of a fault too.
void frmMacroEdit::MarkCaretLine(Side side)
{
    EditorPane& pane = txtEdit(side);
    if (running || !pane.Visible())
        return;
    pane.SetColor(HighlightedLineSlot, CodeMarks(FormInUse()).Caret);
    pane.SetHighlightedLine(pane.CaretLine());
}

void frmMacroEdit::GotoMark(bool forward)
{
    SSmacro->setCurrentIndex(Code);
    marks->Goto(forward);
}

EditorPane& frmMacroEdit::PaneInFront() const
{
    return txtEdit(Side(SSmacro->currentIndex()));
}

void frmMacroEdit::ShowFault(const MacroError& error)
{
    SSmacro->setCurrentIndex(Code);
    SetBusy(false);
    EditorPane& code = txtEdit(Code);
    code.FocusPane();
    code.ExecuteCmd(CmdGotoLine, error.Line);
    code.ExecuteCmd(CmdLineStart);
    const LineMarkColours& colours = CodeMarks(FormInUse());
    code.SetColor(HighlightedLineSlot, error.BeforeRun ? colours.EarlyFault : colours.Fault);
    code.SetHighlightedLine(error.Line);
}

bool frmMacroEdit::StepsLines() const
{
    return chkStep->isChecked();
}

void frmMacroEdit::WantSteps(bool wanted)
{
    chkStep->setChecked(wanted);
}

bool frmMacroEdit::Watches() const
{
    return chkWatch->isChecked();
}

void frmMacroEdit::ShowLists()
{
    const bool watches = Watches();
    labcom->setText(watches ? QStringLiteral("Watch") : QStringLiteral("Commands"));
    words->setVisible(!watches);
    lstWatch->setVisible(watches);
}

/// From a pane to the words or the watch list, and back: Tab belongs to the text.
void frmMacroEdit::TurnToList()
{
    if (!SSmacro->isAncestorOf(focusWidget()))
        PaneInFront().FocusPane();
    else if (Watches())
        lstWatch->setFocus(Qt::ShortcutFocusReason);
    else
        words->setFocus(Qt::ShortcutFocusReason);
}

void frmMacroEdit::InsertCommand(const QString& word)
{
    EditorPane& code = txtEdit(Code);
    SSmacro->setCurrentIndex(Code);
    code.ReplaceSel(word);
    code.FocusPane();
}

/// The page of the word at hand, or the window's.
void frmMacroEdit::HelpForCode(bool ofList)
{
    const EditorPane& code = txtEdit(Code);
    const QString word = ofList ? words->CurrentWord() : WordAt(code.GetLine(code.CaretLine()), code.CaretColumn());
    const std::optional<WordFacts> facts = FactsOfWord(word);
    RunHelp(facts ? facts->HelpId : HelpSubjectOf(this));
}
