#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QRandomGenerator>
#include <QString>

/// Runs any bytes as the source of a macro on a small text for a moment. Gives what is wrong with what it left, empty
/// if nothing. Needs an installed host.
QString FuzzMacro(QByteArrayView bytes, const QString& folder);

/// A program of the language's own words with arguments of every kind, most of them where they do not belong.
QByteArray RandomProgram(QRandomGenerator& random);
