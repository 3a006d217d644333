#include "sets/level_manager.h"

#include "frame/frame_state.h"
#include "frame/run_scope.h"
#include "game/finding_places.h"
#include "game/game_folders.h"
#include "platform/files/paths.h"
#include "sets/get_files.h"
#include "sets/setup_file.h"

#include <QFile>
#include <algorithm>
#include <unistd.h>

namespace {

constexpr qint64 LargestSetup = qint64(1) << 20, LargestList = qint64(64) << 20;

QString ListFile()
{
    return Frame.ProgramFolder + QStringLiteral("rndlevels.lst");
}

QString GameFolderOf(const char* key)
{
    return paths::Closed(GameUserFolder() + GameCompat(QString::fromLatin1(key)));
}

} // namespace

LevelManager::LevelManager() = default;

QString LevelManager::Open()
{
    SettingsFolder = GameUserFolder();
    SetupFile = SettingsFolder + GameCompat(QStringLiteral("DefMyDocsRND2"));
    TapesFolder = GameFolderOf("DefMyDocsRND4");
    FindRoots();
    if (!paths::FolderExists(SettingsFolder))
        return QStringLiteral("Couldn't find the Rocks'n'Diamonds settings folder in 'Your Documents'. This could be "
                              "because you haven't played it yet!");
    if (!paths::FileExists(SetupFile))
        return QStringLiteral("Couldn't find levelsetup.conf in 'Your Documents'");
    if (const auto list = paths::ReadWhole(ListFile(), LargestList)) {
        Tree.Fill(NodesOfList(*list));
        hasList = true;
    }
    return {};
}

/// The player's own may have come into being since.
void LevelManager::FindRoots()
{
    Roots.clear();
    for (const QString& root : {Frame.Settings.LevelsFolder, GameFolderOf("DefMyDocsRND3")})
        if (paths::FolderExists(root) && (Roots.isEmpty() || paths::Canonical(Roots.front()) != paths::Canonical(root)))
            Roots << paths::Closed(root);
}

void LevelManager::Close()
{
    if (Tree.Nodes().empty())
        return;
    if (const Result<> written = paths::WriteWhole(ListFile(), SetListBytes(Tree.Nodes())); !written)
        ShowFailure(written.error());
}

void LevelManager::Scan()
{
    FindRoots();
    std::vector<SetNode> nodes;
    Failure why;
    const bool done = Run(
        QStringLiteral("Scanning the levels folder"),
        [&](const CountedTurn& turn) {
            return ScanSets(Roots, turn).map([&](std::vector<SetNode> all) { nodes = std::move(all); });
        },
        why);
    if (!done) {
        emit Told(WasStopped(why) ? QStringLiteral("The scan was stopped; the list is as it was.") : why.Text());
        return;
    }
    hasList = true;
    selected = -1;
    Tree.Fill(std::move(nodes));
    SelectNode(0);
    ReadCurrentGame();
}

void LevelManager::SelectNode(int node)
{
    selected = Tree.Nodes().empty() ? -1 : std::clamp(node, 0, Tree.rowCount() - 1);
    emit NodeSelected(selected);
}

const SetNode* LevelManager::SelectedNode() const
{
    return selected < 0 ? nullptr : &Tree.Nodes().at(size_t(selected));
}

QString LevelManager::RootOf(const SetNode& node) const
{
    for (const QString& root : Roots)
        if (paths::Closed(node.Key).startsWith(root, Qt::CaseInsensitive))
            return root;
    return paths::FolderOfPath(node.Key);
}

QString LevelManager::WhyClosed(const SetNode& node) const
{
    const QString folder = paths::FolderOfPath(node.Key);
    if (access(QFile::encodeName(folder), W_OK) == 0)
        return {};
    return QStringLiteral("This folder cannot be written: ") + paths::Native(folder);
}

QString NameInGame(const SetNode& node)
{
    const QByteArray conf = node.IsZipped()
                                ? QByteArray()
                                : paths::ReadWhole(paths::Closed(node.Key) + Frame.ConfNames.at(ModeLvl), LargestSetup)
                                      .value_or(QByteArray());
    const QString identifier = ConfIndex(conf).ValueOfKey(QStringLiteral("identifier"));
    return identifier.isEmpty() ? node.OwnName() : identifier;
}

void LevelManager::ReadCurrentGame()
{
    if (Tree.Nodes().empty())
        return;
    const auto name = NameInFile();
    CurrentGame = name.value_or(QString()).toLower();
    emit CurrentGameShown(CurrentGame);
    const auto& nodes = Tree.Nodes();
    const auto byName = [&](const SetNode& node) {
        return node.OwnName().toLower() == CurrentGame && NameInGame(node).toLower() == CurrentGame;
    };
    const auto byIdentifier = [&](const SetNode& node) { return NameInGame(node).toLower() == CurrentGame; };
    auto found = name ? std::find_if(nodes.begin(), nodes.end(), byName) : nodes.end();
    if (name && found == nodes.end())
        found = std::find_if(nodes.begin(), nodes.end(), byIdentifier);
    Tree.SetCurrentNode(found == nodes.end() ? -1 : int(found - nodes.begin()));
    SelectNode(std::max(Tree.CurrentNode(), 0));
}

std::optional<QString> LevelManager::NameInFile() const
{
    return LastLevelSeries(paths::ReadWhole(SetupFile, LargestSetup).value_or(QByteArray()));
}

void LevelManager::WriteCurrentGame(const QString& path, bool keepImages)
{
    WriteName(NameInGame({path, {}}));
    if (!keepImages)
        Tree.SetCurrentNode(selected);
}

void LevelManager::WriteName(const QString& name)
{
    const auto before = paths::ReadWhole(SetupFile, LargestSetup);
    if (!before) {
        ShowFailure(before.error());
        return;
    }
    const auto after = WithLastLevelSeries(*before, name);
    if (!after) {
        emit Told(QStringLiteral("levelsetup.conf has no line for the set game, so none was written."));
        return;
    }
    if (const Result<> written = paths::WriteWhole(SetupFile, *after); !written)
        ShowFailure(written.error());
}
