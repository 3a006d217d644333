#include "windows/main/macro_recording.h"

#include "frame/editor_pane.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/run_scope.h"
#include "windows/main/command_set.h"
#include "windows/main/status_panels.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QToolButton>
#include <algorithm>

namespace {

/// Commands of the window that are nothing but numbered ones, or open a dialog that works with these.
constexpr const char* NumberedRows[] = {
    "mnuUndo",         "mnuRedo",        "mnuCut",       "mnuCutAppend",   "mnuCopy",
    "mnuPaste",        "mnuSelectLine",  "mnuSelectAll", "mnuFindFor",     "mnuFindNext",
    "mnuFindPrevious", "mnuFindReplace", "mnuFindGoto",  "mnuFindGotoTop", "mnuFindGotoBotton",
    "mnuRecordMacro"};

bool IsNumbered(const CommandRow& row)
{
    return std::ranges::find(NumberedRows, QLatin1StringView(row.Control),
                             [](const char* name) { return QLatin1StringView(name); }) != std::end(NumberedRows);
}

} // namespace

MacroRecording::MacroRecording(const CommandSet& commands, StatusPanels& panels, QObject* parent)
    : QObject(parent), sign(new QToolButton(&panels))
{
    sign->setObjectName(QStringLiteral("cmdStopRecording"));
    sign->setText(QStringLiteral("Recording"));
    sign->setIcon(CommandIcon(QStringLiteral("record_macro")));
    sign->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    sign->setAutoRaise(true);
    sign->setToolTip(QStringLiteral("Stop Recording"));
    SetHelpSubject(sign, HelpIdFor("record_macro"));
    panels.addPermanentWidget(sign);
    sign->hide();
    soon.setSingleShot(true);
    soon.setInterval(0);
    connect(&soon, &QTimer::timeout, this, &MacroRecording::Catch);
    connect(sign, &QToolButton::clicked, this, &MacroRecording::StopWanted);
    connect(&commands, &CommandSet::AboutToRun, this, &MacroRecording::RowBegins);
    connect(&commands, &CommandSet::HasRun, this, &MacroRecording::RowDone);
}

void MacroRecording::Listen(FrameEvents& events)
{
    connect(&events, &FrameEvents::PathChanged, this, &MacroRecording::Note);
    connect(&events, &FrameEvents::WorkChanged, this, &MacroRecording::WorkChanged);
}

void MacroRecording::Start()
{
    Watch(CurrentPane());
    recorder.emplace(MomentOf(*pane));
    happened = inCommand = false;
    rows = 0; // a command may have ended the recording before
    macro.clear();
    sign->show();
    ShowNotice(QStringLiteral("Recording: what you do to the text becomes a macro"));
    emit Changed();
}

bool MacroRecording::HasCode()
{
    Catch();
    return Running() && !recorder->Source().isEmpty();
}

RecordedMacro MacroRecording::Stop()
{
    Catch();
    RecordedMacro recorded;
    recorded.Code = recorder->Source();
    if (!recorded.Code.isEmpty())
        recorded.Code.prepend(QStringLiteral("# A recorded macro: say here what it does, and to which text.\n"));
    recorded.NotReplayed = recorder->NotReplayed();
    recorded.NotReplayed.removeDuplicates();
    recorder.reset();
    if (pane)
        disconnect(pane, nullptr, this, nullptr);
    sign->hide();
    emit Changed();
    return recorded;
}

void MacroRecording::Watch(EditorPane& wanted)
{
    if (pane)
        disconnect(pane, nullptr, this, nullptr);
    pane = &wanted;
    path = Frame.CurrentFolder + Frame.CurrentFile;
    connect(pane, &EditorPane::TextChanged, this, &MacroRecording::Note);
    connect(pane, &EditorPane::SelectionChanged, this, &MacroRecording::Note);
    connect(pane, &EditorPane::CommandBegins, this, &MacroRecording::CommandBegins);
    connect(pane, &EditorPane::CommandDone, this, &MacroRecording::CommandDone);
}

/// Something has changed. What it was is looked at behind the event, or in front of the next command.
void MacroRecording::Note()
{
    if (!Running() || inCommand || rows > 0)
        return;
    happened = true;
    soon.start();
}

void MacroRecording::Catch()
{
    if (!Running() || !happened || inCommand || AnyRun())
        return;
    happened = false;
    if (pane != &CurrentPane())
        CannotReplay(QStringLiteral("Going to another tab"));
    else if (path != Frame.CurrentFolder + Frame.CurrentFile)
        CannotReplay(QStringLiteral("Opening another text"));
    else
        recorder->Changed(MomentOf(*pane));
}

void MacroRecording::CannotReplay(const QString& name)
{
    happened = false;
    Watch(CurrentPane());
    recorder->CannotReplay(name, MomentOf(*pane));
}

void MacroRecording::RowBegins(const CommandRow& row)
{
    if (!Running() || IsNumbered(row))
        return;
    Catch();
    ++rows;
}

void MacroRecording::RowDone(const CommandRow& row)
{
    if (!Running() || rows == 0 || IsNumbered(row))
        return;
    if (--rows == 0)
        CannotReplay(QString::fromLatin1(row.Caption));
}

void MacroRecording::CommandBegins()
{
    if (rows > 0 || AnyRun())
        return;
    Catch();
    inCommand = true;
}

void MacroRecording::CommandDone(int number)
{
    if (!std::exchange(inCommand, false))
        return;
    happened = false;
    recorder->Command(number, MomentOf(*pane), pane->FindText(), pane->ReplaceText());
}

/// A macro is no part of one that is recorded.
void MacroRecording::WorkChanged()
{
    if (!Running() || rows > 0)
        return;
    const RunScope* run = RunInFront();
    if (run && run->Kind() == RunKind::Macro && macro.isEmpty()) {
        macro = run->Name();
    } else if (!AnyRun() && !macro.isEmpty()) {
        CannotReplay(QStringLiteral("The macro ") + std::exchange(macro, QString()));
    }
}
