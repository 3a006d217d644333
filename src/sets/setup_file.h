#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// The line `last_level_series:` of the game's `levelsetup.conf`, which names the set that the game starts with.

/// Its value, trimmed; nothing if no line has it. A line that the game has commented out is none.
std::optional<QString> LastLevelSeries(const QByteArray& file);

/// The file with this value, every byte of other lines as it was. Without such a line one is added if the game has
/// commented one out; else nothing: there is nothing to write.
std::optional<QByteArray> WithLastLevelSeries(const QByteArray& file, const QString& value);
