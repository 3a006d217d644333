#pragma once

#include "platform/archives/zip_archive.h"
#include "platform/archives/zip_writer.h"
#include "platform/result.h"

#include <optional>
#include <vector>

/// The archive that is to be changed; none if there is no such file. Fails for one that cannot be taken over.
[[nodiscard]] Result<std::optional<ZipArchive>> ArchiveToChange(const QString& path);

/// What the archive holds, in its order, with `added` put in: in the place of what has its name, else at the end.
std::vector<ZipPart> PartsWith(const std::optional<ZipArchive>& archive, std::vector<ZipPart> added,
                               Qt::CaseSensitivity letters);

/// The same without the entry at this index.
std::vector<ZipPart> PartsWithout(const ZipArchive& archive, int entry);

/// Writes the parts over the archive they came from.
[[nodiscard]] Result<> WriteParts(const QString& path, const std::optional<ZipArchive>& archive,
                                  const std::vector<ZipPart>& parts, const CountedTurn& turn = {});
