// The text pane with documents of usual and of great length. Columns: the number of lines.

#include "conf_text.h"
#include "editor/make_pane.h"
#include "frame/frame_state.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <benchmark/benchmark.h>

namespace {

constexpr int Usual = 15'000, Great = 1'500'000;

LanguageObject Language()
{
    LanguageObject language;
    for (int i = 0; i < 3000; ++i)
        language.Keywords += QStringLiteral("custom_%1\n").arg(i);
    language.TagEntities = QStringLiteral("moving\nleft\ndigging\npushing\nright\nfalling\n");
    language.TagElementNames = QStringLiteral("xpos\nypos\nframes\ndelay\noffset\n");
    language.TagAttributeNames = QStringLiteral("global_sync\n");
    language.SingleLineComments = QStringLiteral("#");
    language.Operators = QStringLiteral(".\n:");
    return language;
}

struct ShownPane
{
    explicit ShownPane(int lines)
    {
        pane->SetLanguage(QStringLiteral("GFX"));
        pane->SetLineNumbering(true);
        QObject::connect(pane.get(), &EditorPane::SelectionChanged, pane.get(), [this] {
            pane->SetHighlightedLine(pane->GetSel(true).StartLine);
            benchmark::DoNotOptimize(pane->LineCount() + pane->SelLength());
        });
        pane->LoadBytes(RaggedConf(lines));
        WidgetOf(*pane)->resize(900, 700);
        WidgetOf(*pane)->show();
        Paint();
    }

    void Paint()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    void Press(int key, Qt::KeyboardModifiers keys = {}, const QString& text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, keys, text);
        QCoreApplication::sendEvent(WidgetOf(*pane), &event);
        Paint();
    }

    std::unique_ptr<EditorPane> pane = MakePane();
};

void LoadAndColour(benchmark::State& state)
{
    const QByteArray text = RaggedConf(int(state.range(0)));
    ShownPane shown(1);
    for (auto _ : state) {
        shown.pane->LoadBytes(text);
        shown.Paint();
    }
}
BENCHMARK(LoadAndColour)->Arg(Usual)->Arg(Great)->Unit(benchmark::kMillisecond);

void TypeInTheMiddle(benchmark::State& state)
{
    ShownPane shown(int(state.range(0)));
    shown.pane->ExecuteCmd(CmdGotoLine, int(state.range(0)) / 2);
    shown.Paint();
    for (auto _ : state)
        shown.Press(Qt::Key_X, {}, QStringLiteral("x"));
}
BENCHMARK(TypeInTheMiddle)->Arg(Usual)->Arg(Great)->Unit(benchmark::kMicrosecond);

/// At the end of a line of a million characters.
void TypeInALongLine(benchmark::State& state)
{
    ShownPane shown(0);
    shown.pane->LoadBytes(QByteArray(1'000'000, 'w'));
    shown.pane->ExecuteCmd(CmdDocumentEnd);
    shown.Paint();
    for (auto _ : state)
        shown.Press(Qt::Key_X, {}, QStringLiteral("x"));
}
BENCHMARK(TypeInALongLine)->Unit(benchmark::kMillisecond);

void CaretDown(benchmark::State& state)
{
    ShownPane shown(int(state.range(0)));
    for (auto _ : state)
        shown.Press(Qt::Key_Down);
}
BENCHMARK(CaretDown)->Arg(Usual)->Arg(Great)->Unit(benchmark::kMicrosecond);

void JumpToBothEnds(benchmark::State& state)
{
    ShownPane shown(int(state.range(0)));
    for (auto _ : state) {
        shown.Press(Qt::Key_End, Qt::ControlModifier);
        shown.Press(Qt::Key_Home, Qt::ControlModifier);
    }
}
BENCHMARK(JumpToBothEnds)->Arg(Usual)->Arg(Great)->Unit(benchmark::kMicrosecond);

void ReplaceAllAndUndo(benchmark::State& state)
{
    ShownPane shown(int(state.range(0)));
    shown.pane->SetFindText(QStringLiteral("moving"));
    shown.pane->SetReplaceText(QStringLiteral("turning"));
    for (auto _ : state) {
        shown.pane->ExecuteCmd(CmdReplaceAll);
        shown.Paint();
        shown.pane->ExecuteCmd(CmdUndo);
        shown.Paint();
    }
    state.counters["replaced"] = shown.pane->LastReplaceCount();
}
BENCHMARK(ReplaceAllAndUndo)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void ReplaceAllByExpressionAndUndo(benchmark::State& state)
{
    ShownPane shown(int(state.range(0)));
    shown.pane->SetFindOptions({.RegularExpression = true});
    shown.pane->SetFindText(QStringLiteral("(custom)_(\\d+)"));
    shown.pane->SetReplaceText(QStringLiteral("\\2_\\1"));
    for (auto _ : state) {
        shown.pane->ExecuteCmd(CmdReplaceAll);
        shown.pane->ExecuteCmd(CmdUndo);
    }
}
BENCHMARK(ReplaceAllByExpressionAndUndo)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

void ReplaceAllInOneLongLine(benchmark::State& state)
{
    const auto pane = MakePane();
    pane->LoadBytes(QByteArray("ab \xC3\xA4 ").repeated(state.range(0)));
    pane->SetFindOptions({.RegularExpression = true});
    pane->SetFindText(QStringLiteral("(a)b"));
    pane->SetReplaceText(QStringLiteral("$1b"));
    for (auto _ : state)
        pane->ExecuteCmd(CmdReplaceAll);
}
BENCHMARK(ReplaceAllInOneLongLine)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// Ten lines of a column block, far down in a text.
void SelectColumnsFarDown(benchmark::State& state)
{
    const auto pane = MakePane();
    const int line = int(state.range(0));
    pane->LoadBytes(QByteArray("abcdef\n").repeated(line + 20));
    for (auto _ : state)
        pane->SetSel({line, 1, line + 10, 3, true}, false);
}
BENCHMARK(SelectColumnsFarDown)->Arg(250'000)->Unit(benchmark::kMillisecond);

void ReplaceLines(benchmark::State& state)
{
    ShownPane shown(int(state.range(0)));
    const QByteArray changed = shown.pane->Bytes().toByteArray().replace(": ", ":\t");
    for (auto _ : state) {
        shown.pane->ReplaceLines(0, int(state.range(0)), changed);
        state.PauseTiming();
        shown.pane->ExecuteCmd(CmdUndo);
        state.ResumeTiming();
    }
}
BENCHMARK(ReplaceLines)->Arg(Great)->Unit(benchmark::kMillisecond);

void UndoOfReplaceLines(benchmark::State& state)
{
    ShownPane shown(int(state.range(0)));
    const QByteArray changed = shown.pane->Bytes().toByteArray().replace(": ", ":\t");
    for (auto _ : state) {
        state.PauseTiming();
        shown.pane->ReplaceLines(0, int(state.range(0)), changed);
        state.ResumeTiming();
        shown.pane->ExecuteCmd(CmdUndo);
    }
}
BENCHMARK(UndoOfReplaceLines)->Arg(Great)->Unit(benchmark::kMillisecond);

void SingleEditsInABatch(benchmark::State& state)
{
    ShownPane shown(int(state.range(0)));
    for (auto _ : state) {
        const UndoGroup group(*shown.pane);
        const EditBatch batch(*shown.pane);
        for (int line = 0; line < Usual; ++line)
            shown.pane->InsertText(QStringLiteral("#"), {line, 0, line, 0});
    }
}
BENCHMARK(SingleEditsInABatch)->Arg(Usual)->Arg(Great)->Unit(benchmark::kMillisecond)->Iterations(3);

void CaretCommandOfAMacro(benchmark::State& state)
{
    ShownPane shown(Usual);
    shown.pane->LockRedraw(true);
    for (auto _ : state)
        if (!shown.pane->ExecuteCmd(int(state.range(0))))
            shown.pane->ExecuteCmd(CmdDocumentStart);
}
BENCHMARK(CaretCommandOfAMacro)->Arg(CmdCharRight)->Arg(CmdWordRight)->Arg(CmdLineDown)->Arg(CmdDeleteRight);

void OpenCodeList(benchmark::State& state)
{
    ShownPane shown(10);
    QStringList words;
    for (int i = 0; i < state.range(0); ++i)
        words << QStringLiteral("word_%1").arg((i * 7919) % 100'000);
    shown.pane->CodeList = [&](EditorPane&, bool) { return words; };
    for (auto _ : state) {
        shown.Press(Qt::Key_Space, Qt::ControlModifier);
        state.PauseTiming();
        shown.Press(Qt::Key_Escape);
        state.ResumeTiming();
    }
}
BENCHMARK(OpenCodeList)->Arg(3'000)->Arg(30'000)->Unit(benchmark::kMillisecond);

void SelectAllAndMeasure(benchmark::State& state)
{
    ShownPane shown(int(state.range(0)));
    for (auto _ : state) {
        shown.pane->ExecuteCmd(CmdSelectAll);
        shown.pane->ExecuteCmd(CmdDocumentStart);
    }
}
BENCHMARK(SelectAllAndMeasure)->Arg(Great)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    SetUpAccessibility(false);
    Frame.Globals.RegisterLanguage(QStringLiteral("GFX"), Language());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
