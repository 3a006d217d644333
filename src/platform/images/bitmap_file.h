#pragma once

#include <QByteArray>
#include <QImage>

/// A picture as the bytes of a Windows bitmap: numbers and their colours of one with a palette of up to 256, else 24
/// bits a pixel. What is see-through counts as opaque. Null pictures give no bytes.
QByteArray BitmapFile(const QImage& picture);
