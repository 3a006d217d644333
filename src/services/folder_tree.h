#pragma once

#include "platform/files/file_steps.h"
#include "platform/processes/counted_turn.h"
#include "platform/result.h"

#include <vector>

/// One entry of a folder's tree.
struct TreeEntry
{
    QString Path; ///< below the folder, with "/" between
    FileFacts Facts{};

    bool IsFolder() const { return S_ISDIR(Facts.st_mode); }
    bool IsLink() const { return S_ISLNK(Facts.st_mode); }
    bool IsFile() const { return S_ISREG(Facts.st_mode); }
};

/// All that lies in a folder and below it, each folder before what it holds. Links are entries like others and are not
/// followed. Fails for a folder that cannot be read, for one on another file system and for paths longer than any.
[[nodiscard]] Result<std::vector<TreeEntry>> FolderTree(const QString& folder, const CountedTurn& turn = {});
