// The tree of many sets, and a large set that changes its form, beside the commands "zip" and "unzip".
#include "sets/get_files.h"
#include "sets/set_archives.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>

namespace {

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// Groups of a hundred sets, each with a few levels and two folders of artwork.
class ManySets
{
public:
    explicit ManySets(int sets)
    {
        for (int i = 0; i < sets; ++i) {
            const QString set = folder.filePath(QStringLiteral("levels/%1/set_%2").arg(i / 100).arg(i));
            for (const char* inner : {"/graphics", "/sounds"})
                QDir().mkpath(set + QLatin1String(inner));
            for (int level = 1; level <= 5; ++level)
                Write(set + QStringLiteral("/00%1.level").arg(level), "RND1");
        }
    }
    QString Root() const { return folder.filePath(QStringLiteral("levels/")); }

private:
    const QTemporaryDir folder;
};

/// A set of `files` files of 500 kB: rows of noise and rows of runs, as pictures pack.
class LargeSet
{
public:
    explicit LargeSet(int files)
    {
        QDir().mkpath(Set());
        quint32 noise = 1;
        for (int i = 0; i < files; ++i) {
            QByteArray bytes(500'000, '\0');
            for (qsizetype at = 0; at < bytes.size(); ++at) {
                noise = noise * 1664525 + 1013904223;
                bytes[at] = at / 64 % 2 ? char(noise >> 24) : char(at / 16);
            }
            Write(Set() + QStringLiteral("/%1.pcx").arg(i), bytes);
        }
    }
    QString Folder() const { return folder.path(); }
    QString Set() const { return folder.filePath(QStringLiteral("set")); }
    QString Archive() const { return Set() + QStringLiteral(".levzip"); }

private:
    const QTemporaryDir folder;
};

void Command(benchmark::State& state, const QString& line)
{
    if (std::system(qPrintable(line)) != 0)
        state.SkipWithError("the command failed");
}

} // namespace

static void ScanManySets(benchmark::State& state)
{
    const ManySets sets(int(state.range(0)));
    for (auto run : state) {
        const auto nodes = ScanSets({sets.Root()});
        if (!nodes || nodes->size() != size_t(state.range(0)))
            state.SkipWithError("sets are missing");
    }
}
BENCHMARK(ScanManySets)->Arg(10'000)->Unit(benchmark::kMillisecond);

/// Packed, compared and removed; unpacked, compared and removed.
static void ZipAndUnzipASet(benchmark::State& state)
{
    const LargeSet set(int(state.range(0)));
    double zip = 0, unzip = 0;
    for (auto run : state) {
        const auto began = std::chrono::steady_clock::now();
        if (!ZipSet(set.Set(), set.Archive()))
            state.SkipWithError("zip");
        const auto between = std::chrono::steady_clock::now();
        if (!UnzipSet(set.Archive(), false))
            state.SkipWithError("unzip");
        zip += std::chrono::duration<double>(between - began).count();
        unzip += std::chrono::duration<double>(std::chrono::steady_clock::now() - between).count();
    }
    state.counters["zip_s"] = zip / double(state.iterations());
    state.counters["unzip_s"] = unzip / double(state.iterations());
}
BENCHMARK(ZipAndUnzipASet)->Arg(200)->Unit(benchmark::kMillisecond)->Iterations(2);

static void TheCommandZip(benchmark::State& state)
{
    const LargeSet set(int(state.range(0)));
    for (auto run : state)
        Command(state,
                QStringLiteral("cd %1 && rm -f a.zip && zip -q -9 -r a.zip set && sync a.zip").arg(set.Folder()));
}
BENCHMARK(TheCommandZip)->Arg(200)->Unit(benchmark::kMillisecond)->Iterations(2);

static void TheCommandUnzip(benchmark::State& state)
{
    const LargeSet set(int(state.range(0)));
    Command(state, QStringLiteral("cd %1 && zip -q -9 -r a.zip set").arg(set.Folder()));
    for (auto run : state)
        Command(state, QStringLiteral("cd %1 && rm -rf out && unzip -q a.zip -d out && sync -f out").arg(set.Folder()));
}
BENCHMARK(TheCommandUnzip)->Arg(200)->Unit(benchmark::kMillisecond)->Iterations(2);

BENCHMARK_MAIN();
