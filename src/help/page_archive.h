#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QHash>

/// All entries of the help archive by name (at most 64 MB of them). Failure: the archive's path, and the entry and
/// the reason; nothing is given back of an archive that cannot be read whole.
[[nodiscard]] Result<QHash<QString, QByteArray>> ReadPageArchive(const QString& path);
