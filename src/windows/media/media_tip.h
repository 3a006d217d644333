#pragma once

#include <QString>

/// What the tip of a file under the mouse says: its name, the size of an image in pixels or the length of a wave in
/// seconds, and its bytes. Reads no more than the file's first part.
QString MediaTip(const QString& path);

/// Length of a wave file in seconds by its header; 0 if it has none or is something else.
double WaveSeconds(const QByteArray& head);
