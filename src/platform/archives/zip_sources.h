#pragma once

#include "platform/files/file_steps.h"
#include "platform/result.h"

class WholeFile;
struct zip_source;

/// What libzip reads files from and writes archives to, here by way of this room's own steps. `why` is set when one
/// of them fails, and must live as long as the source.
namespace zip_sources {

/// The bytes of a file, opened when they are asked for. None if there is no memory.
zip_source* OfFile(const QString& path, const FileFacts& facts, Failure& why);

/// Writes into an open file, which is committed when the archive is closed. None if there is no memory.
zip_source* Into(WholeFile& file, Failure& why);

} // namespace zip_sources
