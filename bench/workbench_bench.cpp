// The macro workbench with a source of 10,000 lines: opened and painted, a key pressed in it, the look for marks behind
// the last key, the words offered at a place; and a step of a run with 1,000 variables in the watch list.
#include "bench_host.h"

#include "editor/make_pane.h"
#include "frame/frame_state.h"
#include "frame/run_scope.h"
#include "frame/start/start_up.h"
#include "macro/code_words.h"
#include "macro/source_marks.h"
#include "windows/macro/frm_macro_edit.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <functional>

namespace {

constexpr int SourceLines = 10'000, WatchedVariables = 1'000;

/// Subs with an if, a loop and jumps, as a large macro has them.
QStringList LongSource()
{
    QStringList lines = {QStringLiteral("dim $count"), QStringLiteral("dim $text")};
    for (int sub = 0; lines.size() < SourceLines; ++sub) {
        const QString name = QStringLiteral("@part%1").arg(sub);
        lines << QStringLiteral("sub ") + name << QStringLiteral("# what the part does")
              << QStringLiteral("set $text =\"one two\" +$count") << QStringLiteral("loop 1 10")
              << QStringLiteral("if $count >>[loopnumber] <<($count+100)") << QStringLiteral("print $text [br]")
              << QStringLiteral("else") << QStringLiteral("set $count +1") << QStringLiteral("endif")
              << QStringLiteral("endloop") << QStringLiteral("gosub ") + name << QStringLiteral("endsub") << QString();
    }
    return lines;
}

QString ManyVariables()
{
    QStringList lines;
    for (int i = 0; i < WatchedVariables; ++i)
        lines << QStringLiteral("dim $variable%1").arg(i);
    lines << QStringLiteral("label @again") << QStringLiteral("set $variable0 +1")
          << QStringLiteral("gotolabel @again");
    return lines.join(QLatin1String("\r\n"));
}

/// The program's tables in a folder of their own, and a source to open.
struct BenchProgram
{
    BenchProgram()
    {
        const QDir project(QStringLiteral(PROJECT_FOLDER));
        QDir().mkpath(folder.filePath(QStringLiteral("data")));
        for (const QString& table : QDir(project.filePath(QStringLiteral("data"))).entryList(QDir::Files))
            QFile::copy(project.filePath(QStringLiteral("data/") + table),
                        folder.filePath(QStringLiteral("data/") + table));
        for (const char* name : {"Help", "Help.zip"}) // a start looks whether they are there
            Write(QString::fromLatin1(name), {});
        StartFolders folders;
        folders.ProgramFolder = folder.path() + u'/';
        folders.StateFolder = state.path() + u'/';
        if (!PrepareStart(folders, {}))
            qFatal("the program does not start");
        FinishStart();
        Macro = Write(QStringLiteral("long.gfbasic"), LongSource().join(QLatin1String("\r\n")).toUtf8());
    }

    QString Write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("the folder cannot be written");
        file.write(bytes);
        return file.fileName();
    }

    QTemporaryDir folder, state;
    BenchHost host;
    QString Macro;
};

/// Opens the workbench, acts on it, closes it.
void OnWorkbench(const QString& macro, const std::function<void(frmMacroEdit&)>& act)
{
    QTimer::singleShot(0, qApp, [&act] {
        auto& window = static_cast<frmMacroEdit&>(*QApplication::activeModalWidget());
        act(window);
        window.txtEdit(frmMacroEdit::Code).SetModified(false);
        window.close();
    });
    frmMacroEdit::Run(nullptr, macro);
}

void OpenWorkbench(benchmark::State& state, const QString& macro)
{
    for (auto _ : state)
        OnWorkbench(macro, [](frmMacroEdit& window) { window.grab(); });
}

void PressKey(benchmark::State& state, const QString& macro)
{
    OnWorkbench(macro, [&state](frmMacroEdit& window) {
        EditorPane& code = window.txtEdit(frmMacroEdit::Code);
        code.SetSel({SourceLines / 2, 0, SourceLines / 2, 0}, true);
        QCoreApplication::processEvents();
        for (auto _ : state) {
            QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
            QCoreApplication::sendEvent(WidgetOf(code), &press);
            QCoreApplication::processEvents();
        }
    });
}

/// A step each time that the run stands still, until the benchmark has enough.
void StepAndWatch(benchmark::State& state)
{
    OnWorkbench({}, [&state](frmMacroEdit& window) {
        window.txtEdit(frmMacroEdit::Code).SetText(ManyVariables());
        window.findChild<QCheckBox*>(QStringLiteral("chkWatch"))->setChecked(true);
        auto* step = window.findChild<QAction*>(QStringLiteral("mnuStep"));
        const auto* goesOn = window.findChild<QAction*>(QStringLiteral("mnuContinue"));
        int lines = 0;
        QTimer tick;
        QObject::connect(&tick, &QTimer::timeout, &window, [&] {
            if (!goesOn->isEnabled())
                return;
            if (++lines <= WatchedVariables || state.KeepRunning()) // the variables are made first
                step->trigger();
            else
                StopRuns(StopReason::Esc);
        });
        tick.start(0);
        step->trigger();
    });
}

void LookForMarks(benchmark::State& state)
{
    const QStringList source = LongSource();
    for (auto _ : state)
        benchmark::DoNotOptimize(MarksOfSource(source));
}

void OfferNames(benchmark::State& state)
{
    const QStringList source = LongSource();
    for (auto _ : state)
        benchmark::DoNotOptimize(CodeWordsAt(QStringLiteral("gosub @pa"), true, [&] { return source; }));
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const BenchProgram program;
    benchmark::RegisterBenchmark("open 10,000 lines", [&](benchmark::State& state) {
        OpenWorkbench(state, program.Macro);
    })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("key press in 10,000 lines", [&](benchmark::State& state) {
        PressKey(state, program.Macro);
    })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("step with 1,000 variables watched", StepAndWatch)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("marks of 10,000 lines", LookForMarks)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("names offered from 10,000 lines", OfferNames)->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
