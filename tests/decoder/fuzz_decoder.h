#pragma once

#include <QByteArray>
#include <QString>

/// Holds what reads the bytes of strangers against any bytes: both messages of the protocol, the walk over a PCX and
/// the looks at headers. Gives what is wrong, empty if nothing.
QString FuzzDecoder(const QByteArray& bytes);
