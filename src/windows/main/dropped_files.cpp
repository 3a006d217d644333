#include "windows/main/dropped_files.h"

#include "frame/documents/documents.h"
#include "frame/files/closed_tabs.h"
#include "frame/files/file_commands.h"
#include "frame/files/tab_commands.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "platform/files/paths.h"

#include <QFileInfo>
#include <algorithm>

namespace {

bool IsHeld(const QString& path)
{
    const QString wanted = paths::Canonical(path);
    return std::ranges::any_of(Frame.Documents, [&](const Document& document) {
        return HasFile(document) && paths::Canonical(document.Path) == wanted;
    });
}

/// The current tab, or a new one that becomes it, ready to take a file. False: the user keeps what stands there.
bool MakeRoom()
{
    const Document& current = Frame.Documents.at(Frame.CurrentTab);
    if (!HasFile(current) && !CurrentPane().Modified())
        return true;
    const int before = Panes().SelectedTab();
    OpenNewTab();
    if (Panes().SelectedTab() == before)
        return MayGiveUp(CurrentPane());
    ActivateTab();
    return true;
}

} // namespace

void OpenDroppedFiles(const QStringList& files)
{
    for (const QString& file : files) {
        const QFileInfo facts(file);
        const bool fails = !facts.isFile() || !facts.isReadable(); // and takes no tab
        if (fails || !OpensInTab(file) || IsHeld(file) || MakeRoom())
            OpenDocument(file, false);
    }
}

bool AnyLeavesItsName(const QStringList& files)
{
    return std::ranges::any_of(files, [](const QString& file) { return IsMediaName(file); });
}

void DropIntoText(const QStringList& files, const Range& at)
{
    QStringList names, others;
    for (const QString& file : files) {
        const QString name = paths::FileNameOfPath(file);
        const bool named = IsMediaName(name);
        (named ? names : others) << (named ? name : file);
    }
    if (!names.isEmpty() && CurrentPane().SetSel(at, false)) {
        InsertFileName(names.join(u' '));
        Panes().FocusPane();
    }
    OpenDroppedFiles(others);
}
