#include "graphics/pcx_writer.h"

#include "decoder/pcx_files.h"
#include "decoder/pcx_walk.h"
#include "platform/images/images.h"
#include "test_support.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

/// Runs of all lengths around the longest one, in few colours or in many.
QImage RunPicture(QSize size, int colours, QRandomGenerator& random)
{
    QList<QRgb> palette;
    for (int i = 0; i < colours; ++i)
        palette << qRgb(i, random.bounded(256), random.bounded(256));
    QImage picture(size, QImage::Format_RGB32);
    int left = 0, colour = 0;
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x, --left) {
            if (left == 0) {
                left = random.bounded(3) ? random.bounded(1, 4) : random.bounded(60, 130);
                colour = (colour + 1) % colours;
            }
            picture.setPixel(x, y, palette[colour]);
        }
    return picture;
}

} // namespace

// Catches: runs of a wrong length, that cross a line or are not marked, planes in the wrong order, padding that shows,
// a palette in the wrong place; by a reader of the tests and by the one the game's sheets are loaded with.
TEST(PcxWriter, BothReadersSeeThePicture)
{
    const TestFolder folder;
    QRandomGenerator random(5);
    for (const QSize size : {QSize(2, 2), QSize(63, 5), QSize(64, 64), QSize(127, 9), QSize(512, 40), QSize(2, 9000)})
        for (const PcxDepth depth : {PcxDepth::Full, PcxDepth::Palette})
            for (const int colours : {1, 2, 255, 256}) {
                SCOPED_TRACE(testing::Message() << size.width() << " x " << size.height() << ", " << int(depth)
                                                << " bits, " << colours << " colours");
                const QImage picture = RunPicture(size, colours, random);
                const QString path = folder.Path(QStringLiteral("a.pcx"));
                ASSERT_TRUE(WritePcx(path, picture, depth));
                const QByteArray file = folder.Read(QStringLiteral("a.pcx"));
                ASSERT_EQ(ReadPcx(file), picture);
                const auto facts = decoder::WalkPcx(std::as_bytes(std::span(file.constData(), size_t(file.size()))));
                EXPECT_FALSE(facts.EndsEarly || facts.MisreadByLibrary);
                const auto loaded = images::Load(path);
                ASSERT_TRUE(loaded) << loaded.error().Reason;
                ASSERT_EQ(loaded->Pixels, picture);
                EXPECT_EQ(loaded->Bits, int(depth));
            }
    images::Stop();
}

// Catches: a picture with colours lost in silence, an old file lost to a picture that cannot be written, sizes that
// overflow, an indexed or see-through picture written with numbers in place of colours.
TEST(PcxWriter, WhatCannotBeWrittenLeavesTheOldFile)
{
    const TestFolder folder;
    QRandomGenerator random(6);
    const QString path = folder.Write(QStringLiteral("a.pcx"), "old");
    QImage many = RunPicture({40, 40}, 256, random);
    many.fill(0);
    for (int i = 0; i < 257; ++i)
        many.setPixel(i % 40, i / 40, qRgb(i % 256, i / 256, 7));
    EXPECT_EQ(WritePcx(path, many, PcxDepth::Palette).error().Path, path);
    EXPECT_FALSE(WritePcx(path, QImage(), PcxDepth::Full));
    EXPECT_FALSE(WritePcx(path, QImage(65535, 1, QImage::Format_RGB32), PcxDepth::Full));
    EXPECT_EQ(folder.Read(QStringLiteral("a.pcx")), "old");

    const QImage indexed = RunPicture({40, 40}, 9, random).convertToFormat(QImage::Format_Indexed8);
    EXPECT_EQ(ReadPcx(PcxBytes(indexed, PcxDepth::Palette).value()), indexed.convertToFormat(QImage::Format_RGB32));
    QImage through(3, 3, QImage::Format_ARGB32);
    through.fill(qRgba(200, 100, 50, 0));
    for (const PcxDepth depth : {PcxDepth::Full, PcxDepth::Palette})
        EXPECT_EQ(ReadPcx(PcxBytes(through, depth).value()).pixel(1, 1), qRgb(200, 100, 50));
}

// Catches: what both readers forgive: padding of odd widths, runs longer than 63, a lone byte from 192 on without its
// mark, the place of the palette and the marker in front of it.
TEST(PcxWriter, ToTheByte)
{
    QImage numbers(65, 2, QImage::Format_Indexed8);
    numbers.setColorTable({qRgb(1, 2, 3), qRgb(4, 5, 6)});
    numbers.setColorCount(256);
    numbers.fill(1);
    numbers.setPixel(0, 1, 191);
    numbers.setPixel(1, 1, 192);
    const QByteArray file = PcxBytes(numbers, PcxDepth::Palette).value();
    EXPECT_EQ(file.first(16).toHex(), "0a05010800000000"
                                      "40000100"
                                      "48004800");
    EXPECT_EQ(file.mid(64, 6).toHex(), "000142000100");
    // 65 of 1 and the padding; then 191, a marked 192, 63 of 1, padding
    EXPECT_EQ(file.mid(128, file.size() - 128 - 769).toHex(), "ff01c20100"
                                                              "bfc1c0ff0100");
    EXPECT_EQ(file.last(769).first(10).toHex(), "0c010203040506000000");

    QImage full(3, 1, QImage::Format_RGB32);
    full.fill(qRgb(0xc0, 7, 0));
    EXPECT_EQ(PcxBytes(full, PcxDepth::Full).value().sliced(128).toHex(), "c3c000"
                                                                          "c30700"
                                                                          "c400");
}
