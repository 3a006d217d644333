#include "mutated.h"
#include "recorder.h"
#include "sound_files.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <csignal>
#include <sys/stat.h>
#include <unistd.h>

using Audio = Recorder;

namespace {

/// The process that decodes for the player: the youngest of our descendants. 0: none.
pid_t Decoding()
{
    pid_t last = 0;
    for (pid_t process = getpid(); process > 0;) {
        QFile children(QStringLiteral("/proc/%1/task/%1/children").arg(process));
        const QByteArray all = children.open(QIODevice::ReadOnly) ? children.readAll().trimmed() : QByteArray();
        process = all.split(' ').constLast().toInt();
        last = process > 0 ? process : last;
    }
    return last;
}

} // namespace

// Catches: a kind that is not decoded, the wrong rate between decoder and device, an end that comes early or is not
// noticed, an MP3 file whose first bytes do not tell what it is.
TEST_F(Audio, MediaKindsSound)
{
    const QByteArray mp3 = sound_files::Mp3(1);
    const struct
    {
        const char* Name;
        QByteArray Bytes;
        double Seconds, Within;
    } kinds[] = {
        {"a.wav", sound_files::Wave(440, 0.5), 0.5, 0.01},        {"a.MP3", mp3, 1, 0.1},
        {"junk.mp3", QByteArray(100, 'x') + mp3, 1, 0.1},         {"a.mid", sound_files::Midi(), 1.5, 0.5},
        {"click.wav", sound_files::Wave(440, 0.05), 0.05, 0.001},
    };
    for (const auto& kind : kinds) {
        ASSERT_TRUE(audio::PlayMedia(File(kind.Name, kind.Bytes)));
        EXPECT_TRUE(audio::IsPlaying());
        const Sound sound = ToSilence();
        EXPECT_EQ(sound.Tone(), 0) << kind.Name;
        EXPECT_NEAR(sound.Seconds(), kind.Seconds, kind.Within) << kind.Name;
    }
}

// Catches: a kind that is not read, notes at the rate of the device instead of the module's, a packed module behind
// an entry that is none, a wave that the module player does not take.
TEST_F(Audio, ModuleKindsSound)
{
    const std::pair<const char*, QByteArray> kinds[] = {
        {"a.mod", sound_files::Mod()},
        {"a.s3m", sound_files::S3m()},
        {"a.xm", sound_files::Xm()},
        {"a.it", sound_files::It()},
        {"a.mdz", sound_files::Zipped({"read me", sound_files::Mod()})},
        {"a.wav", sound_files::Wave(440, 1)},
    };
    for (const auto& [name, bytes] : kinds) {
        ASSERT_TRUE(audio::PlayModule(File(name, bytes)));
        EXPECT_EQ(Hear(0.6).Tone(), 0) << name;
        audio::StopModule();
        ToSilence();
    }
    ASSERT_TRUE(audio::PlayModule(sound_files::Mod()));
    const Sound whole = ToSilence();
    EXPECT_EQ(whole.Tone(), 0);
    EXPECT_NEAR(whole.Seconds(), 64 * 6 * 0.02, 0.1);
}

// Catches: players that silence each other, a second file that plays beside or behind the first, a stop that leaves
// sound, stops the other one or comes too late for a file that is still being opened.
TEST_F(Audio, PlayersAreIndependent)
{
    const QString low = File("low.wav", sound_files::Wave(440, 30)),
                  high = File("high.wav", sound_files::Wave(660, 30));
    // A machine that is busy carries it out a little later.
    const auto becomes = [this](bool hasLow, bool hasHigh) {
        for (int attempt = 0; attempt < 10; ++attempt) {
            QThread::msleep(60);
            const double from = Recorded().Seconds();
            const Sound sound = Hear(from + 0.4).From(from);
            if ((sound.Strength(440) > 0.1) == hasLow && (sound.Strength(660) > 0.1) == hasHigh)
                return true;
        }
        return false;
    };
    const auto fallsSilent = [this] {
        double before = -1;
        for (int attempt = 0; attempt < 30 && before != Recorded().Seconds(); ++attempt) {
            before = Recorded().Seconds();
            QThread::msleep(60);
        }
        return before == Recorded().Seconds();
    };
    ASSERT_TRUE(audio::PlayMedia(low));
    ASSERT_TRUE(audio::PlayModule(high));
    EXPECT_TRUE(becomes(true, true));
    audio::StopMedia();
    EXPECT_TRUE(becomes(false, true));
    ASSERT_TRUE(audio::PlayModule(low));
    EXPECT_TRUE(becomes(true, false));
    audio::Stop();
    EXPECT_FALSE(audio::IsPlaying());
    EXPECT_TRUE(fallsSilent());
    ToSilence();

    for (int times = 0; times < 20; ++times) {
        ASSERT_TRUE(audio::PlayMedia(low));
        ASSERT_TRUE(audio::PlayModule(high));
        audio::Stop();
    }
    QThread::msleep(300);
    EXPECT_LT(Recorded().Seconds(), 0.1);
}

// Catches: a listener that is not told of a begin, an end by itself or a stop, a name that stays.
TEST_F(Audio, TellsWhatPlays)
{
    QStringList said;
    audio::OnChange([&said] {
        if (said.isEmpty() || said.constLast() != audio::Playing())
            said << audio::Playing();
    });
    const QString brief = File("brief.wav", sound_files::Wave(440, 0.1)), song = File("song.mod", sound_files::Mod());
    ASSERT_TRUE(audio::PlayMedia(brief));
    QElapsedTimer waited;
    waited.start();
    while (said.size() < 2 && waited.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    ASSERT_TRUE(audio::PlayModule(song));
    audio::StopModule();
    audio::OnChange({});
    EXPECT_EQ(said, QStringList({brief, QString(), song, QString()}));
}

// Catches: a broken, huge or strange file that ends the player, goes on for ever or silences the next; a fifo that is
// waited for; what played before going on although its follower cannot be played.
TEST_F(Audio, BrokenFilesAreSilent)
{
    const QByteArray packed = sound_files::Zipped({sound_files::Mod()});
    const std::pair<const char*, QByteArray> kinds[] = {
        {"b.wav", sound_files::Wave(440, 0.1)},
        {"b.mid", sound_files::Midi()},
        {"b.mp3", sound_files::Mp3(0.3)},
        {"b.mod", sound_files::Mod()},
        {"b.s3m", sound_files::S3m()},
        {"b.xm", sound_files::Xm()},
        {"b.it", sound_files::It()},
        {"b.mdz", packed},
    };
    QRandomGenerator random(5);
    for (const auto& [name, bytes] : kinds)
        for (int change = 0; change < 12; ++change) {
            const QByteArray broken = change < 4 ? bytes.left(bytes.size() * change / 5) : Mutated(bytes, random);
            const QString path = Folder.Write(QLatin1String(name), broken);
            audio::PlayMedia(path);
            audio::PlayModule(path);
            QThread::msleep(4);
        }
    audio::Stop();
    ToSilence();
    audio::PlayModule(File("huge.mdz", sound_files::Zipped({QByteArray(80 << 20, '\0'), sound_files::Mod()})));
    EXPECT_GE(Hear(0.4).Seconds(), 0.4);
    ASSERT_TRUE(audio::PlayMedia(File("good.wav", sound_files::Wave(440, 30))));
    Hear(0.4);
    EXPECT_FALSE(audio::PlayMedia(Folder.Path(QStringLiteral("none.wav"))));
    EXPECT_FALSE(audio::PlayModule(Folder.Path()));
    ASSERT_EQ(mkfifo(QFile::encodeName(Folder.Path(QStringLiteral("fifo"))).constData(), 0600), 0);
    EXPECT_FALSE(audio::PlayModule(Folder.Path(QStringLiteral("fifo"))));
    EXPECT_FALSE(audio::IsPlaying());
    ToSilence();
    ASSERT_TRUE(audio::PlayMedia(File("last.wav", sound_files::Wave(440, 0.5))));
    EXPECT_EQ(ToSilence().Tone(), 0);
}

// Catches: a sound that cannot be played, or whose decoding ends half-way, and nobody is told; a good one, one that was
// stopped, or the other player's that is told too; a process that decodes without its walls.
TEST_F(Audio, TroubleIsToldOnce)
{
    using Told = QList<std::pair<player::Trouble, QString>>;
    ASSERT_TRUE(audio::PlayMedia(File("good.wav", sound_files::Wave(440, 0.3))));
    ToSilence();
    ASSERT_TRUE(audio::PlayModule(File("long.wav", sound_files::Wave(440, 30))));
    Hear(0.3);
    audio::StopModule();
    EXPECT_TRUE(Troubles.isEmpty());

    ASSERT_TRUE(audio::PlayMedia(File("bad.mp3", "no sound")));
    ToSilence();
    ASSERT_TRUE(audio::PlayModule(File("bad.mod", "no module")));
    ToSilence();
    EXPECT_EQ(Troubles, (Told{{player::Trouble::File, QStringLiteral("bad.mp3")},
                              {player::Trouble::File, QStringLiteral("bad.mod")}}));
    Troubles.clear();

    ASSERT_TRUE(audio::PlayModule(Folder.Path(QStringLiteral("long.wav"))));
    Hear(0.3);
    const pid_t decoding = Decoding();
    ASSERT_GT(decoding, 0);
    QFile facts(QStringLiteral("/proc/%1/status").arg(decoding));
    ASSERT_TRUE(facts.open(QIODevice::ReadOnly));
    EXPECT_TRUE(facts.readAll().contains("Seccomp:\t2"));
    kill(decoding, SIGSEGV);
    EXPECT_LT(ToSilence().Seconds(), 30);
    EXPECT_EQ(Troubles, (Told{{player::Trouble::File, QStringLiteral("long.wav")}}));
}

// Catches: a machine without a device that shows, waits or fails for good; a device that stays open in silence; a
// player that ended and is not replaced.
TEST_F(Audio, DeviceComesAndGoes)
{
    qputenv("SDL_AUDIODRIVER", "none such");
    ASSERT_TRUE(audio::PlayMedia(File("a.wav", sound_files::Wave(440, 0.3))));
    EXPECT_EQ(ToSilence().Seconds(), 0);
    EXPECT_FALSE(QFile::exists(DeviceFile()));
    EXPECT_EQ(Troubles.value(0).first, player::Trouble::NoDevice);
    qputenv("SDL_AUDIODRIVER", "disk");

    InsteadAtFirst("exit 1");
    const QString path = File("a.wav", sound_files::Wave(440, 0.3));
    audio::PlayMedia(path);
    EXPECT_EQ(ToSilence().Seconds(), 0);
    EXPECT_EQ(Troubles.size(), 2);
    ASSERT_TRUE(audio::PlayMedia(path));
    EXPECT_EQ(ToSilence().Tone(), 0);
    QThread::msleep(1500);
    const qint64 closed = Written();
    QThread::msleep(200);
    EXPECT_EQ(Written(), closed);
    ToSilence();
    ASSERT_TRUE(audio::PlayMedia(path));
    EXPECT_EQ(ToSilence().Tone(), 0);
}

// Catches: a player that takes nothing any more and stops the windows.
TEST_F(Audio, DeafPlayerStopsNobody)
{
    InsteadAtFirst("exec sleep 60");
    const QString path = File("a.wav", sound_files::Wave(440, 0.3));
    audio::PlayMedia(path);
    while (!QFile::exists(Folder.Path(QStringLiteral("started"))))
        QThread::msleep(1);
    QElapsedTimer timer;
    timer.start();
    for (int times = 0; times < 200; ++times) {
        audio::PlayMedia(path);
        audio::Stop();
    }
    EXPECT_LT(timer.elapsed(), 30'000) << "its sleep was waited for";
    audio::PlayMedia(path);
    EXPECT_EQ(ToSilence().Tone(), 0);
}
