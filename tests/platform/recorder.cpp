#include "recorder.h"

#include "platform/platform_state.h"
#include "platform/sound/player_process.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <algorithm>
#include <complex>
#include <numbers>
#include <sys/stat.h>

namespace {

constexpr double Rate = 44100;

template <class Done>
bool WaitFor(Done done)
{
    for (int i = 0; i < 2000 && !done(); ++i)
        QThread::msleep(5);
    return done();
}

} // namespace

size_t Sound::First() const
{
    const auto loud = std::find_if(samples.begin(), samples.end(), [](double at) { return std::abs(at) > 0.001; });
    return size_t(loud - samples.begin());
}

double Sound::Seconds() const
{
    const auto loud = std::find_if(samples.rbegin(), samples.rend(), [](double at) { return std::abs(at) > 0.001; });
    const size_t behind = size_t(samples.rend() - loud), first = First();
    return behind > first ? double(behind - first) / Rate : 0;
}

Sound Sound::From(double second) const
{
    const size_t at = std::min(samples.size(), size_t(second * Rate));
    return Sound({samples.begin() + qptrdiff(at), samples.end()});
}

double Sound::Strength(double pitch) const
{
    // The attack and the end have every pitch; a long stretch would be deaf for one that is a little off.
    const size_t length = size_t(Seconds() * Rate), from = First() + length / 4;
    const size_t to = from + std::min(length / 2, size_t(0.3 * Rate));
    std::complex<double> sum = 0;
    for (size_t i = from; i < to; ++i)
        sum += samples[i] * std::polar(1.0, -2 * std::numbers::pi * pitch * double(i) / Rate);
    return to > from ? 2 * std::abs(sum) / double(to - from) : 0;
}

int Sound::Tone() const
{
    int tone = -99;
    double best = 0.005;
    for (int step = -20; step <= 20; ++step) {
        const double strength = Strength(440 * std::exp2(step / 12.0));
        if (strength > best)
            best = strength, tone = step;
    }
    return tone;
}

Recorder::Recorder()
{
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILE", QFile::encodeName(Folder.Path(QStringLiteral("sound"))));
    qputenv("SDL_DISKAUDIODELAY", "4");
    // As without a sanitizer: no memory is a failure, not the end.
    qputenv("ASAN_OPTIONS", "allocator_may_return_null=1");
    InsteadAtFirst({});
}

void Recorder::InsteadAtFirst(const QByteArray& commands)
{
    audio::End(); // a shell reads its script as it goes
    const QByteArray folder = QFile::encodeName(Folder.Path());
    const QByteArray player = QFile::encodeName(QCoreApplication::applicationDirPath()) + "/gemforge-player";
    const QByteArray first =
        commands.isEmpty() ? QByteArray() : "[ -e started ] || { touch started; " + commands + "; }\n";
    // In the background, so that the code is noted although the shell is ended by force.
    const QString script =
        Folder.Write(QStringLiteral("player"), "#!/bin/sh\ncd " + folder + "\n" + first + "exec 3<&0\n(" + player +
                                                   " <&3 3<&- 2>>complaints; echo $? >>code) &\nwait\n");
    chmod(QFile::encodeName(script).constData(), 0700);
    Platform.Player = std::make_unique<PlayerProcess>(
        script,
        [this](player::Trouble why, const QString& path) {
            Troubles.append({why, QFileInfo(path).fileName()});
        },
        [] {
            if (Platform.SoundChange)
                Platform.SoundChange();
        });
}

Recorder::~Recorder()
{
    audio::End();
    qputenv("SDL_AUDIODRIVER", "dummy");
    EXPECT_TRUE(WaitFor([this] { return Folder.Read(QStringLiteral("code")).endsWith('\n'); }));
    EXPECT_EQ(Folder.Read(QStringLiteral("code")).replace("0\n", {}), "")
        << Folder.Read(QStringLiteral("complaints")).toStdString();
}

QString Recorder::File(const char* name, const QByteArray& bytes) const
{
    EXPECT_FALSE(bytes.isEmpty()) << name;
    return Folder.Write(QLatin1String(name), bytes);
}

/// The file of the device that is open, or was last. One that opens later begins a file of its own, since what was
/// heard has another name.
QString Recorder::DeviceFile() const
{
    const QString fresh = Folder.Path(QStringLiteral("sound"));
    return QFile::exists(fresh) ? fresh : Folder.Path(QStringLiteral("heard"));
}

Sound Recorder::Recorded() const
{
    QFile file(DeviceFile());
    const bool good = file.open(QIODevice::ReadOnly) && file.seek(file.fileName().endsWith(u"heard") ? begin : 0);
    const QByteArray bytes = good ? file.readAll() : QByteArray();
    const auto* const values = reinterpret_cast<const qint16*>(bytes.constData());
    std::vector<double> samples;
    for (qsizetype i = 0; i + 1 < bytes.size() / 2; i += 2)
        samples.push_back((values[i] + values[i + 1]) / 65536.0);
    return Sound(std::move(samples));
}

qint64 Recorder::Written() const
{
    return QFileInfo(DeviceFile()).size();
}

Sound Recorder::ToSilence()
{
    EXPECT_TRUE(WaitFor([] { return !audio::IsPlaying(); }));
    // What was mixed before comes into the file a little later; on a busy machine it may stand still meanwhile.
    constexpr int StillLooks = 6;
    const qint64 size = Written();
    int still = 0;
    for (qint64 last = size; Written() < size + 40'000 && still < StillLooks; last = Written()) {
        QThread::msleep(80);
        still = Written() == last ? still + 1 : 0;
    }
    Sound sound = Recorded();
    begin = Written() & ~3;
    const QString heard = Folder.Path(QStringLiteral("heard"));
    if (const QString file = DeviceFile(); file != heard && QFile::exists(file)) {
        QFile::remove(heard);
        QFile::rename(file, heard);
    }
    return sound;
}

Sound Recorder::Hear(double seconds) const
{
    EXPECT_TRUE(WaitFor([&] { return Recorded().Seconds() >= seconds; })) << Recorded().Seconds();
    return Recorded();
}
