#pragma once

#include "platform/result.h"

#include <QStringList>

/// The tapes that come with a game: of the first folder in it that has some.
struct FoundTapes
{
    QString Folder; ///< "/" at the end
    QStringList Files;
};
[[nodiscard]] Result<FoundTapes> FindTapes(const QString& gameFolder);

/// Copies them into a folder, which is made if need be, over what stands there. A tape that differs from the one which
/// takes its place is kept as a numbered backup first. Gives back how many backups that took.
[[nodiscard]] Result<int> CopyTapes(const FoundTapes& tapes, const QString& target);
