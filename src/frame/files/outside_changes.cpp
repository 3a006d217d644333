#include "frame/files/file_commands.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/recovery/recovery.h"
#include "frame/run_scope.h"
#include "platform/files/paths.h"

#include <QFileInfo>
#include <vector>

namespace {

struct DiskState
{
    qint64 Size = -1, Time = 0;
};

DiskState StateOf(const QString& path)
{
    const QFileInfo file(path);
    if (!file.isFile())
        return {};
    return {file.size(), file.lastModified().toMSecsSinceEpoch()};
}

/// A file that was only touched, or already holds what its tab shows.
bool HoldsTextOf(int tab)
{
    const Result<QByteArray> bytes = paths::ReadWhole(Frame.Documents.at(tab).Path, paths::LargestDocument);
    return bytes && *bytes == Panes().Pane(tab).FileBytes();
}

QString PathList(const std::vector<int>& tabs)
{
    QStringList names;
    for (const int tab : tabs)
        names << paths::Native(Frame.Documents.at(tab).Path);
    return names.join(u'^');
}

void MarkUnsaved(int tab)
{
    Panes().Pane(tab).SetModified(true);
    if (Frame.Keeper)
        Frame.Keeper->TextEdited(tab);
}

/// The text of a tab anew from its file; unsaved text is kept for recovery. The caret stays where it can.
void LoadAgain(int tab)
{
    EditorPane& pane = Panes().Pane(tab);
    const Result<QByteArray> bytes = paths::ReadWhole(Frame.Documents.at(tab).Path, paths::LargestDocument);
    if (!bytes) {
        ShowFailure(bytes.error());
        return MarkUnsaved(tab);
    }
    if (pane.Modified() && Frame.Keeper) {
        if (const Result<> kept = Frame.Keeper->KeepApart(tab); !kept) {
            ShowFailure(kept.error());
            return MarkUnsaved(tab);
        }
    }
    const Range caret = pane.GetSel(true);
    pane.LoadBytes(*bytes);
    if (pane.LineCount() == 0)
        pane.AddText({});
    pane.SetModified(false);
    const int line = qMin(caret.StartLine, pane.LineCount() - 1);
    pane.SetSel({line, caret.StartCol, line, caret.StartCol}, true);
    Frame.Documents.at(tab).ForeignText = false;
    NoteDiskState(tab);
    if (Frame.Keeper)
        Frame.Keeper->TextSettled(tab);
    if (tab == Frame.CurrentTab)
        UpdateCaretStatus(pane);
}

} // namespace

void NoteDiskState(int tab)
{
    Document& document = Frame.Documents.at(tab);
    const DiskState now = StateOf(document.Path);
    document.DiskSize = now.Size;
    document.DiskTime = now.Time;
}

bool ChangedOnDisk(int tab)
{
    const Document& document = Frame.Documents.at(tab);
    const DiskState now = StateOf(document.Path);
    return now.Size >= 0 && (now.Size != document.DiskSize || now.Time != document.DiskTime);
}

void CheckChangedOutside()
{
    if (IsWorkHeldUp())
        return;
    std::vector<int> changed, gone;
    for (int tab = 0; tab < 8; ++tab) {
        const Document& document = Frame.Documents.at(tab);
        if (!HasFile(document))
            continue;
        if (ChangedOnDisk(tab)) {
            NoteDiskState(tab);
            if (!HoldsTextOf(tab))
                changed.push_back(tab);
        } else if (document.DiskSize >= 0 && StateOf(document.Path).Size < 0) {
            NoteDiskState(tab);
            gone.push_back(tab);
        }
    }
    // Noted above: the question itself takes the focus and gives it back.
    if (!gone.empty()) {
        for (const int tab : gone)
            MarkUnsaved(tab);
        ShowMessage(message::FilesVanished, PathList(gone));
    }
    if (changed.empty())
        return;
    const bool again = Confirmed(message::ChangedOutside, PathList(changed));
    for (const int tab : changed)
        again ? LoadAgain(tab) : MarkUnsaved(tab);
}
