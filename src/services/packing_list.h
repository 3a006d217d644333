#pragma once

#include "platform/archives/zip_writer.h"
#include "platform/processes/counted_turn.h"
#include "platform/result.h"
#include "services/unpacking.h"

#include <vector>

/// A folder and all in it as parts of an archive, each folder before what it holds, names in order. `archive`: left
/// out, should it lie in the folder itself.
[[nodiscard]] Result<std::vector<ZipPart>> PackingList(const QString& folder, const QString& archive,
                                                       const CountedTurn& turn, const UnpackLimits& limits);
