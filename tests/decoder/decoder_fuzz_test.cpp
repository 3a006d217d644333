#include "decoder/bmp_files.h"
#include "decoder/bmp_header.h"
#include "decoder/fuzz_decoder.h"
#include "decoder/header_peek.h"
#include "decoder/pcx_files.h"
#include "decoder/pcx_walk.h"
#include "decoder/sample_images.h"
#include "mutated.h"
#include "platform/images/images.h"
#include "test_support.h"

#include <gtest/gtest.h>

namespace {

template <class Packed>
QByteArray BytesOf(const Packed& packed)
{
    return {reinterpret_cast<const char*>(packed.data()), qsizetype(packed.size())};
}

QList<QByteArray> GoodMessages()
{
    using namespace decoder;
    return {BytesOf(Pack(Request{.Serial = 77, .Kind = 10, .What = Task::Header})),
            BytesOf(Pack(Answer{.Serial = 3,
                                .How = Outcome::Done,
                                .Width = 640,
                                .Height = 480,
                                .Bits = 8,
                                .ColoursUsed = 256,
                                .EndsEarly = true,
                                .Behind = Payload::Words})),
            BytesOf(Pack(Request{.Serial = 1, .Kind = 0, .What = Task::Reduced, .How = {.Colours = 9}})),
            BytesOf(Pack(Answer{.How = Outcome::Done, .Width = 9, .Height = 9, .Bits = 8, .Behind = Payload::File})),
            BytesOf(Pack(Answer{.Serial = 3, .How = Outcome::TooLarge}))};
}

QList<QByteArray> PcxFiles()
{
    return {BuildPcx({.Width = 30, .Height = 30, .RunsCrossLines = true}, 1),
            BuildPcx({.Width = 9, .Height = 30, .Planes = 3}, 2),
            BuildPcx({.Width = 31, .Height = 9, .Bits = 1, .Planes = 4}, 3),
            BuildPcx({.Width = 30, .Height = 9, .Encoding = 0}, 4),
            BuildPcx({.Width = 1, .Height = 9}, 5),
            BuildPcx({.Width = 9, .Height = 1, .Bits = 1, .Planes = 3}, 6)};
}

QList<QByteArray> BmpFiles()
{
    return {BuildBmp({.Header = 108, .Bits = 8, .Colours = 9}, 1).File,
            BuildBmp({.Bits = 32, .Masks = {0xff0000, 0xff00, 0xff, 0xff000000}}, 2).File,
            BuildBmp({.Bits = 16, .Masks = {0xf00, 0xf0, 0xf, 0}}, 3).File};
}

} // namespace

// Catches: reads outside the bytes, endless walks, messages that promise what is not to be believed, PCX files that
// are straightened into something else.
TEST(FuzzDecoder, MutatedMessagesAndFiles)
{
    QRandomGenerator random(20240612);
    int messages = 0, files = 0, bitmaps = 0;
    QList<QByteArray> inputs = GoodMessages() + PcxFiles() + BmpFiles();
    for (const SampleImage& sample : SampleOfEveryKind())
        if (sample.File.size() < 100'000)
            inputs << sample.File;
    for (const QByteArray& whole : inputs) {
        ASSERT_EQ(FuzzDecoder(whole), QString());
        const int rounds = whole.size() < 64 ? 2000 : 200; // few changes leave a message that is one
        for (int round = 0; round < rounds; ++round) {
            const QByteArray bytes = Mutated(whole, random);
            ASSERT_EQ(FuzzDecoder(bytes), QString()) << bytes.toHex().constData();
            const decoder::Bytes view = std::as_bytes(std::span(bytes.constData(), size_t(bytes.size())));
            messages += decoder::UnpackAnswer(view) || decoder::UnpackRequest(view) ? 1 : 0;
            files += decoder::WalkPcx(view).Readable ? 1 : 0;
            bitmaps += decoder::NeedsPlainBmp(view) ? 1 : 0;
        }
    }
    EXPECT_GT(messages, 20) << "the inputs no longer get through";
    EXPECT_GT(bitmaps, 100) << "the inputs no longer get through";
    EXPECT_GT(files, 200) << "the inputs no longer get through";
}

// Catches: a helper whose end by a broken image is not survived, or that answers for the image before.
TEST(FuzzDecoder, TheHelperOutlivesMutatedImages)
{
    const TestFolder folder;
    QRandomGenerator random(20240613);
    const QList<SampleImage> samples = SampleOfEveryKind();
    const QString good = folder.Write(QStringLiteral("good.pcx"), samples[10].File);
    int read = 0, refused = 0;
    for (const SampleImage& sample : samples)
        for (int round = 0; round < 4; ++round) {
            const QString path = folder.Write(QStringLiteral("bad"), Mutated(sample.File, random));
            const auto picture = images::Load(path, sample.Kind);
            ++(picture ? read : refused);
            const auto after = images::Load(good);
            ASSERT_TRUE(after) << after.error().Reason;
            ASSERT_EQ(Difference(after->Pixels, samples[10].Shows), 0) << sample.Kind;
        }
    EXPECT_GT(read, 20);
    EXPECT_GT(refused, 20);
    images::Stop();
}
