#include "decoder/program/load_image.h"
#include "decoder/sample_images.h"
#include "platform/images.h"
#include "test_support.h"

#include <gtest/gtest.h>

namespace {

/// Decoded in this process, with sanitizers.
QImage DecodedHere(const decoder::Decoded& decoded)
{
    const decoder::Answer& what = decoded.What;
    QImage image(int(what.Width), int(what.Height), what.Alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    for (int y = 0; what.Pixels && y < image.height(); ++y)
        decoder::WriteRow(decoded, quint32(y), {reinterpret_cast<quint32*>(image.scanLine(y)), what.Width});
    return image;
}

decoder::Decoded DecodeHere(const SampleImage& sample, decoder::Task what)
{
    return decoder::Decode({.Kind = quint32(sample.Kind), .What = what},
                           std::as_bytes(std::span(sample.File.constData(), size_t(sample.File.size()))));
}

} // namespace

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
        const decoder::Decoded here = DecodeHere(sample, decoder::Task::Pixels);
        ASSERT_EQ(here.What.How, decoder::Outcome::Done);
        EXPECT_EQ(here.What.Bits, quint32(sample.Bits));
        EXPECT_FALSE(here.What.EndsEarly || here.What.Alpha);
        const QImage shown = DecodedHere(here);
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
