#pragma once

#include <QString>

/// What the tip of a file under the mouse says: its name, the size of an image in pixels, the length of a wave in
/// seconds or a level's header, and its bytes. Of all but a level no more than the first part is read.
QString MediaTip(const QString& path);

/// Length of a wave file in seconds by its header; 0 if it has none or is something else.
double WaveSeconds(const QByteArray& head);
