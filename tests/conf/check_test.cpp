#include "conf/check.h"

#include "test_support.h"

#include <gtest/gtest.h>

namespace {

const CheckContext Graphics{true, {QStringLiteral("pcx"), QStringLiteral("png")}, {QStringLiteral("sheet.pcx")}};

QString Said(const char* line, const CheckContext& context = Graphics)
{
    return CheckLine(line, context).join(QLatin1Char('|'));
}

} // namespace

// Catches: a rule lost, out of order, or one that fires where the game reads the line well.
TEST(CheckLine, EachRuleSpeaksOnItsLines)
{
    const QString value = QStringLiteral("Missing value after the colon.");
    const QString element = QStringLiteral("Missing element on left side of colon.");
    const QString spaces = QStringLiteral("Spaces where found on the left side of the colon.");
    EXPECT_EQ(Said("custom_1 : sheet.pcx"), spaces);
    EXPECT_EQ(Said(" custom_1.xpos: 1"), spaces);
    EXPECT_EQ(Said("custom_1:\t "), value);
    EXPECT_EQ(Said(":"), value + u'|' + element);
    EXPECT_TRUE(Said("no colon").startsWith(QStringLiteral("No colon found")));
    for (const char* good :
         {"", " \t ", "END", " end ", "a: b # note", "# a", "a b # c", "a: SHEET.PCX", "a: sheet.png"})
        EXPECT_EQ(Said(good), QString()) << good;
}

// Catches: images looked for outside graphics, by a part of their name, or not at all; a name with a letter that
// judging a line would blank.
TEST(CheckLine, LooksForImagesInGraphicsOnly)
{
    EXPECT_TRUE(Said("a: other.pcx").startsWith(QStringLiteral("The PCX image")));
    EXPECT_TRUE(Said("a: C:\\a\\sheet.pcx").startsWith(QStringLiteral("The PCX image")));
    EXPECT_TRUE(Said("a: shee.png").startsWith(QStringLiteral("The PCX image")));
    EXPECT_EQ(Said("a: other.pcx", {false, Graphics.SheetKinds, {}}), QString());
    const CheckContext letters{true, Graphics.SheetKinds, {QStringLiteral("höhle.pcx"), QStringLiteral("rock~1.pcx")}};
    EXPECT_EQ(Said("a: HÖHLE.PCX \t", letters), QString());
    EXPECT_EQ(Said("a: rock~1.png", letters), QString());
    EXPECT_TRUE(Said("a: rock 1.pcx", letters).startsWith(QStringLiteral("The PCX image")));
    EXPECT_TRUE(Said("a: h.pcx", letters).startsWith(QStringLiteral("The PCX image")));
}

// Catches: a line number that is off, findings after the first bad line, an empty document that fails.
TEST(FirstBadLine, StopsAtTheFirst)
{
    EXPECT_FALSE(FirstBadLine("", Graphics));
    EXPECT_FALSE(FirstBadLine("a: 1\r\n\r\n# x", Graphics));
    const auto found = FirstBadLine("a: 1\r\nbad\r\nworse", Graphics);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->Line, 1);
    EXPECT_EQ(FirstBadLine(":", Graphics)->Messages.size(), 2);
}
