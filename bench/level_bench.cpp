// A thousand levels, as a macro over a large set goes through them. Each is one of two images in another size.
#include "frame/frame_state.h"
#include "level/level_bytes.h"
#include "level/level_files.h"
#include "level/level_header.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Count = 1000;

/// The image with a tail and the given width.
QByteArray LevelOfWidth(int width)
{
    QByteArray bytes = LevelImage(QStringLiteral("LEVEL"));
    LevelRecord level = ParseLevel(bytes, ReadLevelOffsets).value();
    const QByteArray tail = bytes.sliced(level.MapEnd);
    level.Info.Width = QString::number(width);
    level.Map = level.Map.Resized(width, level.Map.Height());
    level.Info.Mapsize = QString::number(2 * width * level.Map.Height());
    return PatchLevel(level, bytes).value() + tail;
}

QList<QByteArray> Thousand()
{
    QList<QByteArray> levels;
    for (int i = 0; i < Count; ++i)
        levels << (i % 2 ? LevelImage(QStringLiteral("BLANKLEVEL")) : LevelOfWidth(3 + i % 126));
    return levels;
}

QStringList WriteThousand(const QTemporaryDir& folder)
{
    QStringList files;
    for (const QByteArray& bytes : Thousand()) {
        QFile file(folder.filePath(QStringLiteral("%1.level").arg(files.size())));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        files << file.fileName();
    }
    return files;
}

void ParseThousand(benchmark::State& state)
{
    const QList<QByteArray> levels = Thousand();
    for (auto _ : state)
        for (const QByteArray& bytes : levels)
            benchmark::DoNotOptimize(ParseLevel(bytes, ReadLevelOffsets));
    state.SetItemsProcessed(state.iterations() * Count);
}
BENCHMARK(ParseThousand)->Unit(benchmark::kMillisecond);

void LoadThousand(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QStringList files = WriteThousand(folder);
    for (auto _ : state)
        for (const QString& path : files)
            if (const Result<> loaded = LoadLevel(path, false); !loaded)
                state.SkipWithError(qPrintable(loaded.error().Text()));
    ResetLevel();
    state.SetItemsProcessed(state.iterations() * Count);
}
BENCHMARK(LoadThousand)->Unit(benchmark::kMillisecond);

/// With the syncs that a save of the author's own files waits for.
void LoadAndSaveHundred(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QStringList files = WriteThousand(folder).first(Count / 10);
    for (auto _ : state)
        for (const QString& path : files)
            if (!LoadLevel(path, false) || !SaveLevel(path, false))
                state.SkipWithError("a level was not loaded or saved");
    state.SetItemsProcessed(state.iterations() * files.size());
}
BENCHMARK(LoadAndSaveHundred)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    Frame.DataFolder = QStringLiteral(PROJECT_FOLDER "/data/");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
