// Passes over the lines of a conf, on bytes alone.
#include "conf_text.h"

#include "conf/tidy_up.h"

#include <benchmark/benchmark.h>

namespace {

void TidyAll(benchmark::State& state)
{
    const QByteArray text = RaggedConf(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(TidyLines(text, {.SpacerWidth = 43}));
    state.SetBytesProcessed(int64_t(state.iterations()) * text.size());
}
BENCHMARK(TidyAll)->Arg(15'000)->Arg(1'500'000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
