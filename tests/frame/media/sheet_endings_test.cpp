#include "frame/media/sheet_endings.h"

#include <gtest/gtest.h>

namespace {

const SheetEndings Three = {QStringLiteral("pcx"), QStringLiteral("png"), QStringLiteral("bm")};

} // namespace

// Catches: lines that name a sheet only in the case or with the first of the endings, one rule for text and another
// for bytes, a look past the line's end.
TEST(SheetEndings, ALineNamesASheetByAnyOfThem)
{
    const std::pair<const char*, bool> cases[] = {{"yamyam.moving: RocksMore.PCX", true},
                                                  {"a.b.png", true},
                                                  {"a.bmp", true},
                                                  {"a.pc b.pn .xpos: 1", false},
                                                  {"a.p", false},
                                                  {".", false},
                                                  {"", false}};
    for (const auto& [line, named] : cases) {
        EXPECT_EQ(HasSheetName(QString::fromLatin1(line), Three), named) << line;
        EXPECT_EQ(HasSheetName(QByteArrayView(line), Three), named) << line;
    }
    EXPECT_FALSE(HasSheetName(u"a.pcx", SheetEndings()));
}

// Catches: a twin that keeps the old ending or is the name itself, an ending that stands in the middle of a name.
TEST(SheetEndings, TwinsAreTheSameSheetWithAnotherEnding)
{
    EXPECT_EQ(Three.Twins(QStringLiteral("a.PNG")), (QStringList{QStringLiteral("a.pcx"), QStringLiteral("a.bm")}));
    EXPECT_EQ(Three.Twins(QStringLiteral("a.png.txt")), QStringList());
    EXPECT_EQ(Three.Of(QStringLiteral("x.pcx.bm")), 2);
    EXPECT_TRUE(Three.StandsFor(QStringLiteral("ROCKS.pcx"), QStringLiteral("rocks.png.bak.png")));
    EXPECT_FALSE(Three.StandsFor(QStringLiteral("rocks.pcx"), QStringLiteral("rocksdc.pcx")));
    EXPECT_FALSE(Three.StandsFor(QString(), QStringLiteral("a.pcx")));
    EXPECT_EQ(Three.Patterns(), QStringLiteral("*.pcx;*.png;*.bm"));
}
