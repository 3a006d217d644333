#pragma once

#include "platform/processes/counted_turn.h"
#include "sets/set_tree.h"

/// A scan of folders. Links to folders are followed, circles end: what is reached by a link is looked at once, and
/// never if it holds the link.
struct FolderScan
{
    QString Pattern; ///< letter case ignored
    bool Recursive = true;
    bool OneIsEnough = false; ///< one hit a folder
    bool FirstFolderOnly = false;
};

struct ScannedFolder
{
    QString Folder; ///< "/" at the end
    QStringList Files;
};

/// The folders below and including `folder` that hold files of the pattern, with these. Folders that cannot be read are
/// passed over. `turn` is told how many folders have been looked at.
[[nodiscard]] Result<std::vector<ScannedFolder>> GetFiles(const QString& folder, const FolderScan& scan,
                                                          const CountedTurn& turn = {});

/// Every folder with a level and every zipped game below the roots ("/" at their ends).
[[nodiscard]] Result<std::vector<SetNode>> ScanSets(const QStringList& roots, const CountedTurn& turn = {});
