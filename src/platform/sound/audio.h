#pragma once

#include <QString>
#include <functional>

class QByteArray;

/// The two players. They know nothing of each other: each goes on while the other plays, and another file on one
/// replaces what it played. Decoding, mixing and the device are the business of the program gemforge-player, which
/// starts with the first play; a file that crashes or hangs what decodes it costs that one sound. No routine waits:
/// true says that the sound was handed over; that it cannot be played, or has no device to be played on, is told by
/// OnTrouble. Every routine may be called from the main thread only.
namespace audio {

/// MediaPlayer1: plays a wave, MIDI or MP3 file from its start. False if there is no such file, or no player.
bool PlayMedia(const QString& path);

/// ModPlugin1: plays a module of any kind, one in a zip archive, or a wave file from its start, mixed at 22050 Hz.
/// False if there is no such file, or no player.
bool PlayModule(const QString& path);

/// The same for bytes in memory.
bool PlayModule(const QByteArray& bytes);

void StopMedia();
void StopModule();
void Stop(); ///< both

/// Who is told, from the event loop, that a sound could not be played or broke off: a line for the user.
void OnTrouble(std::function<void(const QString& words)> told);

/// Who is told, from the event loop or out of a call, that another sound plays now or none.
void OnChange(std::function<void()> told);

/// Whether one of them plays, or is about to.
bool IsPlaying();

/// Path of the file that is playing, or about to; of both the medium. Empty for bytes in memory and for none.
QString Playing();

/// Ends the process; the next play starts it afresh.
void End();

} // namespace audio
