// Images through the helper process, beside the image library called plainly. With a folder as the argument: every
// image in it once, with what the decoder says and, for PCX, whether a second reader sees the same pixels.
#include "decoder/pcx_files.h"
#include "decoder/sample_images.h"
#include "platform/images/image_service.h"

#include <FreeImage.h>
#include <QCoreApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <benchmark/benchmark.h>

namespace {

/// A sheet: tiles of few colours, some rows of noise.
QImage SheetPicture(int side)
{
    QImage picture(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            picture.setPixel(x, y, qRgb(x / 32 * 8 % 256, y / 32 * 8 % 256, y % 8 == 0 ? x * y % 251 : 40));
    return picture;
}

/// The files of one side's length, young enough never to be kept unless aged.
class Files
{
public:
    explicit Files(int side)
    {
        Write("24.pcx", BuildPcx({.Width = side, .Height = side, .Planes = 3}, 1));
        Write("8.pcx", BuildPcx({.Width = side, .Height = side}, 2));
        Write("24.png", Written(NetworkGraphicsKind, SheetPicture(side), 24));
    }
    QString Path(const char* name) const { return folder.filePath(QLatin1String(name)); }

private:
    void Write(const char* name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", name);
    }
    QTemporaryDir folder;
};

images::ServicePlan Plan(qsizetype keptBytes)
{
    return {.Decoder = QCoreApplication::applicationDirPath() + QStringLiteral("/gemforge-decoder"),
            .KeptBytes = keptBytes};
}

/// What a program does that calls the library itself.
QImage LoadPlainly(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    FIBITMAP* const image = FreeImage_Load(FREE_IMAGE_FORMAT(ImageKindOfName(path)), name.constData());
    FIBITMAP* const whole = FreeImage_ConvertTo32Bits(image);
    QImage pixels(int(FreeImage_GetWidth(whole)), int(FreeImage_GetHeight(whole)), QImage::Format_RGB32);
    for (int y = 0; y < pixels.height(); ++y)
        memcpy(pixels.scanLine(y), FreeImage_GetScanLine(whole, pixels.height() - 1 - y), size_t(pixels.width()) * 4);
    FreeImage_Unload(whole);
    FreeImage_Unload(image);
    return pixels;
}

void Plain(benchmark::State& state, const char* name)
{
    const Files files(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(LoadPlainly(files.Path(name)));
}

void Helped(benchmark::State& state, const char* name)
{
    const Files files(int(state.range(0)));
    images::Service service(Plan(0));
    for (auto _ : state)
        if (!service.Load(files.Path(name), -1))
            state.SkipWithError("not loaded");
}

void Kept(benchmark::State& state, const char* name)
{
    const Files files(int(state.range(0)));
    images::Service service(Plan(64 << 20));
    QThread::msleep(200);
    for (auto _ : state)
        if (!service.Load(files.Path(name), -1))
            state.SkipWithError("not loaded");
}

void ColdHelper(benchmark::State& state)
{
    const Files files(512);
    for (auto _ : state) {
        images::Service service(Plan(0));
        if (!service.Load(files.Path("24.pcx"), -1))
            state.SkipWithError("not loaded");
    }
}

void HeaderOnly(benchmark::State& state)
{
    const Files files(2048);
    images::Service service(Plan(0));
    for (auto _ : state)
        if (!service.ReadHeader(files.Path("24.png"), -1))
            state.SkipWithError("not loaded");
}

#define SHEETS(how, name)                                                                                              \
    BENCHMARK_CAPTURE(how, name, name)->Arg(512)->Arg(2048)->Unit(benchmark::kMillisecond)->UseRealTime()
SHEETS(Plain, "8.pcx");
SHEETS(Helped, "8.pcx");
SHEETS(Plain, "24.pcx");
SHEETS(Helped, "24.pcx");
SHEETS(Plain, "24.png");
SHEETS(Helped, "24.png");
SHEETS(Kept, "24.png");
BENCHMARK(ColdHelper)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(HeaderOnly)->Unit(benchmark::kMicrosecond)->UseRealTime();

QByteArray WholeFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Try(images::Service& service, const QString& path)
{
    QElapsedTimer timer;
    timer.start();
    const auto picture = service.Load(path, -1);
    const double took = double(timer.nsecsElapsed()) / 1e6;
    if (!picture) {
        printf("%s: %s\n", qPrintable(path), qPrintable(picture.error().Reason));
        return;
    }
    const bool pcx = picture->Kind == PaintbrushKind;
    const QImage second = pcx ? ReadPcx(WholeFile(path)) : LoadPlainly(path);
    printf("%s: %dx%d, %d bits, %d colours%s, %.1f ms, %s reader sees %s\n", qPrintable(path), picture->Pixels.width(),
           picture->Pixels.height(), picture->Bits, picture->ColoursUsed, picture->EndsEarly ? ", ends early" : "",
           took, pcx ? "the second" : "the plain",
           Difference(picture->Pixels, second.convertToFormat(picture->Pixels.format())) == 0 ? "the same"
                                                                                              : "something else");
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (argc < 2) {
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    }
    images::Service service(Plan(0));
    QDirIterator files(QString::fromLocal8Bit(argv[1]), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        if (const QString path = files.next(); ImageKindOfName(path) >= 0)
            Try(service, path);
}
