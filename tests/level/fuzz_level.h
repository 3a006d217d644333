#pragma once

#include <QByteArrayView>
#include <QString>

/// Holds reader and writer of levels against any bytes: what is taken must come back unchanged, and must be read again
/// as it was written after a change of every field. Gives what is wrong, empty if nothing. Uses the state `Level`.
QString FuzzLevel(QByteArrayView bytes);
