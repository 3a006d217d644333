#pragma once

#include "platform/sound/audio.h"
#include "platform/sound/player_protocol.h"
#include "test_support.h"

#include <QList>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

/// What a device was given: the mean of both channels, -1 to 1, 44100 a second.
class Sound
{
public:
    explicit Sound(std::vector<double> given) : samples(std::move(given)) {}

    double Seconds() const;              ///< from the first sample that is not silent to the last
    double Strength(double pitch) const; ///< amplitude of a sine of this frequency, in the middle
    int Tone() const;                    ///< the strongest half tone around the A of 440 Hz, 0 for it; -99 for silence
    Sound From(double second) const;

private:
    size_t First() const;
    std::vector<double> samples;
};

/// The real player on a device that writes what it plays into a file, six times as fast as one would hear it. In the
/// end the player must end by itself without a complaint, those of a sanitizer included.
class Recorder : public testing::Test
{
protected:
    Recorder();
    ~Recorder() override;

    /// Commands of a shell in place of the player at its first start.
    void InsteadAtFirst(const QByteArray& commands);
    QString File(const char* name, const QByteArray& bytes) const;
    /// What was played since the last ToSilence.
    Sound Recorded() const;
    /// Waits for the end of all sound; what was played.
    Sound ToSilence();
    /// Once so many seconds of sound are there.
    Sound Hear(double seconds) const;

    TestFolder Folder;
    QList<std::pair<player::Trouble, QString>> Troubles; ///< with the name of the file

    qint64 Written() const; ///< bytes of the device's file
    QString DeviceFile() const;

private:
    qint64 begin = 0; ///< of what was not heard yet, in a file that was renamed
};
