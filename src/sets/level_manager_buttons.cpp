#include "frame/documents/documents.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/messages/asker.h"
#include "frame/run_scope.h"
#include "game/launcher.h"
#include "platform/files/paths.h"
#include "services/archive_tool.h"
#include "sets/dropped_set.h"
#include "sets/install_tapes.h"
#include "sets/level_manager.h"
#include "sets/set_archives.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace {

const QString NoGame = QStringLiteral("*NONE*");

/// Is a file of the game open in one of the tabs?
bool IsPartlyOpen(const QString& folder)
{
    const QString below = paths::Closed(paths::Canonical(folder)).toLower();
    return std::any_of(Frame.Documents.begin(), Frame.Documents.end(), [&](const Document& document) {
        return HasFile(document) && paths::Canonical(document.Path).toLower().startsWith(below);
    });
}

} // namespace

/// Something is under way that takes time.
struct LevelManager::WorkingScope
{
    explicit WorkingScope(LevelManager& of) : manager(of)
    {
        if (++manager.works == 1)
            emit manager.WorksChanged();
    }
    ~WorkingScope()
    {
        if (--manager.works == 0)
            emit manager.WorksChanged();
    }
    WorkingScope(const WorkingScope&) = delete;
    WorkingScope& operator=(const WorkingScope&) = delete;

    LevelManager& manager;
};

/// Does work that takes time, the main window disabled. False, with `why`, if it failed or was stopped.
bool LevelManager::Run(const QString& text, const std::function<Result<>(const CountedTurn&)>& work, Failure& why)
{
    const WorkingScope working(*this);
    RunScope scope(RunKind::Archive, text);
    emit Busy(text);
    ::Busy().SetEnabled(false);
    const Result<> done = work([&](int far, int of) {
        emit Progressed(far, of);
        return scope.Turn();
    });
    ::Busy().SetEnabled(true);
    emit Busy({});
    if (!done)
        why = done.error();
    return done.has_value();
}

/// The same for a game that is to change its form. What hinders is told, by message `failed`.
bool LevelManager::SwapForms(const QString& text, const std::function<Result<SwappedSet>(const CountedTurn&)>& swap,
                             message::Number failed, SwappedSet& swapped)
{
    Failure why;
    const bool done = Run(
        text,
        [&](const CountedTurn& turn) { return swap(turn).map([&](const SwappedSet& outcome) { swapped = outcome; }); },
        why);
    if (done)
        return true;
    emit Told(WasStopped(why) ? QStringLiteral("Stopped; the game is as it was.") : why.Text().replace(u'^', u' '));
    if (!WasStopped(why))
        ShowMessage(failed);
    return false;
}

void LevelManager::TakeForm(int node, const QString& key)
{
    Tree.Replace(node, {key, Tree.Nodes().at(size_t(node)).Text});
    SelectNode(node);
}

void LevelManager::Play()
{
    const WorkingScope working(*this);
    emit Told(QStringLiteral("The game is running. Esc ends it."));
    LaunchGame(0, true);
    emit Told({});
}

void LevelManager::Set()
{
    WriteCurrentGame(SelectedNode()->Key, false);
    ReadCurrentGame();
}

void LevelManager::SetAndPlay()
{
    WriteCurrentGame(SelectedNode()->Key, false);
    Play();
    ReadCurrentGame();
}

void LevelManager::Zip()
{
    const int node = selected;
    const SetNode game = *SelectedNode();
    if (IsPartlyOpen(game.Key)) {
        ShowMessage(message::ConfStillOpen);
        return;
    }
    const QString archive = game.Folder() + QStringLiteral(".levzip");
    if (QFileInfo::exists(archive) && !Confirmed(message::OverwriteZip))
        return;
    const bool wasSet = NameInGame(game).toLower() == CurrentGame;
    SwappedSet swapped;
    const auto zip = [&](const CountedTurn& turn) { return ZipSet(game.Key, archive, turn); };
    if (!SwapForms(QStringLiteral("Zipping game, please wait........."), zip, message::ZipFailed, swapped))
        return;
    if (swapped.OldFormStays) {
        emit Told(swapped.Why.Text().replace(u'^', u' '));
        ShowMessage(message::ZippedFolderStays);
    }
    TakeForm(node, archive);
    if (!wasSet)
        return;
    WriteName(NoGame);
    CurrentGame = NoGame;
    Tree.SetCurrentNode(-1);
    emit CurrentGameShown(NoGame);
}

void LevelManager::InstallTapes()
{
    const SetNode game = *SelectedNode();
    if (!paths::FolderExists(TapesFolder)) {
        if (!Confirmed(message::MakeTapesFolder))
            return;
        if (!QDir().mkpath(TapesFolder)) {
            ShowFailure({TapesFolder, qt_error_string(errno)});
            return;
        }
    }
    const auto tapes = FindTapes(game.Key);
    if (!tapes || tapes->Files.isEmpty()) {
        ShowMessage(message::NoTapes);
        return;
    }
    if (!Confirmed(message::InstallTapes))
        return;
    const auto backups = CopyTapes(*tapes, TapesFolder + game.OwnName());
    if (!backups)
        ShowFailure(backups.error());
    else if (*backups > 0)
        emit Told(QStringLiteral("Tapes of your own that stood there were kept as backups: %1.").arg(*backups));
    else
        emit Told(QStringLiteral("Tapes installed: %1.").arg(tapes->Files.size()));
}

void LevelManager::ViewFolder()
{
    static_cast<void>(AskText(FileQuestion{.For = FileQuestion::Open,
                                           .Title = QStringLiteral("Viewing contents of level"),
                                           .Filter = QStringLiteral("*.*|*.*"),
                                           .Folder = SelectedNode()->Key,
                                           .Preset = {}}));
}

bool LevelManager::UnzipGame(bool keepArchive)
{
    const int node = selected;
    const SetNode game = *SelectedNode();
    const QString folder = game.Folder();
    if (QFileInfo::exists(folder) && !Confirmed(message::OverwriteUnzipped))
        return false;
    SwappedSet swapped;
    const auto unzip = [&](const CountedTurn& turn) { return UnzipSet(game.Key, keepArchive, turn); };
    if (!SwapForms(QStringLiteral("Unzipping game, please wait........."), unzip, message::UnzipFailed, swapped))
        return false;
    LastUnzipped = folder;
    if (swapped.OldFormStays)
        ShowFailure(swapped.Why);
    if (!keepArchive)
        TakeForm(node, folder);
    return true;
}

void LevelManager::Unzip()
{
    UnzipGame(false);
}

void LevelManager::UnzipAndSet()
{
    if (!UnzipGame(false))
        return;
    WriteCurrentGame(SelectedNode()->Key, false);
    ReadCurrentGame();
}

void LevelManager::UnzipSetAndPlay()
{
    if (!UnzipGame(false))
        return;
    WriteCurrentGame(SelectedNode()->Key, false);
    Play();
    ReadCurrentGame();
}

void LevelManager::UnzipPlayAndDelete()
{
    const QString archive = SelectedNode()->Key;
    if (!UnzipGame(true))
        return;
    SavedGame = NameInFile().value_or(NoGame);
    WriteCurrentGame(LastUnzipped, true);
    Play();
    WriteName(SavedGame);
    if (!QFileInfo::exists(LastUnzipped))
        return;
    const Result<bool> removed = RemoveUnzipped(LastUnzipped, archive);
    if (!removed)
        ShowFailure(removed.error());
    else if (!*removed)
        emit Told(QStringLiteral("The folder has changed while it was played, so it stays: ") +
                  paths::Native(LastUnzipped));
}

void LevelManager::ViewZip()
{
    const SetNode game = *SelectedNode();
    const auto entries = ListZip(game.Key);
    if (!entries) {
        ShowFailure(entries.error());
        return;
    }
    static_cast<void>(
        Ask(ZipEntryQuestion{.Title = paths::Native(game.Key.mid(RootOf(game).size())), .Entries = *entries}));
}

void LevelManager::TakeArchive(const QString& path)
{
    const Result<QString> taken = TakeDroppedSet(path, Roots);
    if (!taken) {
        ShowFailure(taken.error());
        return;
    }
    hasList = true;
    SelectNode(Tree.Add(NodeOf(*taken, Roots)));
}
