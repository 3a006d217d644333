// The level viewer: how long the first picture takes, and a folder of a thousand levels in its strip.
#include "frame/frame_state.h"
#include "level/level_files.h"
#include "mapglass/level_strip.h"
#include "mapglass/map_view.h"
#include "mapglass/mapglass_window.h"
#include "platform/images/images.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Count = 1000;

/// Copies of a level under numbers; its name may be given by the environment, else it is the wizard's.
QString ThousandLevels(const QTemporaryDir& folder)
{
    QFile told(qEnvironmentVariable("LEVEL"));
    const QByteArray bytes = told.open(QIODevice::ReadOnly) ? told.readAll() : LevelImage(QStringLiteral("BLANKLEVEL"));
    for (int i = 0; i < Count; ++i) {
        QFile file(folder.filePath(QStringLiteral("%1.level").arg(i, 3, 10, QLatin1Char('0'))));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }
    return folder.filePath(QStringLiteral("500.level"));
}

/// From the call to the painted map; the decoder's process starts anew each time.
void FirstPicture(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString level = ThousandLevels(folder);
    for (auto _ : state) {
        images::Stop();
        MapglassWindow window;
        window.OpenLevel(level);
        window.show();
        window.findChild<MapView*>()->grab();
    }
}
BENCHMARK(FirstPicture)->Unit(benchmark::kMillisecond);

/// All pictures of the strip, and the longest time in which the window could not answer.
void StripOfThousand(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString level = ThousandLevels(folder);
    qint64 longest = 0;
    for (auto _ : state) {
        MapglassWindow window;
        window.OpenLevel(level);
        window.show();
        window.findChild<MapView*>()->grab();
        LevelStrip& strip = *window.findChild<LevelStrip*>();
        QElapsedTimer clock;
        do {
            clock.start();
            QApplication::processEvents(QEventLoop::AllEvents);
            longest = qMax(longest, clock.elapsed());
        } while (!strip.Levels().IsWhole() || strip.Levels().rowCount() == 0);
    }
    state.counters["longest turn, ms"] = double(longest);
}
BENCHMARK(StripOfThousand)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Frame.ProgramFolder = QApplication::applicationDirPath() + QLatin1Char('/');
    Frame.DataFolder = Frame.ProgramFolder + QStringLiteral("data/");
    Frame.SettingsReadOnly = true;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    images::Stop();
    return 0;
}
