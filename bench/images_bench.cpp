// Pictures and films beside the command-line tools that do the same, as ratios of whole runs, and the quality of the
// reductions as PSNR. What is not installed is left out.
#include "decoder/film_files.h"
#include "graphics/convert_pictures.h"
#include "graphics/make_film_sheet.h"
#include "platform/files/paths.h"
#include "platform/images/bitmap_file.h"
#include "platform/images/images.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>

namespace {

constexpr int Rounds = 7;

/// Milliseconds of the middle round.
double Middle(const std::function<bool()>& run)
{
    std::vector<double> times;
    for (int round = 0; round < Rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        if (!run())
            return NAN;
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::nth_element(times.begin(), times.begin() + Rounds / 2, times.end());
    return times[Rounds / 2];
}

bool Runs(const QString& program, const QStringList& arguments)
{
    return QProcess::execute(program, arguments) == 0;
}

void Compare(const char* what, const std::function<bool()>& ours, const QString& program, const QStringList& arguments)
{
    const double mine = Middle(ours);
    if (QStandardPaths::findExecutable(program).isEmpty()) {
        printf("%-44s %8.1f ms (%s is not installed)\n", what, mine, qPrintable(program));
        return;
    }
    const double other = Middle([&] { return Runs(program, arguments); });
    printf("%-44s %8.1f ms, %-8s %8.1f ms: %.2f of it\n", what, mine, qPrintable(program), other, mine / other);
}

/// Soft clouds: sums of waves, which have colours everywhere.
QImage Clouds(int side)
{
    QImage picture(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const double u = x * 6.0 / side, v = y * 6.0 / side;
            const auto wave = [](double at) { return int(127.5 + 127 * std::sin(at)); };
            picture.setPixel(x, y, qRgb(wave(u + std::sin(v * 2)), wave(v * 1.3 + std::cos(u * 3)), wave(u * v / 2)));
        }
    return picture;
}

/// A shaded ball on black.
QImage Ball(int side)
{
    QImage picture(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const double u = x * 2.0 / side - 1, v = y * 2.0 / side - 1, depth = 0.8 - u * u - v * v;
            const double light = depth > 0 ? std::clamp((std::sqrt(depth) * 0.7 - u * 0.4 - v * 0.4), 0.02, 1.0) : 0;
            picture.setPixel(x, y, qRgb(int(light * 255), int(light * light * 220), int(light * 90)));
        }
    return picture;
}

QImage Slopes(int side)
{
    QImage picture(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            picture.setPixel(x, y, qRgb(x * 255 / side, y * 255 / side, (x + y) * 127 / side));
    return picture;
}

double Psnr(const QImage& one, const QImage& other)
{
    double sum = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            for (const int shift : {0, 8, 16}) {
                const int off = int(one.pixel(x, y) >> shift & 255) - int(other.pixel(x, y) >> shift & 255);
                sum += off * off;
            }
    return sum == 0 ? INFINITY : 10 * std::log10(255.0 * 255 * 3 * one.width() * one.height() / sum);
}

void CompareSpeed(const QTemporaryDir& folder)
{
    const QString png = folder.filePath(QStringLiteral("in.png")), pcx = folder.filePath(QStringLiteral("out.pcx"));
    const QString magick = QStringLiteral("convert");
    Clouds(2048).save(png);
    const auto convert = [&](std::optional<images::Reduction> fewer) {
        return [=] { return ConvertPicture(png, pcx, {.Fewer = fewer}).has_value(); };
    };
    Compare("2048 by 2048 PNG to PCX, 24 bit", convert({}), magick, {png, pcx});
    Compare("the same, 8 bit by Wu", convert(images::Reduction{}), magick,
            {png, QStringLiteral("-colors"), QStringLiteral("256"), pcx});
    Compare("the same, without its dither", convert(images::Reduction{}), magick,
            {png, QStringLiteral("+dither"), QStringLiteral("-colors"), QStringLiteral("256"), pcx});
    Compare("the same, 8 bit by NeuQuant", convert(images::Reduction{.Method = images::Quantizer::NeuQuant}), magick,
            {png, QStringLiteral("-colors"), QStringLiteral("256"), pcx});
}

void CompareFilms(const QTemporaryDir& folder)
{
    const QList<QImage> small = FilmFrames(1000), large = FilmFrames(1000, {320, 240});
    struct Row
    {
        const char *Encoder, *Name;
        const QList<QImage>& Frames;
        const char* Scale;
    };
    const Row rows[] = {{"rawvideo", "raw.avi", small, ""},
                        {"mjpeg", "mjpeg.avi", small, ""},
                        {"cinepak", "cinepak.avi", small, ""},
                        {"libx264", "h264.mp4", small, ""},
                        {"libx264", "large.mp4", large, "scale=32:32,"}};
    for (const Row& row : rows) {
        const QString film = folder.filePath(QString::fromLatin1(row.Name)),
                      out = folder.filePath(QStringLiteral("out.bmp"));
        const QString ending = film.sliced(film.lastIndexOf(u'.') + 1);
        QFile file(film);
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(EncodedFilm(row.Encoder, qPrintable(ending), row.Frames)) <= 0)
            qFatal("no film");
        file.close();
        const bool scales = *row.Scale != 0;
        const FilmPlan plan{.IgnoreDups = false, .Frames = {.How = scales ? films::Fit::Whole : films::Fit::TilesOnly}};
        Compare(row.Name,
                [&] {
                    const FilmReport report = SheetFromFilm(film, plan);
                    return report.Tiles == 1000 && paths::WriteWhole(out, BitmapFile(report.Sheet)).has_value();
                },
                QStringLiteral("ffmpeg"),
                {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-y"), QStringLiteral("-i"), film,
                 QStringLiteral("-vf"), QString::fromLatin1(row.Scale) + QStringLiteral("tile=16x63"), out});
    }
}

void CompareQuality(const QTemporaryDir& folder, const QString& examples)
{
    const std::pair<const char*, QImage> pictures[] = {
        {"clouds", Clouds(512)},
        {"ball", Ball(512)},
        {"slopes", Slopes(512)},
        {"tiles", QImage(examples + QStringLiteral("grotto_tiles.png")).convertToFormat(QImage::Format_RGB32)},
        {"creatures", QImage(examples + QStringLiteral("grotto_creatures.png")).convertToFormat(QImage::Format_RGB32)}};
    const bool hasOther = !QStandardPaths::findExecutable(QStringLiteral("convert")).isEmpty();
    printf("\nPSNR in dB            Wu  NeuQuant   convert  without dither\n");
    for (const auto& [name, picture] : pictures)
        for (const int colours : {16, 256}) {
            printf("%-10s %3d", name, colours);
            for (const auto method : {images::Quantizer::Wu, images::Quantizer::NeuQuant}) {
                const auto reduced = images::Reduce(picture, {.Colours = quint32(colours), .Method = method});
                printf("%10.2f", reduced ? Psnr(picture, *reduced) : NAN);
            }
            const QString in = folder.filePath(QStringLiteral("q.bmp")), out = folder.filePath(QStringLiteral("q.png"));
            if (hasOther && paths::WriteWhole(in, BitmapFile(picture)))
                for (const QString& dither : {QStringLiteral("-dither"), QStringLiteral("+dither")}) {
                    const QStringList how = dither.startsWith(u'-') ? QStringList{dither, QStringLiteral("Riemersma")}
                                                                    : QStringList{dither};
                    Runs(QStringLiteral("convert"),
                         QStringList{in} + how + QStringList{QStringLiteral("-colors"), QString::number(colours), out});
                    printf("%10.2f", Psnr(picture, QImage(out).convertToFormat(QImage::Format_RGB32)));
                }
            printf("\n");
        }
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    CompareSpeed(folder);
    CompareFilms(folder);
    CompareQuality(folder, QStringLiteral(PROJECT_FOLDER "/examples/graphics/"));
    images::Stop();
    return 0;
}
