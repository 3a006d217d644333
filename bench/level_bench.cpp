// A thousand levels, as a macro over a large set goes through them. Each is one of two images in another size.
#include "frame/frame_state.h"
#include "level/level_bytes.h"
#include "level/level_files.h"
#include "level/level_header.h"
#include "level/level_palette.h"
#include "level/map_painting.h"
#include "level/map_replace.h"

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

/// The commands of macros on the largest map, half of it rock.
struct LargestMap
{
    LargestMap()
    {
        for (size_t i = 0; i < Map.Cells().size(); ++i)
            Map.Cells()[i] = i % 3 == 0 ? 4 : i % 2 ? 0 : 1;
    }

    LevelMap Map{128, 128};
    const LevelBox Whole{0, 0, 127, 127};
    const CellTest Rock{CellValues(4), false};
};

template <void (*Command)(LargestMap&)>
void OnLargestMap(benchmark::State& state)
{
    LargestMap on;
    for (auto _ : state)
        Command(on);
}

void Turns(LargestMap& on)
{
    on.Map = Rotated(Mirrored(Flipped(on.Map)));
}
void Box(LargestMap& on)
{
    PaintBox(on.Map, on.Whole, 7, on.Rock, 4);
}
void Line(LargestMap& on)
{
    PaintLine(on.Map, {0, 3, 127, 120}, 7, on.Rock);
}
void Circle(LargestMap& on)
{
    PaintCircle(on.Map, {64, 64, 60, 50}, 7, on.Rock);
}
void CopyPaste(LargestMap& on)
{
    PasteCells(on.Map, CopyCells(on.Map, on.Whole, on.Rock), 3, 3, {});
}
/// All cells, there and back.
void Fill(LargestMap& on)
{
    std::fill(on.Map.Cells().begin(), on.Map.Cells().end(), 0);
    FillCells(on.Map, 64, 64, 9);
}
void Replace(LargestMap& on)
{
    const ReplaceTest beside{1, 0, true, true, CellValues(std::vector<qint32>{4, 5, 6, 7, 8})};
    ReplaceCells(on.Map, on.Whole, {CellValues(1), 1, {beside}, [] { return true; }});
}
void Picture(LargestMap& on)
{
    static const MapPainter painter(QImage(QStringLiteral(PROJECT_FOLDER "/previews/gfx_classic.gif")));
    benchmark::DoNotOptimize(painter.Picture(on.Map));
}
BENCHMARK(OnLargestMap<Turns>)->Name("Turns")->Unit(benchmark::kMicrosecond);
BENCHMARK(OnLargestMap<Box>)->Name("Box")->Unit(benchmark::kMicrosecond);
BENCHMARK(OnLargestMap<Line>)->Name("Line")->Unit(benchmark::kMicrosecond);
BENCHMARK(OnLargestMap<Circle>)->Name("Circle")->Unit(benchmark::kMicrosecond);
BENCHMARK(OnLargestMap<CopyPaste>)->Name("CopyPaste")->Unit(benchmark::kMicrosecond);
BENCHMARK(OnLargestMap<Fill>)->Name("Fill")->Unit(benchmark::kMicrosecond);
BENCHMARK(OnLargestMap<Replace>)->Name("Replace")->Unit(benchmark::kMicrosecond);
BENCHMARK(OnLargestMap<Picture>)->Name("Picture, 2048 by 2048")->Unit(benchmark::kMicrosecond);

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
