#pragma once

#include <QByteArray>
#include <QString>

// Macros that may run without a question, by the hash of their file. They stand in MacroWindows.KnownFile, a line each.

/// Of a macro's file as it is now; empty if it cannot be read.
QByteArray MacroHash(const QString& path);

bool IsKnownMacro(const QByteArray& hash);
void RememberMacro(const QByteArray& hash);
