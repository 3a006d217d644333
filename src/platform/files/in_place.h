#pragma once

#include "platform/result.h"

#include <QByteArrayView>
#include <QStringList>
#include <functional>

/// Writing over a file's own bytes, for a file that may be written in a folder that may not (or whose owner could not
/// be kept). Old and new bytes are first kept together in the user's state folder. The old ones go back if the write
/// fails; if the process ends in between, the next start finishes what was begun.
namespace in_place {

/// The file consists of `bytes` afterwards. `path`: the file itself, no link to it.
/// `before` runs when both states are kept and the file was not touched yet; its failure ends the write.
[[nodiscard]] Result<> Write(const QString& path, QByteArrayView bytes, const std::function<Result<>()>& before = {});

/// `bytes` stand from `at` on, what is around them stays; `at` may be the file's end.
[[nodiscard]] Result<> WriteAt(const QString& path, qint64 at, QByteArrayView bytes);

/// Where the copies lie, ending with "/".
QString Folder();

/// Finishes the writes that ended processes left behind, and gives back the paths of their files. A file that somebody
/// has written since stays as it is.
QStringList FinishInterrupted();

} // namespace in_place
