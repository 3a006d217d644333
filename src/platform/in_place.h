#pragma once

#include "platform/result.h"

#include <QByteArrayView>
#include <QStringList>

/// Writing over a file's own bytes, for a file that may be written in a folder that may not (or whose owner could not
/// be kept). Its old bytes are first kept in the user's state folder; they go back if the write fails, and at the
/// next start if the process ended in between.
namespace in_place {

/// `path`: the file itself, no link to it.
[[nodiscard]] Result<> Write(const QString& path, QByteArrayView bytes);

/// Puts back the old bytes that ended processes left behind. Paths of the files that were restored.
QStringList RestoreInterrupted();

} // namespace in_place
