#pragma once

#include "platform/processes/counted_turn.h"
#include "platform/result.h"

/// Files and folders copied, moved and removed whole. Paths are absolute and stand as they are on disk; one closing
/// separator is dropped. A link is never followed into another folder: it is copied as a link and removed as one.
namespace fso {

/// The path without a closing separator, unless that is all of it.
QString WithoutClosing(const QString& path);

/// `overwrite`: over a file that stands there, even a read-only one; else a target that exists fails. The new bytes
/// take the target's place only when they are whole. Permissions, attributes and times come along. A target that ends
/// with a separator is the folder to copy into.
[[nodiscard]] Result<> CopyFile(const QString& from, const QString& to, bool overwrite, const CountedTurn& turn = {});

/// Fails if the target exists.
[[nodiscard]] Result<> MoveFile(const QString& from, const QString& to, const CountedTurn& turn = {});

/// `force`: a read-only one too.
[[nodiscard]] Result<> DeleteFile(const QString& path, bool force);

/// A folder that stands there takes in what is copied; `overwrite`: over files of the same names, else one such name
/// fails before anything is copied. Fails for a target inside the source. What a failure or a stop leaves of a new
/// folder is removed.
[[nodiscard]] Result<> CopyFolder(const QString& from, const QString& to, bool overwrite, const CountedTurn& turn = {});

/// Fails if the target exists or lies inside.
[[nodiscard]] Result<> MoveFolder(const QString& from, const QString& to, const CountedTurn& turn = {});

/// A folder with all in it. Without `force` one read-only entry fails before anything is removed; so does another file
/// system below. A stop leaves what was not removed yet.
[[nodiscard]] Result<> DeleteFolder(const QString& path, bool force, const CountedTurn& turn = {});

/// One folder, in one that exists.
[[nodiscard]] Result<> CreateFolder(const QString& path);

} // namespace fso
