#include "macro/start_macro.h"

#include "frame/documents/documents.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "frame/run_scope.h"
#include "macro/known_macros.h"
#include "macro/macro_file.h"
#include "macro/macro_ports.h"
#include "macro/macro_powers.h"
#include "macro/pane_stage.h"
#include "macro/run_macro.h"
#include "platform/files/paths.h"

#include <QFileInfo>

namespace {

/// May a macro run, and how? Asks about one whose file has not run here yet.
NewMacroChoice MayStart(const QString& path, const QStringList& lines)
{
    const QByteArray hash = MacroHash(path);
    if (!MacroWindows.AskAboutNew || !Frame.Settings.AskBeforeMacros || IsKnownMacro(hash))
        return NewMacroChoice::Run;
    const int powers = PowersOf(lines);
    const NewMacroChoice choice = MacroWindows.AskAboutNew({QFileInfo(path).fileName(), powers, CanRunOnCopy(powers)});
    if (choice == NewMacroChoice::Run)
        RememberMacro(hash);
    return choice;
}

/// The main window disabled, and an undo group open on the pane.
class MacroFrame
{
public:
    explicit MacroFrame(EditorPane& ofRun) : pane(ofRun)
    {
        Busy().SetEnabled(false);
        pane.ExecuteCmd(CmdOpenUndoGroup);
    }
    ~MacroFrame()
    {
        pane.ExecuteCmd(CmdCloseUndoGroup);
        Busy().SetEnabled(true);
        paths::ChangeToFolder(Frame.CurrentFolder);
        Panes().FocusPane();
        ShowCurrentPath();
        UpdateCaretStatus(pane);
    }
    MacroFrame(const MacroFrame&) = delete;
    MacroFrame& operator=(const MacroFrame&) = delete;

private:
    EditorPane& pane;
};

void RunOn(EditorPane& pane, const MacroRequest& request, bool onCopy)
{
    const MacroFrame frame(pane);
    PaneStage stage(pane);
    if (onCopy)
        stage.KeepApart();
    {
        RunScope scope(RunKind::Macro, QFileInfo(request.Path).completeBaseName());
        RunMacro(request, stage, scope);
    }
    const MacroChanges changes{QFileInfo(request.Path).fileName(), pane.Bytes().toByteArray(),
                               onCopy ? stage.Copy().Bytes().toByteArray() : QByteArray()};
    if (!onCopy || !MacroWindows.TakeChanges || MacroWindows.TakeChanges(changes))
        stage.WriteBack();
}

} // namespace

void StartMacro(const QString& path)
{
    if (IsWorkHeldUp() || !IsRndPathSet())
        return;
    Panes().FocusPane();
    if (!paths::FileExists(path))
        return;
    const Result<QByteArray> source = ReadMacroSource(path);
    if (!source) {
        TellUnreadableMacro(path, source.error());
        return;
    }
    MacroRequest request;
    request.Source = PrepareSource(SourceFromBytes(*source));
    request.Path = path;
    request.Folder = Frame.CurrentFolder;
    const NewMacroChoice choice = MayStart(path, request.Source.Lines);
    if (choice != NewMacroChoice::Cancel)
        RunOn(CurrentPane(), request, choice == NewMacroChoice::RunOnCopy);
}

QString MacroOfKey(QChar key)
{
    const QString start = QString(u'$') + key.toLower();
    const MediaListModel& macros = Lists().Macros;
    for (int row = 0; row < macros.rowCount(); ++row)
        if (macros.Name(row).toLower().startsWith(start))
            return Frame.MacrosFolder + macros.Name(row);
    return {};
}
