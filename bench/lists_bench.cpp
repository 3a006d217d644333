// The file lists beside the text: a folder read, read again with nothing or one file new, shown, and left alone.
#include "bench_host.h"

#include "frame/media/media_lists.h"
#include "windows/media/media_view.h"
#include "windows/media/media_watch.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <ctime>

namespace {

const QString Patterns = QStringLiteral("*.pcx;*.png");

void Touch(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(path));
}

/// A folder of many sheets, made once for each number.
QString FolderOf(qint64 files)
{
    static const QTemporaryDir root;
    const QString folder = root.path() + QStringLiteral("/%1/").arg(files);
    if (QDir(folder).exists())
        return folder;
    QDir().mkpath(folder);
    for (qint64 i = 0; i < files; ++i)
        Touch(folder + QStringLiteral("tile_%1.png").arg((i * 7919) % files));
    QThread::sleep(4); // its time is trusted from then on
    return folder;
}

void ReadFolder(benchmark::State& state)
{
    const QString folder = FolderOf(state.range(0));
    for (auto _ : state) {
        MediaListModel list;
        list.Show(folder, Patterns);
        benchmark::DoNotOptimize(list.rowCount());
    }
}

void RefreshSame(benchmark::State& state)
{
    MediaListModel list;
    list.Show(FolderOf(state.range(0)), Patterns);
    list.rowCount();
    for (auto _ : state)
        list.Refresh();
}

void RefreshWithOneNew(benchmark::State& state)
{
    const QString folder = FolderOf(state.range(0)), file = folder + QStringLiteral("tile_5_new.png");
    MediaListModel list;
    list.Show(folder, Patterns);
    list.rowCount();
    for (auto _ : state) {
        QFile::exists(file) ? static_cast<void>(QFile::remove(file)) : Touch(file);
        list.Refresh();
    }
    QFile::remove(file);
}

/// From the change of folder to the painted rows.
void ShowInView(benchmark::State& state)
{
    const QString folder = FolderOf(state.range(0));
    MediaView view(MediaSource::PCXBrowser, "bench", nullptr);
    view.resize(160, 500);
    view.show();
    for (auto _ : state) {
        Lists().Base.Show({}, Patterns);
        Lists().Base.Show(folder, Patterns);
        view.grab();
    }
}

void OneNewInView(benchmark::State& state)
{
    const QString folder = FolderOf(state.range(0)), file = folder + QStringLiteral("tile_5_new.png");
    MediaView view(MediaSource::PCXBrowser, "bench", nullptr);
    view.resize(160, 500);
    view.show();
    Lists().Base.Show(folder, Patterns);
    view.SelectRow(7);
    view.grab();
    for (auto _ : state) {
        QFile::exists(file) ? static_cast<void>(QFile::remove(file)) : Touch(file);
        Lists().Base.Refresh();
        view.grab();
    }
    QFile::remove(file);
}

#define SIZES Arg(100)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)
BENCHMARK(ReadFolder)->SIZES;
BENCHMARK(RefreshSame)->SIZES;
BENCHMARK(RefreshWithOneNew)->SIZES;
BENCHMARK(ShowInView)->SIZES;
BENCHMARK(OneNewInView)->SIZES;

/// Processor time of a minute in which nothing happens, with the list shown and its folder watched.
void IdleMinute(benchmark::State& state)
{
    const QString folder = FolderOf(state.range(0));
    MediaView view(MediaSource::PCXBrowser, "bench", nullptr);
    view.show();
    Lists().Base.Show(folder, Patterns);
    MediaWatch watch(nullptr);
    watch.Follow({folder});
    view.grab();
    for (auto _ : state) {
        QEventLoop loop;
        QTimer::singleShot(60'000, &loop, &QEventLoop::quit);
        const std::clock_t before = std::clock();
        loop.exec();
        state.SetIterationTime(double(std::clock() - before) / CLOCKS_PER_SEC);
    }
}
BENCHMARK(IdleMinute)->Arg(10'000)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    BenchHost host;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
