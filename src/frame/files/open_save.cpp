#include "frame/files/file_commands.h"
#include "frame/files/put_back.h"
#include "frame/files/tab_commands.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/inject_path.h"
#include "frame/recovery/recovery.h"
#include "platform/files/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <optional>

namespace {

class BusyScope
{
public:
    BusyScope() { Busy().BusyPointer(true); }
    ~BusyScope() { Busy().BusyPointer(false); }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;
};

QString Absolute(const QString& path)
{
    return QDir::isAbsolutePath(path) ? path : QDir::current().absoluteFilePath(path);
}

void TakePath(const QString& path)
{
    Frame.CurrentFolder = paths::FolderOfPath(path);
    Frame.CurrentFile = paths::FileNameOfPath(path);
    ShowCurrentPath();
}

void NameTab(const QString& caption, const QString& path)
{
    Document& document = Frame.Documents.at(Frame.CurrentTab);
    document.Face.Caption = u' ' + caption.left(10);
    document.Path = path;
    ShowTab(Frame.CurrentTab);
}

void Settle(int tab)
{
    Frame.Documents.at(tab).ForeignText = false;
    NoteDiskState(tab);
    if (Frame.Keeper)
        Frame.Keeper->TextSettled(tab);
}

void ShowLoadedText()
{
    EditorPane& pane = CurrentPane();
    if (pane.LineCount() == 0) {
        pane.AddText({});
        pane.ClearUndoBuffer();
    }
    pane.SetModified(false);
    pane.ExecuteCmd(CmdDocumentStart);
    UpdateCaretStatus(pane);
}

/// Keeps the unsaved text of a tab that is about to be emptied; false, with message 105, if it can be kept nowhere.
bool KeepText(int tab)
{
    if (!Panes().Pane(tab).Modified() || !Frame.Keeper)
        return true;
    const Result<> kept = Frame.Keeper->KeepApart(tab);
    if (!kept)
        ShowFailure(kept.error());
    return kept.has_value();
}

/// The questions before a save; false: the user does not want it. `asNamed`: the user named the file just so. `sure`:
/// another file may be written over.
bool MayWrite(const QString& path, bool ownPath, bool asNamed, bool sure)
{
    const Document& document = Frame.Documents.at(Frame.CurrentTab);
    if (ownPath && !document.ForeignText && ChangedOnDisk(Frame.CurrentTab)) {
        if (!Confirmed(message::OverwriteChanged, paths::Native(path)))
            return false;
    } else if (!sure && (!ownPath || !asNamed || document.ForeignText) && paths::FileExists(path) &&
               !Confirmed(message::OverwriteFile)) {
        return false;
    }
    EditorPane& pane = CurrentPane();
    if (pane.FitsEncoding())
        return true;
    if (!Confirmed(message::ChangeToUtf8, paths::Native(path)))
        return false;
    pane.SetEncoding(FileEncoding::Utf8);
    return true;
}

/// The backup of one save: made when the new bytes lie safely beside, taken away again if the save fails all the same.
class SaveBackup
{
public:
    Result<> Make(const QString& path)
    {
        const Result<QString> backup = MakeBackup(path);
        refused = !backup && !Confirmed(message::NoBackup, backup.error().Text());
        made = backup.value_or(QString());
        return refused ? Result<>(tl::unexpected(backup.error())) : Result<>();
    }
    const QString& Path() const { return made; }
    bool Refused() const { return refused; } ///< by the user, who knows why
    void TakeAway() const
    {
        if (!made.isEmpty())
            QFile::remove(made);
    }

private:
    QString made;
    bool refused = false;
};

/// The current text into its file: the path of its backup, empty without one; nothing if it was not written, for what
/// was told.
std::optional<QString> Write(const QString& path, bool withBackup)
{
    SaveBackup backup;
    const auto before = [&] { return withBackup ? backup.Make(path) : Result<>(); };
    const Result<> written = CurrentPane().SaveFile(path, false, before);
    if (written)
        return backup.Path();
    backup.TakeAway();
    if (!backup.Refused())
        ShowFailure(written.error());
    return {};
}

bool Save(const QString& told, bool backup, bool sure = false)
{
    const QString path = Absolute(paths::ForWriting(told));
    const int holder = TabWithFile(path);
    const bool ownPath = holder == Frame.CurrentTab;
    const bool asNamed = paths::FileNameOfPath(path) == paths::FileNameOfPath(told);
    if (!MayWrite(path, ownPath, asNamed, sure))
        return false;
    const bool givesWay = !ownPath && holder >= 0;
    const bool unsaved = givesWay && Panes().Pane(holder).Modified();
    if (givesWay && !KeepText(holder))
        return false;
    // Written before anything gives way, so that a failure leaves every tab as it was.
    const std::optional<QString> written = Write(path, backup);
    if (!written)
        return false;
    if (!ownPath) {
        if (givesWay)
            EmptySlot(holder);
        TakePath(path);
        SetMode(ModeFromFileName(Frame.CurrentFile.trimmed()));
        NameTab(paths::Native(path), path);
    }
    Settle(Frame.CurrentTab);
    RecentAdd(path);
    const QString number = written->section(u'_', -1).section(u'.', 0, 0); // of "_003.GemforgeBackup"
    ShowNotice(unsaved            ? QStringLiteral("The unsaved text of the replaced tab was kept for recovery.")
               : number.isEmpty() ? QStringLiteral("Saved")
                                  : QStringLiteral("Saved, backup _") + number);
    return true;
}

/// What shows files whose bytes are not for a tab.
using ShowInTool = void (ToolPort::*)(const QString& path);
struct ToolFile
{
    QLatin1StringView Ending;
    ShowInTool Show;
};
constexpr ToolFile ToolFiles[] = {
    {QLatin1StringView(".levzip"), &ToolPort::ShowZippedSet},
    {QLatin1StringView(".gfb"), &ToolPort::ShowMacro},
    {QLatin1StringView(".gfbasic"), &ToolPort::ShowMacro},
};

ShowInTool ToolFor(const QString& path)
{
    for (const ToolFile& row : ToolFiles)
        if (path.endsWith(row.Ending, Qt::CaseInsensitive))
            return row.Show;
    return nullptr;
}

} // namespace

Result<QString> MakeBackup(const QString& path)
{
    if (!paths::FileExists(path))
        return QString();
    for (int n = 0;; ++n) {
        const QString backup = path + QStringLiteral("_%1.GemforgeBackup").arg(n, 3, 10, QLatin1Char('0'));
        if (!QFileInfo::exists(backup))
            return paths::CopyFileTo(path, backup).map([&] { return backup; });
    }
}

bool OpensInTab(const QString& path)
{
    return !ToolFor(path);
}

bool OpenDocument(const QString& told, bool force)
{
    StopPreview();
    const BusyScope busy;
    const QString existing = paths::Existing(told);
    const QString path = Absolute(existing.isEmpty() ? paths::Inside(told) : existing);
    if (const ShowInTool show = ToolFor(path); show && !existing.isEmpty()) {
        (Tools().*show)(path);
        return false;
    }
    const int holder = force ? -1 : TabWithFile(path);
    if (holder >= 0) {
        Panes().SelectTab(holder);
        ActivateTab();
        FlashTabCaption(holder);
        return true;
    }
    PutBackIn(paths::FolderOfPath(path));
    const Result<> loaded = CurrentPane().OpenFile(path);
    if (!loaded) {
        ShowFailure(loaded.error());
        return false;
    }
    TakePath(path);
    SetMode(ModeFromFileName(Frame.CurrentFile.toLower().trimmed()));
    ShowLoadedText();
    RecentAdd(path);
    NameTab(RecentDisplayName(path, true), path);
    Settle(Frame.CurrentTab);
    ApplyStoredInjectPath();
    return true;
}

void SaveCommand()
{
    if (Frame.CurrentFile.isEmpty())
        SaveDocumentAs();
    else
        Save(Frame.CurrentFolder + Frame.CurrentFile, Frame.Settings.BackupOnSave == 1);
}

bool SaveDocument(const QString& path)
{
    return Save(path, false);
}

bool SaveDocumentOver(const QString& path)
{
    return Save(path, Frame.Settings.BackupOnSave == 1, true);
}

Result<> WriteWithBackup(DocumentText& text, const QString& path)
{
    SaveBackup backup;
    const auto before = [&] { return Frame.Settings.BackupOnSave == 1 ? backup.Make(path) : Result<>(); };
    Result<> written = text.SaveFile(path, false, before);
    if (!written)
        backup.TakeAway();
    return written;
}
