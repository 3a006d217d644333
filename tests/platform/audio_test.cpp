#include "mutated.h"
#include "recorder.h"
#include "sound_files.h"

#include <QElapsedTimer>
#include <QThread>

using Audio = Recorder;

// Catches: a kind that is not decoded, the wrong rate between decoder and device, an end that is not noticed.
TEST_F(Audio, MediaKindsSound)
{
    ASSERT_TRUE(audio::PlayMedia(File("a.wav", sound_files::Wave(440, 0.5))));
    EXPECT_TRUE(audio::IsPlaying());
    Sound sound = ToSilence();
    EXPECT_EQ(sound.Tone(), 0);
    EXPECT_NEAR(sound.Seconds(), 0.5, 0.03);

    ASSERT_TRUE(audio::PlayMedia(File("a.mid", sound_files::Midi())));
    sound = ToSilence();
    EXPECT_EQ(sound.Tone(), 0);
}
