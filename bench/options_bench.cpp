// The options with eight large texts open: the dialog opened and painted, each page applied and everything painted
// again. What is written goes to a disk.
#include "bench_host.h"
#include "conf_text.h"

#include "editor/make_pane.h"
#include "frame/start/start_up.h"
#include "windows/main/command_keys.h"
#include "windows/main/frmmain.h"
#include "windows/options/colours_page.h"
#include "windows/options/frm_options.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Lines = 20'000; // of each text, over a megabyte

/// The program's folder with settings that may be written.
void CopyProgram(const QString& target)
{
    const QDir program(QStringLiteral(PROJECT_FOLDER));
    QDir().mkpath(target + QStringLiteral("/data"));
    for (const QString& table : QDir(program.filePath(QStringLiteral("data"))).entryList(QDir::Files))
        QFile::copy(program.filePath(QStringLiteral("data/") + table), target + QStringLiteral("/data/") + table);
    for (const char* name : {"/Help", "/Help.zip"}) // a start looks whether they are there
        if (!QFile(target + QString::fromLatin1(name)).open(QIODevice::WriteOnly))
            qFatal("the folder cannot be written");
}

/// The main window with its texts.
struct BenchWindow
{
    BenchWindow()
    {
        CopyProgram(folder.path());
        StartFolders folders;
        folders.ProgramFolder = folder.path() + u'/';
        folders.StateFolder = state.path() + u'/';
        if (!PrepareStart(folders, {}))
            qFatal("the program does not start");
        window = std::make_unique<frmmain>();
        InstallHost(*window, host.Answers);
        window->RestorePosition();
        window->show();
        FinishStart();
        window->ShowStarted();
        for (int tab = 0; tab < 8; ++tab)
            window->Pane(tab).LoadBytes(RaggedConf(Lines));
        QCoreApplication::processEvents();
    }

    QTemporaryDir folder, state;
    BenchHost host;
    std::unique_ptr<frmmain> window;
};

OptionsPorts NoPorts()
{
    return {[] {}, [] {}, [] { return CommandShortcuts(); }};
}

void OpenOptions(benchmark::State& state, frmmain& window)
{
    for (auto _ : state) {
        frmOptions options(NoPorts(), &window);
        options.show();
        QCoreApplication::processEvents();
        options.grab();
    }
}

/// `change` is made on the page before each Apply.
template <class Change>
void ApplyPage(benchmark::State& state, frmmain& window, int page, Change change)
{
    frmOptions options(NoPorts(), &window);
    options.show();
    options.SSTab()->setCurrentIndex(page);
    auto* apply = options.findChild<QPushButton*>(QStringLiteral("cmblApply%1").arg(page));
    int turn = 0;
    for (auto _ : state) {
        change(options, turn++);
        apply->click();
        QCoreApplication::processEvents();
        window.grab();
    }
}

void ApplyGeneral(benchmark::State& state, frmmain& window)
{
    ApplyPage(state, window, 0, [](frmOptions& options, int turn) {
        options.findChild<QLineEdit*>(QStringLiteral("txtMarginSize"))->setText(QString::number(40 + turn % 2));
    });
}

void ApplyColours(benchmark::State& state, frmmain& window)
{
    ApplyPage(state, window, 1,
              [](frmOptions& options, int turn) { options.findChild<ColoursPage*>()->ApplyColourScheme(turn % 2); });
}

void ApplyMore(benchmark::State& state, frmmain& window)
{
    ApplyPage(state, window, 2, [](frmOptions& options, int) {
        options.findChild<QCheckBox*>(QStringLiteral("chkLineNumbers"))->toggle();
    });
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const BenchWindow bench;
    const auto add = [&](const char* name, void (*run)(benchmark::State&, frmmain&)) {
        benchmark::RegisterBenchmark(name, [run, &bench](benchmark::State& state) {
            run(state, *bench.window);
        })->Unit(benchmark::kMillisecond);
    };
    add("OpenOptions", OpenOptions);
    add("ApplyGeneral", ApplyGeneral);
    add("ApplyColours", ApplyColours);
    add("ApplyMore", ApplyMore);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
