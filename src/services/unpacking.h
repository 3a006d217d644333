#pragma once

#include "platform/processes/counted_turn.h"
#include "platform/result.h"

#include <QtGlobal>
#include <optional>
#include <vector>

class ZipArchive;

/// What an archive of strangers may ask of a disk.
struct UnpackLimits
{
    qsizetype Entries = 100'000;
    qint64 Bytes = qint64(4) << 30;
    qint64 AnyRatio = qint64(100) << 20; ///< bytes that may come from however small an archive
    qint64 Ratio = 1000;                 ///< bytes that one byte of the archive may give beyond that
};

/// One entry and where it goes below the target, with "/"; a folder's ends with it.
struct Unpacked
{
    int Entry;
    QString Path;
};

/// An entry's name as a path that stays where it is put. None for one that is absolute, has a drive letter, leads
/// upward or is longer than any path.
std::optional<QString> SafeName(const QString& name);

/// All or nothing: the files are written and checked beside, then moved to their places. A link that stands where a
/// file goes is replaced, never followed. Fails for secret entries, links, an entry below a linked folder, a file
/// that is to be read only and for more than the limits allow. Permissions and times come along.
[[nodiscard]] Result<> Unpack(const ZipArchive& archive, const std::vector<Unpacked>& files, const QString& target,
                              const CountedTurn& turn = {}, const UnpackLimits& limits = {});
