#include "game/extract.h"

#include "conf/line_pass.h"
#include "frame/editor_pane.h"
#include "frame/files/closed_tabs.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/recovery/recovery.h"
#include "game/game_folders.h"
#include "game/launcher.h"
#include "platform/files/paths.h"

namespace {

constexpr int HeadLines = 3; ///< comment lines that stay comments

/// What the pane shows now came from another file than the tab's path names.
void MarkForeign(int tab)
{
    Frame.Documents.at(tab).ForeignText = true;
    if (Frame.Keeper && !Panes().Pane(tab).Modified())
        Frame.Keeper->TextSettled(tab);
}

bool LoadInto(DocumentText& pane, const QString& path)
{
    const Result<> loaded = pane.OpenFile(path);
    if (!loaded)
        ShowFailure(loaded.error());
    return loaded.has_value();
}

class HiddenPane
{
public:
    explicit HiddenPane(EditorPane& shownPane) : pane(shownPane) { pane.LockRedraw(true); }
    ~HiddenPane() { pane.LockRedraw(false); }
    HiddenPane(const HiddenPane&) = delete;
    HiddenPane& operator=(const HiddenPane&) = delete;

private:
    EditorPane& pane;
};

qsizetype StartOfLine(QByteArrayView text, int line)
{
    qsizetype from = 0;
    for (int i = 0; i < line && from < text.size(); ++i)
        TakeLine(text, from);
    return from;
}

void MakeEntriesLive(DocumentText& pane)
{
    if (pane.LineCount() <= HeadLines)
        return;
    const int last = pane.LineCount() - 1;
    const QByteArray entries = pane.Bytes().sliced(pane.LineStart(HeadLines)).toByteArray();
    pane.ReplaceLines(HeadLines, last, QByteArray(entries).replace("# ", ""));
}

} // namespace

QByteArray LiveEntries(const QByteArray& printed)
{
    const qsizetype head = StartOfLine(printed, HeadLines);
    return printed.first(head) + printed.sliced(head).replace("# ", "");
}

void ExtractFromGame(int dumpIndex)
{
    if (!IsRndPathSet() || !MayGiveUp(CurrentPane()))
        return;
    const int tab = Frame.CurrentTab;
    const auto report = LaunchGame(dumpIndex, false);
    paths::ChangeToFolder(Frame.CurrentFolder);
    if (!report)
        return;
    if (report->End == GameEnd::TimedOut)
        ShowNotice(QStringLiteral("The game did not end its printing in time, and was ended."));
    else if (report->Succeeded() && !paths::FileExists(PrintedFile()))
        ShowNotice(QStringLiteral("The game printed nothing. The text here is as it was."));
    if (!report->Succeeded() || !paths::FileExists(PrintedFile()))
        return;
    EditorPane& pane = Panes().Pane(tab);
    const HiddenPane hidden(pane);
    if (!LoadInto(pane, PrintedFile()))
        return;
    SetMode(DumpOf(dumpIndex).Mode);
    pane.ExecuteCmd(CmdDocumentStart);
    MakeEntriesLive(pane);
    pane.ExecuteCmd(CmdDocumentStart);
    MarkForeign(tab);
    UpdateCaretStatus(pane);
}

void ViewErrorLog()
{
    if (!IsRndPathSet())
        return;
    if (!paths::FileExists(ErrorLogFile())) {
        ShowMessage(message::NoErrorLog);
        return;
    }
    EditorPane& pane = CurrentPane();
    if (!MayGiveUp(pane) || !LoadInto(pane, ErrorLogFile()))
        return;
    SetMode(ModeTxt);
    pane.ExecuteCmd(CmdDocumentStart);
    MarkForeign(Frame.CurrentTab);
    UpdateCaretStatus(pane);
}
