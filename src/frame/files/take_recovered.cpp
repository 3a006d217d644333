#include "frame/files/take_recovered.h"

#include "frame/files/file_commands.h"
#include "frame/files/tab_commands.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/recovery/recovery.h"
#include "platform/files/paths.h"

namespace {

bool IsFree(int tab)
{
    const Document& document = Frame.Documents.at(tab);
    return document.Face.Visible && !HasFile(document) && !Panes().Pane(tab).Modified();
}

/// The tab for a text: the one with its file, an empty one or a new one; -1 if all are taken.
int TabFor(const RecoveredText& text)
{
    const int holder = text.DocumentPath.isEmpty() ? -1 : TabWithFile(text.DocumentPath);
    if (holder >= 0)
        return holder;
    for (int tab = 0; tab < 8; ++tab)
        if (IsFree(tab))
            return tab;
    OpenNewTab();
    const int opened = Panes().SelectedTab();
    return IsFree(opened) ? opened : -1;
}

/// The kept text as an edit of what the tab or else the file holds, so that undo shows that again.
void PutText(int tab, const RecoveredText& text)
{
    DocumentText& pane = Panes().Pane(tab);
    if (!HasFile(Frame.Documents.at(tab))) {
        const bool onDisk = !text.DocumentPath.isEmpty();
        pane.LoadBytes(onDisk ? paths::ReadWhole(text.DocumentPath, paths::LargestDocument).value_or(QByteArray())
                              : QByteArray());
    }
    pane.ReplaceLines(0, qMax(0, pane.LineCount() - 1), FromFile(text.Bytes, EncodingOf(text.Bytes)));
    pane.SetEncoding(text.Encoding);
    pane.SetLineEnd(text.LineEnd);
    pane.SetModified(true);
}

void Fill(int tab, const RecoveredText& text)
{
    PutText(tab, text);
    Document& document = Frame.Documents.at(tab);
    document.Mode = text.Mode;
    document.Path = Frame.ProgramFolder;
    document.Face.Caption = EmptyCaption;
    if (text.DocumentPath.isEmpty())
        return;
    document.Path = text.DocumentPath;
    document.Face.Caption = u' ' + RecentDisplayName(text.DocumentPath, true).left(10);
    document.ForeignText = true; // its file may have changed since: the next save asks
    NoteDiskState(tab);
}

} // namespace

bool TakeRecovered(const RecoveredText& text)
{
    if (text.Code) {
        Tools().ShowCode(text);
        return true;
    }
    const int tab = TabFor(text);
    if (tab < 0)
        return false;
    if (Panes().Pane(tab).Modified() && Frame.Keeper) {
        if (const Result<> kept = Frame.Keeper->KeepApart(tab); !kept) {
            ShowFailure(kept.error());
            return false;
        }
    }
    Fill(tab, text);
    ShowTab(tab);
    Panes().SelectTab(tab);
    ActivateTab();
    if (Frame.Keeper && Frame.Keeper->KeepAllNow()) // until then the old copy is the only one
        Frame.Keeper->Forget(text);
    return true;
}
