// What the game's tools cost by themselves, with programs in the game's place that end at once: a fast test, a safe
// test's copy, an extract of today's longest dump, many complaints in the list.
#include "bench_host.h"
#include "frame/editor_pane.h"
#include "frame/files/file_commands.h"
#include "frame/frame_state.h"
#include "game/extract.h"
#include "game/fast_test.h"
#include "game/game_messages.h"
#include "game/game_state.h"
#include "game/game_words.h"
#include "game/prepared_set.h"
#include "platform/files/name_swap.h"
#include "windows/game/words_panel.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int DumpLines = 14'870, ManyFindings = 10'000;

void Write(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray Dump()
{
    QByteArray text = "# You can configure files here.\n# (They are comments.)\n\n";
    for (int line = 3; line < DumpLines; ++line)
        text += "# some_element_" + QByteArray::number(line) + ".moving.left.xpos:         12\n";
    return text;
}

/// With every sync that keeps the author's conf safe.
void SwapAndPutBack(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString conf = folder.filePath(QStringLiteral("graphicsinfo.conf"));
    Write(conf, QByteArray(qsizetype(1) << 20, 'x'));
    for (auto _ : state) {
        auto swap = name_swap::Begin({conf, QStringLiteral("graphicsinfo.confABCDE"), "name: a\n", {}});
        if (!swap || !swap->End().Failures.empty())
            state.SkipWithError("the swap failed");
    }
}
BENCHMARK(SwapAndPutBack)->Unit(benchmark::kMillisecond);

/// A program in the game's place.
void UseProgram(const QTemporaryDir& folder, const QByteArray& script)
{
    Frame.Settings.RNDPath = folder.filePath(QStringLiteral("game"));
    Write(Frame.Settings.RNDPath, "#!/bin/sh\n" + script + '\n');
    QFile::setPermissions(Frame.Settings.RNDPath, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

/// The whole command, the start of a program included.
void FastTest(benchmark::State& state)
{
    const QTemporaryDir folder;
    UseProgram(folder, "exit 0");
    const QString conf = folder.filePath(QStringLiteral("graphics/graphicsinfo.conf"));
    Write(conf, "name: a\nsort_priority: 1\nbug: bug.png\n" + QByteArray(qsizetype(1) << 20, '\n'));
    if (!OpenDocument(conf, true))
        state.SkipWithError("the conf is not open");
    for (auto _ : state) {
        CurrentPane().SetSel({2, 0, 2, LineEndColumn}, false);
        FastLaunch();
    }
    if (QDir(folder.filePath(QStringLiteral("graphics"))).entryList(QDir::Files | QDir::Hidden).size() != 1)
        state.SkipWithError("not all is back");
}
BENCHMARK(FastTest)->Unit(benchmark::kMillisecond);

/// A set of 500 files and 100 MB, made ready and thrown away.
void PrepareAndForgetSet(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString set = folder.filePath(QStringLiteral("set/"));
    Write(set + QStringLiteral("levelinfo.conf"), "name: a\nlevels: 100\n");
    for (int i = 0; i < 250; ++i)
        Write(set + QStringLiteral("%1.level").arg(i, 3, 10, QLatin1Char('0')), QByteArray(20'000, 'l'));
    for (int i = 0; i < 249; ++i)
        Write(set + QStringLiteral("graphics/sheet_%1.png").arg(i), QByteArray(400'000, 'p'));
    for (auto _ : state) {
        const auto ready = PrepareSet({set, 5, {}, false});
        if (!ready || ready->Count.Linked != 249)
            state.SkipWithError("the set is not ready");
    }
}
BENCHMARK(PrepareAndForgetSet)->Unit(benchmark::kMillisecond);

/// The whole command with a program that prints at once, into a pane without a window.
void ExtractDump(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString dump = folder.filePath(QStringLiteral("dump"));
    Write(dump, Dump());
    UseProgram(folder, "exec cat '" + QFile::encodeName(dump) + '\'');
    for (auto _ : state) {
        CurrentPane().SetModified(false);
        ExtractFromGame(1);
    }
    // Behind the last line break stands one more.
    if (CurrentPane().LineCount() != DumpLines + 1 || !CurrentPane().GetLine(3).startsWith(QLatin1StringView("some_")))
        state.SkipWithError("the dump is not there");
}
BENCHMARK(ExtractDump)->Unit(benchmark::kMillisecond);

void ShowManyWords(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString conf = folder.filePath(QStringLiteral("graphics/graphicsinfo.conf"));
    QByteArray text, printed = "[WARN] ---\n[WARN] unknown token(s) found in config file:\n[WARN] - config file: '" +
                               QFile::encodeName(conf) + "'\n";
    for (int i = 0; i < ManyFindings; ++i) {
        const QByteArray key = "no_such_element_" + QByteArray::number(i);
        text += key + ": sheet.png\n";
        printed += "[WARN] - dynamic token: '" + key + "'\n";
    }
    Write(conf, text);
    WordsPanel panel;
    panel.resize(800, 300);
    panel.show();
    for (auto _ : state) {
        ShowGameWords(FindingsOf(printed), folder.path() + QLatin1Char('/'));
        panel.ShowList();
        QCoreApplication::processEvents();
    }
    if (Words().rowCount() != ManyFindings || Words().At(ManyFindings - 1)->Line != ManyFindings - 1)
        state.SkipWithError("not all are there");
}
BENCHMARK(ShowManyWords)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir home;
    for (const char* name : {"HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
        qputenv(name, QFile::encodeName(home.path()));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    BenchHost host;
    Frame.ProgramFolder = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    Frame.DataFolder = Frame.ProgramFolder + QStringLiteral("data/");
    Frame.ConfNames.at(ModeLvl) = QStringLiteral("levelinfo.conf");
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    ResetGame();
}
