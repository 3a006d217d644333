#pragma once

#include "platform/result.h"

#include <QStringList>

/// Brings a zipped set below one of the roots ("/" at their ends), and gives back where it is: a `.levzip` that lies
/// below one stays there; any other archive of one folder with a levelinfo.conf is copied as that folder's `.levzip`
/// into the last root that can be written. Fails where that would be over another set.
[[nodiscard]] Result<QString> TakeDroppedSet(const QString& path, const QStringList& roots);
