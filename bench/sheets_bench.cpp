// The tile sheet window: drawing a sheet, a running preview, and the time it keeps by the clock of the wall.

#include "conf/element_record.h"
#include "graphics/animation.h"
#include "graphics/sheet.h"
#include "platform/images/images.h"
#include "windows/sheet/animation_preview.h"
#include "windows/sheet/sheet_view.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

QImage Picture(int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, qRgb(x * 7, y * 5, x ^ y));
    return image;
}

void HoldRun(int frames, int delay)
{
    Conf.Element = ElementRecord{};
    Conf.Element.Frames = frames;
    Conf.Element.Delay = delay;
    Conf.Element.StartFrame = -1;
}

/// From the file to the first painted view.
void OpenAndDraw(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("sheet.png"));
    Picture(int(state.range(0))).save(file);
    for (auto _ : state) {
        images::Stop(); // not from what is kept
        const auto picture = images::Load(file);
        if (!picture) {
            state.SkipWithError("the sheet cannot be read");
            return;
        }
        ShowSheet(picture->Pixels);
        SheetView view;
        view.resize(view.sizeHint());
        view.ShowPicture();
        benchmark::DoNotOptimize(view.grab());
    }
}
BENCHMARK(OpenAndDraw)->Arg(512)->Arg(2048)->Unit(benchmark::kMillisecond);

/// A redraw of the whole view.
void Draw(benchmark::State& state)
{
    ShowSheet(Picture(int(state.range(0))));
    SheetView view;
    view.resize(view.sizeHint());
    view.ShowPicture();
    for (auto _ : state)
        benchmark::DoNotOptimize(view.grab());
}
BENCHMARK(Draw)->Arg(512)->Arg(2048)->Unit(benchmark::kMillisecond);

/// Counts what a widget paints.
class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        Paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    qint64 Paints = 0;
};

/// One tick of the preview, painted, with its square on the sheet painted where it was and where it is.
void Tick(benchmark::State& state)
{
    ShowSheet(Picture(512));
    HoldRun(16, 1);
    QWidget window;
    auto* const row = new QHBoxLayout(&window);
    auto* const view = new SheetView;
    auto* const preview = new AnimationPreview;
    row->addWidget(view);
    row->addWidget(preview);
    QObject::connect(preview, &AnimationPreview::FrameShown, view, &SheetView::SetCurrentTile);
    view->ShowPicture();
    window.show();
    QCoreApplication::processEvents();
    PaintCounter counter;
    view->viewport()->installEventFilter(&counter);
    for (auto _ : state) {
        preview->StepOnce();
        QEvent paint(QEvent::UpdateRequest); // now and not by the next frame of the screen
        QCoreApplication::sendEvent(&window, &paint);
    }
    state.counters["painted"] = double(counter.Paints) / double(state.iterations());
}
BENCHMARK(Tick)->Unit(benchmark::kMicrosecond);

/// Ten seconds at a delay: frames shown beside those that should have been.
void TenSeconds(benchmark::State& state)
{
    ShowSheet(Picture(512));
    HoldRun(200, int(state.range(0)));
    AnimationPreview preview;
    preview.show();
    for (auto _ : state) {
        QElapsedTimer clock;
        preview.Start();
        const int before = Animation.CurrentFrame;
        clock.start();
        qint64 shown = 0;
        int last = before;
        while (clock.elapsed() < 10'000) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
            shown += (Animation.CurrentFrame - last + 200) % 200;
            last = Animation.CurrentFrame;
        }
        state.counters["shown"] = double(shown);
        state.counters["due"] = double(10'000 / (state.range(0) * DelayUnit));
    }
}
BENCHMARK(TenSeconds)->Arg(1)->Arg(7)->Arg(50)->Arg(199)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

int main(int count, char** values)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, values);
    benchmark::Initialize(&count, values);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
