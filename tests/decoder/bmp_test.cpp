#include "decoder/bmp_files.h"
#include "decoder/bmp_header.h"
#include "decoder/decode_here.h"
#include "decoder/sample_images.h"

#include <gtest/gtest.h>

namespace {

constexpr int BmpKind = 0;

const BmpPlan Plans[] = {
    {.Form = "V4, 8 bits", .Header = 108, .Bits = 8, .Colours = 256},
    {.Form = "V5, 8 bits, few colours", .Bits = 8, .Colours = 5, .Gap = 3},
    {.Form = "V4, 24 bits", .Header = 108},
    {.Form = "V5, 24 bits, from the top", .FromTop = true, .Gap = 8},
    {.Form = "V5, 32 bits with alpha", .Bits = 32, .Masks = {0xff0000, 0xff00, 0xff, 0xff000000}},
    {.Form = "V5, 32 bits, noise for alpha", .Bits = 32, .Masks = {0xff0000, 0xff00, 0xff, 0}},
    {.Form = "V4, red first", .Header = 108, .Bits = 32, .Masks = {0xff, 0xff00, 0xff0000, 0xff000000}},
    {.Form = "V5, alpha lowest", .Bits = 32, .Masks = {0xff000000, 0xff0000, 0xff00, 0xff}, .FromTop = true},
    {.Form = "10 bits a channel", .Header = 56, .Bits = 32, .Masks = {0x3ff00000, 0xffc00, 0x3ff, 0xc0000000}},
    {.Form = "V2, 32 bits", .Header = 52, .Bits = 32, .Masks = {0xff0000, 0xff00, 0xff}},
    {.Form = "V5, 4 bits a channel", .Bits = 16, .Masks = {0xf00, 0xf0, 0xf, 0xf000}},
    {.Form = "V4, 1 bit of alpha", .Header = 108, .Bits = 16, .Masks = {0x7c00, 0x3e0, 0x1f, 0x8000}},
};

} // namespace

// Catches: a long header that the library refuses, a palette or pixels looked for in the wrong place, channels in
// another order or width than the masks say, alpha that nobody promised.
TEST(Bmp, LongHeadersAndAnyMasksShowEveryPixel)
{
    quint32 seed = 1;
    for (const BmpPlan& plan : Plans)
        for (const int width : {1, 2, 3, 37}) {
            SCOPED_TRACE(plan.Form);
            BmpPlan wide = plan;
            wide.Width = width;
            const BmpFile built = BuildBmp(wide, ++seed);
            const decoder::Decoded decoded = DecodeHere(BmpKind, built.File);
            ASSERT_EQ(decoded.What.How, decoder::Outcome::Done);
            const QImage shown = PixelsOf(decoded).convertToFormat(built.Shows.format());
            EXPECT_EQ(shown, built.Shows) << "width " << width;
        }
}

// Catches: masks that the library does know turned into something else: 5 and 6 bits come out as it widens them.
TEST(Bmp, SixteenBitsOfTheUsualFormsAreTheLibrarys)
{
    for (const int bits : {6, 5}) {
        const quint32 red = bits == 6 ? 0xf800 : 0x7c00, green = bits == 6 ? 0x7e0 : 0x3e0;
        const BmpFile built = BuildBmp({.Header = 108, .Bits = 16, .Masks = {red, green, 0x1f, 0}}, 7);
        const decoder::Decoded decoded = DecodeHere(BmpKind, built.File);
        ASSERT_EQ(decoded.What.How, decoder::Outcome::Done);
        EXPECT_EQ(decoded.What.Bits, 16u);
        EXPECT_LE(Difference(PixelsOf(decoded), built.Shows), 1) << bits;
    }
}

// Catches: a header that points outside the file or promises more than any memory holds, and is believed.
TEST(Bmp, HostileHeadersAreLeftAlone)
{
    const QByteArray sound = BuildBmp({.Bits = 32, .Masks = {0xff, 0xff00, 0xff0000, 0}}, 3).File;
    ASSERT_TRUE(decoder::NeedsPlainBmp(BytesOf(sound)));
    struct Change
    {
        int At;
        const char* Hex;
    };
    for (const Change& change :
         {Change{0, "43"}, Change{10, "00000000"}, Change{10, "89000000"}, Change{10, "ffffffff"},
          Change{14, "ffffffff"}, Change{14, "27000000"}, Change{14, "7d000000"}, Change{18, "ffffff7f"},
          Change{18, "00000000"}, Change{22, "00000080"}}) {
        QByteArray bad = sound;
        const QByteArray bytes = QByteArray::fromHex(change.Hex);
        bad.replace(change.At, bytes.size(), bytes);
        EXPECT_FALSE(decoder::NeedsPlainBmp(BytesOf(bad))) << change.At << ' ' << change.Hex;
        EXPECT_NE(DecodeHere(BmpKind, bad).What.How, decoder::Outcome::Done) << change.At << ' ' << change.Hex;
    }
    for (qsizetype size = 0; size < 14 + 124; ++size)
        EXPECT_FALSE(decoder::NeedsPlainBmp(BytesOf(sound.first(size)))) << size;
}
