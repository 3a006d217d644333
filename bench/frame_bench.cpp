// What a start reads: every word of the vocabulary, all settings.
#include "bench_host.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

void ReadVocabulary(benchmark::State& state)
{
    for (auto _ : state)
        MakeLanguages();
}
BENCHMARK(ReadVocabulary)->Unit(benchmark::kMillisecond);

void ReadSettings(benchmark::State& state)
{
    for (auto _ : state)
        LoadSettings();
}
BENCHMARK(ReadSettings)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    BenchHost host;
    Frame.ProgramFolder = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    Frame.DataFolder = Frame.ProgramFolder + QStringLiteral("data/");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
