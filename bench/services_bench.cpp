// Archives beside the commands "zip" and "unzip" on the same folder, sums, the registry, single bytes of a large file.
#include "platform/files/byte_file.h"
#include "services/archive_tool.h"
#include "services/crc.h"
#include "services/registry.h"
#include "services/registry_store.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <unistd.h>

namespace {

/// A folder of `files` files of `size` bytes that pack about as levels and sheets do.
class SetFolder
{
public:
    SetFolder(int files, qsizetype size)
    {
        quint32 noise = 1;
        for (int i = 0; i < files; ++i) {
            QByteArray bytes(size, '\0');
            for (qsizetype at = 0; at < size; ++at) { // a row of noise, a row of runs, as in pictures
                noise = noise * 1664525 + 1013904223;
                bytes[at] = at / 64 % 2 ? char(noise >> 24) : char(at / 16);
            }
            const QString below = folder.filePath(QStringLiteral("Set/%1").arg(i % 20));
            QDir().mkpath(below);
            QFile file(QStringLiteral("%1/%2.level").arg(below).arg(i));
            if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
                qFatal("cannot write %s", qPrintable(file.fileName()));
        }
    }

    QString Set() const { return folder.filePath(QStringLiteral("Set")); }
    QString Archive() const { return folder.filePath(QStringLiteral("Set.levzip")); }
    QString Target() const
    {
        QDir(folder.filePath(QStringLiteral("out"))).removeRecursively();
        QDir().mkpath(folder.filePath(QStringLiteral("out")));
        return folder.filePath(QStringLiteral("out"));
    }

private:
    const QTemporaryDir folder;
};

SetFolder Made(const benchmark::State& state)
{
    return SetFolder(int(state.range(0)), qsizetype(state.range(1)));
}

bool Run(const QString& command)
{
    return std::system(qPrintable(command)) == 0;
}

bool HasCommand(benchmark::State& state, const char* command)
{
    if (!QStandardPaths::findExecutable(QLatin1String(command)).isEmpty())
        return true;
    state.SkipWithError("no such command");
    return false;
}

template <class Work>
void ZipWith(benchmark::State& state, Work work)
{
    const SetFolder set = Made(state);
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(set.Archive());
        state.ResumeTiming();
        if (!work(set))
            state.SkipWithError("not packed");
    }
}

template <class Work>
void UnzipWith(benchmark::State& state, Work work)
{
    const SetFolder set = Made(state);
    if (!ZipFiles(set.Set(), set.Archive()))
        state.SkipWithError("not packed");
    for (auto _ : state) {
        state.PauseTiming();
        const QString target = set.Target();
        state.ResumeTiming();
        if (!work(set, target))
            state.SkipWithError("not unpacked");
    }
}

void Zip(benchmark::State& state)
{
    ZipWith(state, [](const SetFolder& set) { return ZipFiles(set.Set(), set.Archive()).has_value(); });
}

void ZipByCommand(benchmark::State& state)
{
    if (HasCommand(state, "zip"))
        ZipWith(state, [](const SetFolder& set) {
            return Run(
                QStringLiteral("cd '%1/..' && zip -9 -r -q '%2' Set && sync '%2'").arg(set.Set(), set.Archive()));
        });
}

void Unzip(benchmark::State& state)
{
    UnzipWith(state, [](const SetFolder& set, const QString& target) {
        return UnzipFiles(QStringLiteral("/"), set.Archive(), target).has_value();
    });
}

void UnzipByCommand(benchmark::State& state)
{
    if (HasCommand(state, "unzip"))
        UnzipWith(state, [](const SetFolder& set, const QString& target) {
            return Run(QStringLiteral("unzip -q -o '%1' -d '%2'").arg(set.Archive(), target));
        });
}

/// The command synced too, as ours is.
void UnzipByCommandSynced(benchmark::State& state)
{
    if (HasCommand(state, "unzip"))
        UnzipWith(state, [](const SetFolder& set, const QString& target) {
            return Run(QStringLiteral("unzip -q -o '%1' -d '%2' && sync -f '%2'").arg(set.Archive(), target));
        });
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({1000, 100'000})->Args({10'000, 100})->Unit(benchmark::kMillisecond)->UseRealTime();
}
BENCHMARK(Zip)->Apply(Sizes);
BENCHMARK(ZipByCommand)->Apply(Sizes);
BENCHMARK(Unzip)->Apply(Sizes);
BENCHMARK(UnzipByCommand)->Apply(Sizes);
BENCHMARK(UnzipByCommandSynced)->Apply(Sizes);

/// One more resource in a macro of `range` megabytes.
void AddOneResource(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString macro = folder.filePath(QStringLiteral("m.gfb"));
    QByteArray noise(qsizetype(state.range(0)) << 20, '\0');
    for (quint32 value = 1; char& byte : noise)
        byte = char((value = value * 1664525 + 1013904223) >> 24);
    if (!AddBytesToResource(QStringLiteral("big"), noise, macro))
        state.SkipWithError("not packed");
    for (auto _ : state)
        if (!AddBytesToResource(QStringLiteral("basic.txt"), "print 1\r\n", macro))
            state.SkipWithError("not packed");
}
BENCHMARK(AddOneResource)->Arg(1)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

void Crc(benchmark::State& state)
{
    const QByteArray bytes(10 << 20, 'x');
    clsCRC crc;
    crc.SetAlgorithm(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(crc.CalculateBytes(bytes));
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(Crc)->Arg(1)->Arg(0);

/// `range` values in one section.
cRegistry Filled(RegistryStore& store, const benchmark::State& state)
{
    cRegistry position(store);
    position.ClassKey = registry::CurrentUser;
    position.SectionKey = QStringLiteral("Software\\GemforgeBASIC\\Bench");
    position.ValueType = registry::Text;
    const auto filled = store.Change([&](RegistryKey&) {
        for (int i = 0; i < state.range(0); ++i) {
            position.ValueKey = QString::number(i);
            if (!position.SetValue(QStringLiteral("a value of some length")))
                return false;
        }
        return true;
    });
    if (!filled.value_or(false))
        qFatal("the registry cannot be written");
    return position;
}

void RegistryRead(benchmark::State& state)
{
    const QTemporaryDir folder;
    RegistryStore store(folder.filePath(QStringLiteral("r.json")));
    cRegistry position = Filled(store, state);
    for (auto _ : state)
        benchmark::DoNotOptimize(position.Value());
}
BENCHMARK(RegistryRead)->Arg(1000)->Unit(benchmark::kMicrosecond);

void RegistryWrite(benchmark::State& state)
{
    const QTemporaryDir folder;
    RegistryStore store(folder.filePath(QStringLiteral("r.json")));
    cRegistry position = Filled(store, state);
    int number = 0;
    for (auto _ : state)
        if (!position.SetValue(QString::number(++number)))
            state.SkipWithError("not written");
}
BENCHMARK(RegistryWrite)->Arg(10)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

constexpr qint64 Gigabyte = qint64(1) << 30;

void Peek(benchmark::State& state)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("large")));
    if (!file.open(QIODevice::WriteOnly) || !file.resize(Gigabyte))
        state.SkipWithError("no such large file");
    ByteFile bytes(file.fileName());
    qint64 at = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(bytes.Read(at = (at + 7919 * 4096) % Gigabyte, 1));
}
BENCHMARK(Peek)->Unit(benchmark::kMicrosecond);

/// `range` 1: each one synced, else in rows.
void Poke(benchmark::State& state)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("large")));
    if (!file.open(QIODevice::WriteOnly) || !file.resize(Gigabyte))
        state.SkipWithError("no such large file");
    ByteFile bytes(file.fileName());
    qint64 at = 0;
    for (auto _ : state) {
        Result<> written = bytes.Write(at = (at + 7919) % (1 << 20), "x");
        if (state.range(0))
            written = bytes.Sync();
        if (!written)
            state.SkipWithError("not written");
    }
}
BENCHMARK(Poke)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
