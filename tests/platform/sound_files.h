#pragma once

#include <QByteArray>
#include <QList>

/// Sound files made here, each of one long tone A (440 Hz). The modules play a sine of 32 samples in a loop.
namespace sound_files {

QByteArray Wave(double pitch, double seconds); ///< 16 bits, mono, 22050 Hz
QByteArray Midi();
QByteArray Mp3(double seconds); ///< empty without the encoder's library
QByteArray Mod();
QByteArray S3m();
QByteArray Xm();
QByteArray It();
QByteArray Zipped(const QList<QByteArray>& entries);

} // namespace sound_files
