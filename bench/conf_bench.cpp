// Passes over the lines of a conf on bytes alone, element blocks, and the inject window's rebuild in a pane.
#include "bench_host.h"
#include "conf_text.h"

#include "conf/block_outline.h"
#include "conf/check.h"
#include "conf/comments.h"
#include "conf/inject.h"
#include "conf/line_pass.h"
#include "conf/tidy_up.h"
#include "editor/make_pane.h"
#include "frame/frame_state.h"

#include <QApplication>

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

/// Every line looked at; none is bad.
void CheckAll(benchmark::State& state)
{
    const QByteArray text = RaggedConf(int(state.range(0)));
    const CheckContext context{true, {QStringLiteral("png")}, {QStringLiteral("rockscustom.png")}};
    for (auto _ : state)
        if (FirstBadLine(text, context))
            state.SkipWithError("a line is bad");
    state.SetBytesProcessed(int64_t(state.iterations()) * text.size());
}
BENCHMARK(CheckAll)->Arg(15'000)->Arg(1'500'000)->Unit(benchmark::kMillisecond);

void CommentAndUncommentAll(benchmark::State& state)
{
    const QByteArray text = RaggedConf(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(UncommentLines(CommentLines(text)));
    state.SetBytesProcessed(int64_t(state.iterations()) * text.size());
}
BENCHMARK(CommentAndUncommentAll)->Arg(1'500'000)->Unit(benchmark::kMillisecond);

/// A pass over a whole document, with its undo: 0 comments, 1 uncomments, 2 tidies.
void PassInPaneAndUndo(benchmark::State& state)
{
    const LinePass passes[] = {CommentLines, UncommentLines, [](QByteArrayView lines, const PassProgress& progress) {
                                   return TidyLines(lines, {.SpacerWidth = 43}, progress);
                               }};
    BenchHost host;
    const auto pane = MakePane();
    pane->LoadBytes(RaggedConf(1'500'000));
    for (auto _ : state) {
        pane->ExecuteCmd(CmdSelectAll);
        RunPassOnSelection(*pane, QStringLiteral("pass"), passes[state.range(0)]);
        pane->ExecuteCmd(CmdUndo);
    }
}
BENCHMARK(PassInPaneAndUndo)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

/// A text that does not occur, from the top to the end.
void FindInPane(benchmark::State& state)
{
    const auto pane = MakePane();
    pane->LoadBytes(RaggedConf(int(state.range(0))));
    for (auto _ : state)
        if (pane->FindPlain(QStringLiteral("yamyam"), true))
            state.SkipWithError("found");
}
BENCHMARK(FindInPane)->Arg(1'500'000)->Unit(benchmark::kMillisecond);

/// Every block found and read, from bytes to records. The default conf of the game has 2,737.
void ReadAllBlocks(benchmark::State& state)
{
    const QByteArray text = BlockConf(int(state.range(0)));
    for (auto _ : state) {
        QStringList lines;
        ForEachLine(text, {}, [&](const ByteLine& line) { lines << QString::fromUtf8(line.Text); });
        for (const OutlineBlock& block : FindBlocks(text, Frame.Settings.SheetKinds))
            benchmark::DoNotOptimize(ReadBlock({LinesOf(lines), block.Line, Frame.Settings.SheetKinds}, block.Image));
    }
}
BENCHMARK(ReadAllBlocks)->Arg(2'737)->Unit(benchmark::kMillisecond);

void Outline(benchmark::State& state)
{
    const QByteArray text = RaggedConf(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(FindBlocks(text, Frame.Settings.SheetKinds));
    state.SetBytesProcessed(int64_t(state.iterations()) * text.size());
}
BENCHMARK(Outline)->Arg(15'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

/// One click in the inject window on a block of `range` lines in a usual document: the new text in the pane.
void InjectRebuild(benchmark::State& state)
{
    const QStringList commands{QStringLiteral("xpos"), QStringLiteral("ypos")};
    QString text = QStringLiteral("custom_1: a.png");
    for (int line = 1; line < state.range(0); ++line)
        text += QStringLiteral("\r\ncustom_1.xpos:   %1").arg(line);
    const InjectBlock block = ParseBlock(text, {});
    const auto pane = MakePane();
    pane->LoadBytes(text.toUtf8() + "\r\n" + BlockConf(2'737));
    pane->SetSel({.EndLine = int(state.range(0))}, false);
    bool other = false;
    for (auto _ : state) {
        other = !other;
        const KeyParts parts{other ? QStringLiteral("custom_2") : QStringLiteral("custom_1"), NoPart, NoPart};
        pane->SetSelText(RebuildBlock(block, parts, {true, other}, commands, {}));
    }
}
BENCHMARK(InjectRebuild)->Arg(10)->Arg(100)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
