#pragma once

#include "platform/processes/counted_turn.h"
#include "platform/result.h"

/// Level sets packed and unpacked. At each moment, whatever ends the process, a set is there whole in one form at
/// least: what is to go goes only when its replacement stands in its place, is synced and was read again and compared.

struct SwappedSet
{
    bool OldFormStays = false; ///< the replacement stands, but the old form could not be removed
    Failure Why;               ///< of that
};

/// Packs a set's folder (without "/" at the end) into an archive, over one that stands there, and removes the folder.
/// A link to a folder is refused. A failure or stop leaves folder and older archive as they were.
[[nodiscard]] Result<SwappedSet> ZipSet(const QString& folder, const QString& archive, const CountedTurn& turn = {});

/// Unpacks an archive beside itself into the folder of its base name, over one that stands there, and removes the
/// archive unless it is to be kept. Fails if the archive holds anything but that one folder.
[[nodiscard]] Result<SwappedSet> UnzipSet(const QString& archive, bool keepArchive, const CountedTurn& turn = {});

/// Do an archive and the folder that it holds have the same files, byte for byte, and no others? Fails if either cannot
/// be read. `difference` is told the first path in which they differ.
[[nodiscard]] Result<bool> IsSameSet(const QString& folder, const QString& archive, const CountedTurn& turn = {},
                                     QString* difference = nullptr);

/// Removes a folder that was unpacked from an archive, which stays. False, and nothing is removed, if the two differ.
[[nodiscard]] Result<bool> RemoveUnzipped(const QString& folder, const QString& archive);

/// The folder that an archive is unpacked to, without "/" at the end.
QString UnzippedFolder(const QString& archive);
