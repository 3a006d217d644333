#pragma once

#include "platform/processes/counted_turn.h"
#include "platform/result.h"

#include <QByteArray>
#include <QString>
#include <variant>
#include <vector>

class ZipArchive;

/// Where the bytes of an entry come from.
struct KeptEntry
{
    int Entry; ///< of the old archive; packed as it is, with its time, attributes, comment and extra fields
};
struct PackedFile
{
    QString Path; ///< read when its turn comes
};
struct EmptyFolder
{
};

struct ZipPart
{
    QString Name; ///< with "/" between folders; no two parts have the same
    std::variant<KeptEntry, PackedFile, QByteArray, EmptyFolder> From;
};

/// Writes an archive that consists of these parts in this order, packed as small as goes. `old` is what kept entries
/// come from; it may be the archive that is replaced. All is old or all is new, as with paths::WriteWhole.
[[nodiscard]] Result<> WriteZip(const QString& path, const std::vector<ZipPart>& parts, const ZipArchive* old = nullptr,
                                const CountedTurn& turn = {});
