#include "decoder/decode_here.h"
#include "decoder/program/reduce_image.h"
#include "platform/images/bitmap_file.h"
#include "platform/images/image_kinds.h"

#include <QRandomGenerator>
#include <QSet>
#include <gtest/gtest.h>

namespace {

using decoder::Quantizer;
using decoder::Reduction;
using decoder::Task;

decoder::Decoded MakeHere(const QImage& picture, Task what, const Reduction& how, quint64* work = nullptr)
{
    const QByteArray file = BitmapFile(picture);
    const decoder::Request request{.Kind = WindowsBitmapKind, .What = what, .How = how};
    const auto known = [work](quint64 pixels) {
        if (work)
            *work = pixels;
    };
    return decoder::Finished(request, decoder::Decode(request, BytesOf(file), known), known);
}

QImage ImageOf(const decoder::Decoded& decoded)
{
    QImage image(int(decoded.What.Width), int(decoded.What.Height), QImage::Format_Indexed8);
    EXPECT_EQ(decoded.Made.size(), decoder::PayloadBytes(decoded.What));
    QList<QRgb> colours(256);
    memcpy(colours.data(), decoded.Made.data(), 1024);
    image.setColorTable(colours);
    memcpy(image.bits(), decoded.Made.data() + 1024, size_t(image.sizeInBytes()));
    return image;
}

QImage Reduced(const QImage& picture, const Reduction& how)
{
    const decoder::Decoded decoded = MakeHere(picture, Task::Reduced, how);
    EXPECT_EQ(decoded.What.How, decoder::Outcome::Done);
    return ImageOf(decoded);
}

QSet<QRgb> ColoursOf(const QImage& picture)
{
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            colours << picture.pixel(x, y);
    return colours;
}

/// Slopes of every channel, noise, and `black` in one of seven pixels.
QImage Busy(QSize size, bool black, QRandomGenerator& random)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            picture.setPixel(x, y,
                             black && random.bounded(7) == 0
                                 ? qRgb(0, 0, 0)
                                 : qRgb(1 + x * 200 / size.width(), y * 255 / size.height(), random.bounded(40)));
    return picture;
}

double MeanError(const QImage& one, const QImage& other)
{
    qint64 sum = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y), b = other.pixel(x, y);
            sum += abs(qRed(a) - qRed(b)) + abs(qGreen(a) - qGreen(b)) + abs(qBlue(a) - qBlue(b));
        }
    return double(sum) / (3.0 * one.width() * one.height());
}

constexpr Quantizer Both[] = {Quantizer::Wu, Quantizer::NeuQuant};

} // namespace

// Catches: more colours than wanted, rows upside down, numbers that do not fit their palette, odd widths that slant,
// a method that is not the one asked for; a picture whose few colours are not kept to the letter.
TEST(ReduceImage, KeepsItsCountAndLooksLikeThePicture)
{
    QRandomGenerator random(1);
    for (const QSize size : {QSize(1, 1), QSize(3, 2), QSize(61, 40), QSize(128, 97)}) {
        const QImage picture = Busy(size, true, random);
        for (const quint32 colours : {2u, 3u, 17u, 256u})
            for (const Quantizer method : Both)
                for (const bool keepBlack : {false, true}) {
                    SCOPED_TRACE(testing::Message() << size.width() << ' ' << colours << ' ' << int(method));
                    const QImage reduced = Reduced(picture, {colours, method, keepBlack});
                    ASSERT_EQ(reduced.size(), size);
                    EXPECT_LE(ColoursOf(reduced).size(), qsizetype(colours));
                    EXPECT_LT(MeanError(reduced, picture), colours < 17 ? 80 : colours < 256 ? 25 : 12);
                }
    }
    const QImage busy = Busy({64, 64}, false, random);
    EXPECT_NE(Reduced(busy, {16, Quantizer::Wu}), Reduced(busy, {16, Quantizer::NeuQuant}));
    for (const quint32 colours : {2u, 16u, 256u}) {
        QImage few(70, 33, QImage::Format_RGB32);
        for (int i = 0; i < 70 * 33; ++i) // neighbours that a quantizer would throw together
            few.setPixel(i % 70, i / 70, qRgb(int(quint32(i) % colours), 10, 10));
        for (const Quantizer method : Both)
            EXPECT_EQ(Reduced(few, {colours, method}).convertToFormat(QImage::Format_RGB32), few);
    }
}

// Catches: see-through black that turns into an almost black that is seen, dark outlines that turn into holes.
TEST(ReduceImage, BlackStaysApart)
{
    QRandomGenerator random(2);
    QImage picture = Busy({90, 60}, true, random);
    for (int i = 0; i < 90 * 60; i += 5)
        picture.setPixel(i % 90, i / 90, qRgb(random.bounded(3), 1, random.bounded(3))); // as good as black
    for (const quint32 colours : {2u, 5u, 64u})
        for (const Quantizer method : Both) {
            SCOPED_TRACE(testing::Message() << colours << ' ' << int(method));
            const QImage kept = Reduced(picture, {colours, method, true});
            int wrong = 0;
            for (int y = 0; y < picture.height(); ++y)
                for (int x = 0; x < picture.width(); ++x)
                    wrong += (picture.pixel(x, y) == qRgb(0, 0, 0)) != (kept.pixel(x, y) == qRgb(0, 0, 0));
            EXPECT_EQ(wrong, 0);
            EXPECT_LE(ColoursOf(kept).size(), qsizetype(colours));
        }
    QImage none(64, 64, QImage::Format_RGB32);
    for (int i = 0; i < 64 * 64; ++i)
        none.setPixel(i % 64, i / 64, qRgb(i % 2, i / 64, i % 64 + (i % 2 == 0)));
    EXPECT_FALSE(ColoursOf(Reduced(none, {4, Quantizer::Wu, true})).contains(qRgb(0, 0, 0)));
}

// Catches: a palette that is not the one given, numbers that change, a GIF that another reader does not see so.
TEST(ReduceImage, GifKeepsAGivenPalette)
{
    QImage picture(75, 31, QImage::Format_Indexed8);
    QList<QRgb> colours;
    for (int i = 0; i < 256; ++i)
        colours << qRgb(255 - i, i * 7 % 256, i);
    picture.setColorTable(colours);
    for (int i = 0; i < 75 * 31; ++i)
        picture.setPixel(i % 75, i / 75, uint(i * 11 % 256));
    const decoder::Decoded gif = MakeHere(picture, Task::Gif, {});
    ASSERT_EQ(gif.What.How, decoder::Outcome::Done);
    ASSERT_EQ(gif.What.Behind, decoder::Payload::File);
    const QByteArray file(reinterpret_cast<const char*>(gif.Made.data()), qsizetype(gif.Made.size()));
    const QImage read = QImage::fromData(file, "GIF");
    QByteArray palette;
    for (const QRgb colour : colours)
        for (const int part : {qRed(colour), qGreen(colour), qBlue(colour)})
            palette += char(part);
    EXPECT_TRUE(file.contains(palette));
    EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), picture.convertToFormat(QImage::Format_RGB32));

    QRandomGenerator random(3);
    const QImage busy = Busy({50, 50}, true, random);
    const decoder::Decoded full = MakeHere(busy, Task::Gif, {});
    const QImage again =
        QImage::fromData(QByteArray(reinterpret_cast<const char*>(full.Made.data()), qsizetype(full.Made.size())));
    EXPECT_LT(MeanError(again, busy), 12);
}

// Catches: a clock that is set for decoding alone, so that the slow method ends in the middle of a large picture.
TEST(ReduceImage, TellsHowMuchWorkItIs)
{
    QImage picture(20, 20, QImage::Format_RGB32);
    picture.fill(Qt::red);
    quint64 pixels = 0, wu = 0, neuQuant = 0;
    MakeHere(picture, Task::Pixels, {}, &pixels);
    MakeHere(picture, Task::Reduced, {256, Quantizer::Wu}, &wu);
    MakeHere(picture, Task::Reduced, {256, Quantizer::NeuQuant}, &neuQuant);
    EXPECT_EQ(pixels, 400u);
    EXPECT_GT(wu, pixels);
    EXPECT_GT(neuQuant, wu);
}
