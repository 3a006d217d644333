// Plays on a device that throws away what it gets, in the time it takes to hear it.
#include "platform/sound/audio.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <benchmark/benchmark.h>
#include <unistd.h>

namespace {

const QString Tune = QStringLiteral(PROJECT_FOLDER "/examples/music/glowworm_lullaby.mod");

/// One note of a flute, held as long as a byte of time allows it, sixty times over.
QString MidiFile()
{
    static const QTemporaryDir folder;
    QByteArray track("\0\xC0\x49", 3);
    for (int note = 0; note < 60; ++note)
        track += QByteArray("\0\x90\x45\x6E\x60\x80\x45\0", 8);
    track += QByteArray("\0\xFF\x2F\0", 4);
    const quint16 length = quint16(track.size());
    QFile file(folder.filePath(QStringLiteral("a.mid")));
    if (file.open(QIODevice::WriteOnly))
        file.write(QByteArray("MThd\0\0\0\6\0\0\0\1\0\x60MTrk\0\0", 20) + char(length >> 8) + char(length & 0xFF) +
                   track);
    return file.fileName();
}

QList<QByteArray> ChildrenOf(pid_t parent)
{
    QFile children(QStringLiteral("/proc/%1/task/%1/children").arg(parent));
    return children.open(QIODevice::ReadOnly) ? children.readAll().trimmed().split(' ') : QList<QByteArray>();
}

/// Of a process and its descendants, in seconds since their start.
double ProcessorTimeOf(pid_t process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray stat = file.readAll();
    const auto fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    double used = (fields.value(11).toDouble() + fields.value(12).toDouble()) / double(sysconf(_SC_CLK_TCK));
    for (const QByteArray& child : ChildrenOf(process))
        used += ProcessorTimeOf(child.toInt());
    return used;
}

/// Of the process that plays, and of those that decode for it.
double ProcessorTime()
{
    double used = 0;
    for (const QByteArray& child : ChildrenOf(getpid()))
        used += ProcessorTimeOf(child.toInt());
    return used;
}

void WaitForEnd()
{
    while (audio::IsPlaying())
        QThread::msleep(1);
}

/// How long the windows stand still; the first call starts the process.
void CallReturns(benchmark::State& state)
{
    const bool fresh = state.range(0) != 0;
    for (auto turn : state) {
        benchmark::DoNotOptimize(audio::PlayModule(Tune));
        state.PauseTiming();
        fresh ? audio::End() : audio::StopModule();
        state.ResumeTiming();
    }
    audio::End();
}

/// From the call until the process says that a file that cannot be played was tried: start, device, opening.
void UntilCarriedOut(benchmark::State& state)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a.mod")));
    if (!file.open(QIODevice::WriteOnly) || file.write("no module") < 0)
        state.SkipWithError("no file");
    file.close();
    for (auto turn : state) {
        benchmark::DoNotOptimize(audio::PlayModule(file.fileName()));
        WaitForEnd();
        if (state.range(0) == 0)
            continue;
        state.PauseTiming();
        audio::End();
        state.ResumeTiming();
    }
    audio::End();
}

/// Processor time of a second: 0 a module, 1 MIDI, 2 nothing after a stop.
void SecondOfSound(benchmark::State& state)
{
    const QString midi = MidiFile();
    state.range(0) == 1 ? audio::PlayMedia(midi) : audio::PlayModule(Tune);
    QThread::msleep(500);
    if (state.range(0) == 2) {
        audio::Stop();
        QThread::msleep(1500);
    }
    double used = 0, seconds = 0;
    for (auto turn : state) {
        const double before = ProcessorTime();
        QThread::msleep(5000);
        used += ProcessorTime() - before;
        seconds += 5;
    }
    state.counters["processor_ms_per_s"] = used / seconds * 1000;
    state.counters["plays"] = audio::IsPlaying();
    audio::End();
}

BENCHMARK(CallReturns)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond)->Iterations(50);
BENCHMARK(UntilCarriedOut)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(SecondOfSound)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (qEnvironmentVariableIsEmpty("SDL_AUDIODRIVER"))
        qputenv("SDL_AUDIODRIVER", "dummy");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
