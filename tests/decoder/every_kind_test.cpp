#include "decoder/decode_here.h"
#include "decoder/program/reduce_image.h"
#include "decoder/sample_images.h"
#include "platform/images/images.h"
#include "test_support.h"

#include <gtest/gtest.h>

// Catches: a kind whose number, header check, depth or row order is wrong, rows written outside their line, a helper
// whose limits are too tight for a kind, and one that shows something else than what was decoded.
TEST(EveryKind, IsDecodedHereAndByTheHelper)
{
    const TestFolder folder;
    const QList<SampleImage> samples = SampleOfEveryKind();
    ASSERT_EQ(samples.size(), qsizetype(ImageKinds().size()));
    for (int kind = 0; kind < samples.size(); ++kind) {
        const SampleImage& sample = samples[kind];
        SCOPED_TRACE(ImageKinds()[size_t(kind)].Name);
        ASSERT_EQ(sample.Kind, kind);
        const decoder::Decoded here = DecodeHere(kind, sample.File);
        ASSERT_EQ(here.What.How, decoder::Outcome::Done);
        EXPECT_EQ(here.What.Bits, quint32(sample.Bits));
        EXPECT_FALSE(here.What.EndsEarly || here.What.Alpha);
        const QImage shown = PixelsOf(here);
        EXPECT_LE(Difference(shown, sample.Shows), sample.Tolerance);

        const QString path = folder.Write(
            QStringLiteral("image.%1").arg(QLatin1String(ImageKinds()[size_t(kind)].Extension).toString().toUpper()),
            sample.File);
        const auto header = images::ReadHeader(path);
        ASSERT_TRUE(header) << header.error().Reason;
        EXPECT_EQ(header->Size, sample.Shows.size());
        EXPECT_EQ(header->Kind, kind);
        EXPECT_EQ(header->Bits, sample.Bits);
        const auto picture = images::Load(path);
        ASSERT_TRUE(picture) << picture.error().Reason;
        EXPECT_EQ(Difference(picture->Pixels, shown), 0);
        EXPECT_EQ(picture->Bits, sample.Bits);
        EXPECT_EQ(picture->ColoursUsed, int(here.What.ColoursUsed));
    }
    images::Stop();
}

// Catches: a mark that is not the one of its kind, two kinds with one mark, a file without an ending that is refused.
TEST(EveryKind, IsToldByItsBytesWhereItHasAMark)
{
    constexpr int WithoutMark[] = {4, 19, 21};
    const TestFolder folder;
    for (const SampleImage& sample : SampleOfEveryKind()) {
        const bool bare = std::ranges::find(WithoutMark, sample.Kind) != std::end(WithoutMark);
        const QString path = folder.Write(QStringLiteral("picture.jpeg2"), sample.File);
        EXPECT_EQ(ImageKindOfFile(path), bare ? -1 : sample.Kind) << ImageKinds()[size_t(sample.Kind)].Name;
        folder.Write(QStringLiteral("picture.jpeg2"), sample.File.first(3));
        EXPECT_LT(ImageKindOfFile(path), 27);
    }
    EXPECT_EQ(ImageKindOfFile(folder.Write(QStringLiteral("a.Pcx"), "GIF89a")), PaintbrushKind);
    EXPECT_EQ(ImageKindOfFile(folder.Path(QStringLiteral("none"))), -1);
}

// Catches: surfaces in blocks whose last blocks are cut, which the library reads askew; columns of theirs that show,
// also where the colours are made fewer.
TEST(EveryKind, SurfacesInBlocksOfAnyWidth)
{
    const auto little = [](quint32 number) { return QByteArray(reinterpret_cast<const char*>(&number), 4); };
    for (const quint32 width : {4u, 5u, 7u, 10u}) {
        const quint32 blocks = (width + 3) / 4;
        QByteArray file = "DDS " + little(124) + little(0x81007) + little(8) + little(width) + little(blocks * 16) +
                          QByteArray(13 * 4, '\0') + little(32) + little(4) + "DXT1" + QByteArray(20, '\0') +
                          little(0x1000) + QByteArray(16, '\0');
        for (quint32 block = 0; block < 2 * blocks; ++block) // each of one colour: red 5 bits, green 6, blue 5
            file += little((block * 9 % 32) << 11) + QByteArray(4, '\0');
        const decoder::Decoded here = DecodeHere(24, file);
        ASSERT_EQ(here.What.How, decoder::Outcome::Done);
        ASSERT_EQ(here.What.Width, width);
        const QImage shown = PixelsOf(here);
        const decoder::Request fewer{.Kind = 24, .What = decoder::Task::Reduced};
        const decoder::Decoded reduced =
            decoder::Finished(fewer, decoder::Decode(fewer, BytesOf(file), [](quint64) {}), [](quint64) {});
        ASSERT_EQ(reduced.Made.size(), decoder::PayloadBytes(reduced.What));
        for (quint32 y = 0; y < 8; ++y)
            for (quint32 x = 0; x < width; ++x) {
                const quint32 red = (y / 4 * blocks + x / 4) * 9 % 32;
                const QRgb colour = qRgb(int(red << 3 | red >> 2), 0, 0);
                ASSERT_EQ(shown.pixel(int(x), int(y)), colour) << width << ": " << x << ", " << y;
                const auto number = size_t(reduced.Made[1024 + y * decoder::NumberRow(width) + x]);
                QRgb entry = 0;
                memcpy(&entry, reduced.Made.data() + number * 4, 4);
                ASSERT_EQ(entry, colour);
            }
    }
}

// Catches: a text of bits that breaks off, in which the library would look for numbers for ever.
TEST(EveryKind, BitsAsTextAreCountedFirst)
{
    const QByteArray whole = SampleOfEveryKind()[22].File;
    const QByteArray older =
        "#define a_width 20\n#define a_height 2\nstatic short a_bits[] = {\n0x0001, 0x0002, 0x0003, 0x0004};\n";
    for (const QByteArray& file : {whole, older}) {
        EXPECT_EQ(DecodeHere(22, file).What.How, decoder::Outcome::Done);
        const QByteArray cut = file.first(file.lastIndexOf("0x"));
        EXPECT_EQ(DecodeHere(22, cut).What.How, decoder::Outcome::NotRead);
        EXPECT_EQ(DecodeHere(22, file.first(20)).What.How, decoder::Outcome::NotRead);
    }
}
