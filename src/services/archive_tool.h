#pragma once

#include "platform/processes/counted_turn.h"
#include "platform/result.h"
#include "services/unpacking.h"

#include <QByteArray>
#include <QStringList>

/// Zip archives as the program uses them. A macro's own archive holds its source "basic.txt", always first, and its
/// resources, all under short names. Zipped games and the archives of macro commands hold folders. An archive is only
/// ever replaced whole, whatever fails, and one that is encrypted or damaged is left alone.

/// Names of entries, with "/" between folders; a folder's own ends with it.
using ArchiveList = QStringList;

/// What the user is told of a failure in a macro's archive; the first three have messages of their own.
enum class ResourceFault { CannotAdd, NotFound, NoOutputFolder, Other };

struct ResourceFailure
{
    ResourceFault What;
    Failure Why;
};

template <class T = void>
using ResourceResult = tl::expected<T, ResourceFailure>;

/// Adds a file under its short name, or replaces the resource of that name. The archive is made if there is none.
[[nodiscard]] ResourceResult<> AddToResource(const QString& file, const QString& archive);
[[nodiscard]] ResourceResult<> AddBytesToResource(const QString& name, const QByteArray& bytes, const QString& archive);

/// The resource as the file `target`, over one that stands there.
[[nodiscard]] ResourceResult<> ExtractFromResource(const QString& name, const QString& target, const QString& archive);
[[nodiscard]] ResourceResult<QByteArray> ReadResource(const QString& name, const QString& archive, qint64 limit);

[[nodiscard]] ResourceResult<> DeleteFromResource(const QString& name, const QString& archive);

/// Names of all that can be extracted, in the archive's own order.
[[nodiscard]] Result<ArchiveList> ListResource(const QString& archive);

/// A folder: itself with all that is in it, its name first in every entry's. A file: under its short name. What the
/// archive holds under other names stays in it. A link is stored as what it leads to if that is in the folder too;
/// other links, and what is neither file nor folder, fail. So does what UnzipFiles would refuse for its size.
[[nodiscard]] Result<> ZipFiles(const QString& source, const QString& archive, const CountedTurn& turn = {},
                                const UnpackLimits& limits = {});

/// A pattern ending in "\" or "/" extracts that folder with its tree, keeping folder names (the separator alone: all).
/// Any other extracts files into the target itself: by its whole name in the archive, else every file whose name (with
/// folders, if the pattern has some) fits it; of two of one name the later stays. Letter case is ignored. Nothing is
/// there before all is read and checked. Fails if nothing fits.
[[nodiscard]] Result<> UnzipFiles(const QString& pattern, const QString& archive, const QString& target,
                                  const CountedTurn& turn = {}, const UnpackLimits& limits = {});

/// Every entry, folders too, sorted by extension; within one the archive's order.
[[nodiscard]] Result<ArchiveList> ListZip(const QString& archive);
