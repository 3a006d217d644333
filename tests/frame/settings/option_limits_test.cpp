#include "frame/settings/option_limits.h"

#include "test_support.h"

#include <gtest/gtest.h>

// Catches: a value that is clamped although its length rules it out, one outside its bounds, text that stays.
TEST(OptionLimits, NumbersEndUpWithinTheirBounds)
{
    const auto margin = [](const char* text) { return CheckLimit(QString::fromLatin1(text), 3, 10, 200); };
    const auto undo = [](const char* text) { return CheckLimit(QString::fromLatin1(text), 4, -1, 9999); };
    for (const auto& [text, wanted] :
         {std::pair("0", "10"), std::pair("999", "200"), std::pair("1234", "200"), std::pair("0043", "200"),
          std::pair("", "10"), std::pair("wid", "10"), std::pair("43", "43"), std::pair("-5", "10"),
          std::pair("9 ", "10"), std::pair(" 50", "50"), std::pair("50x", "50"), std::pair("011", "11")})
        EXPECT_EQ(margin(text), QString::fromLatin1(wanted)) << text;
    for (const auto& [text, wanted] :
         {std::pair("-1", "-1"), std::pair("-2", "-1"), std::pair("0", "0"), std::pair("9999", "9999"),
          std::pair("10000", "9999"), std::pair("-1000", "9999"), std::pair("-", "0")})
        EXPECT_EQ(undo(text), QString::fromLatin1(wanted)) << text;
}

// Catches: characters of a comment separator that end up equal, blank, long or as the comment sign.
TEST(OptionLimits, SeparatorCharactersAreOneAndApart)
{
    struct
    {
        const char *Text, *Other, *Line, *Search;
    } const rows[] = {{"x", "~", "x", "x"}, {"", "~", "-", "-"},  {"", "-", "=", "="},  {"ab", "~", "-", "="},
                      {" ", "~", "-", "="}, {"#", "~", "-", "="}, {"~", "~", "-", "="}, {"=", "=", "-", "-"},
                      {"-", "-", "=", "="}, {"#", "=", "-", "-"}};
    for (const auto& row : rows) {
        const QString text = QString::fromLatin1(row.Text), other = QString::fromLatin1(row.Other);
        EXPECT_EQ(CheckLineChar(text, other), QString::fromLatin1(row.Line)) << text << other;
        EXPECT_EQ(CheckSearchChar(text, other), QString::fromLatin1(row.Search)) << text << other;
    }
}
