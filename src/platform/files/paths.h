#pragma once

#include "platform/result.h"

#include <QByteArrayView>
#include <functional>

/// Every look at a path or a file's bytes goes through here. Inside the program "/" parts folders; text from a
/// macro, an ini or a conf file may hold "\" or "/". Folder texts end with "/" wherever they are stored.
namespace paths {

/// Told path to the inner form: "\" becomes "/", a leading "~/" the home folder. Touches no disk.
QString Inside(const QString& told);

/// The path as it stands on disk: exact if it exists, else looked up without regard to letter case, folder by
/// folder. Empty if there is none or if two names fit.
QString Existing(const QString& told);

/// For a file that may not exist yet: Existing if it does, else existing parents resolved in the same way and the new
/// name as given. Where a parent is missing or two names fit, the rest of the path comes back as given.
QString ForWriting(const QString& told);

/// Links, "." and ".." resolved, so that two spellings of one file compare equal. A path that does not exist
/// comes back cleaned, its existing parents resolved.
QString Canonical(const QString& path);

bool FileExists(const QString& told);   ///< a file, by Existing
bool FolderExists(const QString& told); ///< a folder, by Existing

/// The mount point (or "/") that stands for the "first three characters" of a path.
QString Root(const QString& path);

/// `folder` with a trailing "/"; empty stays empty.
QString Closed(const QString& folder);

/// Up to and including the last "/" (or "\"); empty if there is none.
QString FolderOfPath(const QString& path);

/// The last component; empty if the path ends with a separator.
QString FileNameOfPath(const QString& path);

/// Name of the folder that holds the path's last component.
QString ParentName(const QString& path);

/// The path as the desktop shows it.
QString Native(const QString& path);

/// Writes a file whole or leaves the old one: link resolved, bytes beside the target, every step checked and
/// synced, permissions, owner and extended attributes kept, renamed over, folder synced. A folder without write
/// permission whose file is writable is written in place, see in_place.h. Failure: path and the system's reason.
/// `before` runs when the new bytes lie safely elsewhere and no old one was touched yet; its failure ends the write.
using BeforeReplace = std::function<Result<>()>;
[[nodiscard]] Result<> WriteWhole(const QString& path, QByteArrayView bytes, const BeforeReplace& before = {});

/// The same for what is nobody else's business, such as recovery copies: mode 0600, missing folders made with 0700.
[[nodiscard]] Result<> WriteWholePrivate(const QString& path, QByteArrayView bytes);

/// For files of this program's own temporary folders, which nobody needs after a crash: every step is checked, nothing
/// synced. A file or link that stands there is replaced, so that nothing is written through it.
[[nodiscard]] Result<> WriteScratch(const QString& path, QByteArrayView bytes);
[[nodiscard]] Result<> AppendScratch(const QString& path, QByteArrayView bytes); ///< made if there is none

/// Reads a file whole. Fails for a folder, a device, an unreadable file and for more than `limit` bytes.
[[nodiscard]] Result<QByteArray> ReadWhole(const QString& path, qint64 limit);

/// Takes a file's bytes in order, as ReadPieces reads them.
class PieceTaker
{
public:
    virtual ~PieceTaker() = default;
    virtual void Begin(qint64 sizeHint) = 0; ///< the file is open; it may yet turn out longer or shorter
    virtual void Take(QByteArrayView piece) = 0;
};

/// ReadWhole without a second copy of the bytes. A failure after Begin leaves `taker` with a part of the file.
[[nodiscard]] Result<> ReadPieces(const QString& path, qint64 limit, PieceTaker& taker);

/// Copies bytes and permissions to a new path; fails if `to` exists.
[[nodiscard]] Result<> CopyFileTo(const QString& from, const QString& to);

/// Makes FolderOfPath of `path` the process's current folder, if `path` exists; else nothing changes.
void ChangeToFolder(const QString& path);

/// Largest file a pane loads.
constexpr qint64 LargestDocument = qint64(1) << 30;

} // namespace paths
