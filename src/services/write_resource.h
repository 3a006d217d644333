#pragma once

#include "platform/result.h"

#include <QByteArray>

/// The bytes of a resource that the program holds, by its name and kind ("CUSTOM").
[[nodiscard]] Result<QByteArray> ResourceBytes(const QString& name, const QString& kind);

/// Writes it byte for byte, over a file that stands there.
[[nodiscard]] Result<> WriteResource(const QString& name, const QString& kind, const QString& target);
