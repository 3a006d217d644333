// The two that keep a document's text, a pane on the component and a text by its lines, at what macros do: why runs
// work on the second. "pane" and "lines" name which.

#include "editor/make_pane.h"
#include "frame/editor_pane.h"
#include "text/line_text.h"

#include <QApplication>
#include <benchmark/benchmark.h>

namespace {

constexpr int Lines = 100'000;

struct NoClipboard : TextClipboard
{
    QString Text() const override { return {}; }
    void SetText(const QString&) override {}
};

struct Keeper
{
    explicit Keeper(bool ofPane) : pane(ofPane ? MakePane() : nullptr) {}
    DocumentText& Text() { return pane ? static_cast<DocumentText&>(*pane) : lines; }

    std::unique_ptr<EditorPane> pane;
    NoClipboard clipboard;
    LineText lines{clipboard};
};

QByteArray ManyLines()
{
    QByteArray bytes;
    for (int i = 0; i < Lines; ++i)
        bytes += "custom_" + QByteArray::number(i % 256 + 1) + ".moving.left.xpos:      5\n";
    return bytes;
}

void PrintLines(benchmark::State& state, bool ofPane)
{
    for (auto _ : state) {
        Keeper keeper(ofPane);
        const EditBatch batch(keeper.Text());
        const UndoGroup group(keeper.Text());
        for (int i = 0; i < Lines; ++i)
            keeper.Text().ReplaceSel(QStringLiteral("custom_%1.moving.left.xpos:      5\n").arg(i % 256 + 1));
    }
}
BENCHMARK_CAPTURE(PrintLines, pane, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PrintLines, lines, false)->Unit(benchmark::kMillisecond);

void ReplaceLineByLine(benchmark::State& state, bool ofPane)
{
    const QByteArray bytes = ManyLines();
    for (auto _ : state) {
        Keeper keeper(ofPane);
        DocumentText& text = keeper.Text();
        text.LoadBytes(bytes);
        const EditBatch batch(text);
        const UndoGroup group(text);
        for (int i = 0; i < Lines; ++i) {
            text.SelectLine(text.CaretLine(), false);
            QString line = text.SelText();
            text.ReplaceSel(line.replace(QStringLiteral("left"), QStringLiteral("right")));
            text.ExecuteCmd(CmdLineStart);
            text.ExecuteCmd(CmdLineDown);
        }
    }
}
BENCHMARK_CAPTURE(ReplaceLineByLine, pane, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReplaceLineByLine, lines, false)->Unit(benchmark::kMillisecond);

void ReplaceEverywhere(benchmark::State& state, bool ofPane)
{
    const QByteArray bytes = ManyLines();
    for (auto _ : state) {
        state.PauseTiming();
        Keeper keeper(ofPane);
        keeper.Text().LoadBytes(bytes);
        keeper.Text().SetFindText(QStringLiteral("left"));
        keeper.Text().SetReplaceText(QStringLiteral("right"));
        state.ResumeTiming();
        keeper.Text().ExecuteCmd(CmdReplaceAll);
    }
}
BENCHMARK_CAPTURE(ReplaceEverywhere, pane, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReplaceEverywhere, lines, false)->Unit(benchmark::kMillisecond);

/// A screen of 80 by 25, written over line by line.
void PrintScreen(benchmark::State& state, bool ofPane)
{
    constexpr int Rows = 25, Columns = 80;
    Keeper keeper(ofPane);
    DocumentText& text = keeper.Text();
    text.SetText(QString(QString(Columns, u'.') + u'\n').repeated(Rows));
    for (auto _ : state) {
        const EditBatch batch(text);
        for (int row = 0; row < Rows; ++row) {
            text.SetSel({row, 0, row, Columns}, false);
            text.ReplaceSel(QString(Columns, u'x'));
        }
    }
}
BENCHMARK_CAPTURE(PrintScreen, pane, true)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PrintScreen, lines, false)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    SetUpAccessibility(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
