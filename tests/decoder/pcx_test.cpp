#include "decoder/decode_here.h"
#include "decoder/pcx_files.h"
#include "decoder/pcx_walk.h"
#include "decoder/sample_images.h"

#include <gtest/gtest.h>

namespace {

constexpr int PcxKind = 10;

const PcxPlan Plans[] = {
    {.Form = "one bit", .Width = 37, .Height = 9, .Bits = 1},
    {.Form = "one bit, black and white", .Width = 37, .Height = 9, .Bits = 1, .LikeColours = true},
    {.Form = "four planes", .Width = 43, .Height = 20, .Bits = 1, .Planes = 4, .Slack = 1},
    {.Form = "three planes", .Width = 48, .Height = 20, .Bits = 1, .Planes = 3},
    {.Form = "two planes, odd width", .Width = 45, .Height = 20, .Bits = 1, .Planes = 2, .Slack = 1},
    {.Form = "three planes, no runs", .Width = 9, .Height = 7, .Bits = 1, .Planes = 3, .Encoding = 0},
    {.Form = "256 colours", .Width = 64, .Height = 96},
    {.Form = "odd width", .Width = 61, .Height = 40, .Slack = 1},
    {.Form = "smallest", .Width = 1, .Height = 1},
    {.Form = "one column", .Width = 1, .Height = 40},
    {.Form = "one row", .Width = 40, .Height = 1},
    {.Form = "one column, 24 bits", .Width = 1, .Height = 40, .Planes = 3},
    {.Form = "one row, 24 bits", .Width = 40, .Height = 1, .Planes = 3},
    {.Form = "smallest, 24 bits", .Width = 1, .Height = 1, .Planes = 3},
    {.Form = "smallest, one bit", .Width = 1, .Height = 1, .Bits = 1},
    {.Form = "one column, one bit", .Width = 1, .Height = 30, .Bits = 1},
    {.Form = "one row, one bit", .Width = 30, .Height = 1, .Bits = 1},
    {.Form = "smallest in planes", .Width = 1, .Height = 1, .Bits = 1, .Planes = 4},
    {.Form = "one row in planes", .Width = 31, .Height = 1, .Bits = 1, .Planes = 4},
    {.Form = "two columns in planes", .Width = 2, .Height = 9, .Bits = 1, .Planes = 2},
    {.Form = "larger than the library's buffer", .Width = 2500, .Height = 3},
    {.Form = "bytes before the palette", .Width = 20, .Height = 20, .Between = QByteArray(5, '\x0c')},
    {.Form = "grey without a palette", .Width = 20, .Height = 20, .Version = 3, .Palette = false},
    {.Form = "24 bits", .Width = 33, .Height = 32, .Planes = 3, .Slack = 1},
    {.Form = "runs across lines", .Width = 50, .Height = 60, .RunsCrossLines = true},
    {.Form = "24 bits, runs across lines", .Width = 45, .Height = 50, .Planes = 3, .RunsCrossLines = true},
    {.Form = "planes, runs across lines", .Width = 70, .Height = 50, .Bits = 1, .Planes = 4, .RunsCrossLines = true},
    {.Form = "empty runs", .Width = 50, .Height = 60, .EmptyRuns = true},
    {.Form = "no runs", .Width = 40, .Height = 40, .Encoding = 0},
    {.Form = "24 bits, no runs", .Width = 41, .Height = 33, .Planes = 3, .Slack = 1, .Encoding = 0},
};

} // namespace

// Catches: a form that shows other pixels than the file holds, above all those that the library loses count of, and
// whole files that are said to end early.
TEST(Pcx, EveryFormShowsWhatASecondReaderSees)
{
    quint32 seed = 1;
    for (const PcxPlan& plan : Plans)
        for (int round = 0; round < 10; ++round) {
            SCOPED_TRACE(plan.Form);
            const QByteArray file = BuildPcx(plan, ++seed);
            const decoder::Decoded decoded = DecodeHere(PcxKind, file);
            ASSERT_EQ(decoded.What.How, decoder::Outcome::Done);
            EXPECT_EQ(decoded.What.Bits, quint32(plan.Bits * plan.Planes));
            EXPECT_FALSE(decoded.What.EndsEarly);
            ASSERT_EQ(Difference(PixelsOf(decoded), ReadPcx(file)), 0) << "seed " << seed;
        }
}

// Catches: a file cut off anywhere that is taken for whole, shown with what lay in memory, or not shown as far as it
// goes; a palette that is cut off with the pixels whole.
TEST(Pcx, CutOffFilesShowWhatIsThere)
{
    quint32 seed = 1000;
    for (const PcxPlan& plan : Plans) {
        SCOPED_TRACE(plan.Form);
        const QByteArray whole = BuildPcx(plan, ++seed);
        const bool palette = plan.Bits == 8 && plan.Planes == 1 && plan.Palette;
        const qsizetype behind = palette ? 769 + plan.Between.size() : 0;
        for (const qsizetype left : {qsizetype(128), (128 + whole.size() - behind) / 2, whole.size() - behind - 1}) {
            const QByteArray cut = whole.first(left);
            const decoder::Decoded decoded = DecodeHere(PcxKind, cut);
            ASSERT_EQ(decoded.What.How, decoder::Outcome::Done);
            EXPECT_TRUE(decoded.What.EndsEarly) << left << " of " << whole.size();
            ASSERT_EQ(Difference(PixelsOf(decoded), ReadPcx(cut)), 0) << left << " of " << whole.size();
        }
        if (palette) {
            EXPECT_TRUE(decoder::WalkPcx(BytesOf(whole.chopped(plan.Between.size() + 1))).EndsEarly);
        }
    }
}

// Catches: forms that the library would half read, and headers that promise what no memory holds.
TEST(Pcx, BadHeadersAreRefused)
{
    const QByteArray good = BuildPcx({.Width = 40, .Height = 40, .Bits = 4}, 5);
    EXPECT_EQ(DecodeHere(PcxKind, good).What.How, decoder::Outcome::NotRead) << "one plane of 4 bits";
    const QByteArray sound = BuildPcx({.Width = 40, .Height = 40}, 5);
    struct Change
    {
        int At;
        const char* Hex;
    };
    for (const Change& change : {Change{0, "0b"}, Change{3, "02"}, Change{65, "02"}, Change{65, "00"}, Change{66, "27"},
                                 Change{4, "ffff"}, Change{1, "06"}, Change{2, "02"}, Change{8, "fffffffe"}}) {
        QByteArray bad = sound;
        const QByteArray bytes = QByteArray::fromHex(change.Hex);
        bad.replace(change.At, bytes.size(), bytes);
        EXPECT_NE(DecodeHere(PcxKind, bad).What.How, decoder::Outcome::Done) << change.At << change.Hex;
    }
    for (const qsizetype size : {0, 1, 127})
        EXPECT_EQ(DecodeHere(PcxKind, sound.first(size)).What.How, decoder::Outcome::NotRead);
}
