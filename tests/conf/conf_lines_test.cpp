#include "conf/conf_lines.h"

#include "test_support.h"

#include <gtest/gtest.h>

// Catches: letters beyond ASCII kept where a line is judged, or lost where it is written back.
TEST(CleanText, JudgesPlainTextAndItsTwinKeepsLetters)
{
    EXPECT_EQ(CleanText(QStringLiteral("\t a\tb~ ")), QStringLiteral("a b"));
    EXPECT_EQ(CleanText(QStringLiteral("}é\u007f")), QStringLiteral("}"));
    EXPECT_EQ(CleanValue(QStringLiteral("\t é\tb~ ")), QStringLiteral("é b~"));
    EXPECT_EQ(CleanText(QStringLiteral(" \t ")), QString());
}

// Catches: a value column that is one off, or a negative filler.
TEST(PadAfterKey, BringsTheValueToItsColumn)
{
    const QString key = QStringLiteral("custom_1.xpos:");
    EXPECT_EQ(PadAfterKey(key, {.SpacerWidth = 43}).size(), 28);
    EXPECT_EQ(PadAfterKey(QString(50, QLatin1Char('k')), {.SpacerWidth = 43}), QString());
    EXPECT_EQ(PadAfterKey(key, {.SpacerWidth = 43, .SuperTab = true}), QStringLiteral("\t"));
}

// Catches: long or wordy numbers read as what they look like instead of as their bound.
TEST(ClampNumber, HoldsEveryTextWithinBounds)
{
    struct
    {
        const char* text;
        int expected;
    } const rows[] = {{"", 1},   {"abc", 1}, {"3", 3},         {" 12 px", 12}, {"2.6", 3},
                      {"-5", 1}, {"99", 50}, {"00000003", 50}, {"0000003", 3}};
    for (const auto& row : rows)
        EXPECT_EQ(ClampNumber(QString::fromLatin1(row.text), 1, 50), row.expected) << row.text;
}

// Catches: the word reverse left in the mode, a bare reverse without a mode, Reverse set where the word is absent.
TEST(ParseAnimMode, TakesTheWordReverseOut)
{
    const auto both = ParseAnimMode(QStringLiteral("PingPong,Reverse"));
    EXPECT_EQ(both.AnimMode, QStringLiteral("pingpong"));
    EXPECT_TRUE(both.HasReverse);
    EXPECT_EQ(ParseAnimMode(QStringLiteral("reverse")).AnimMode, QStringLiteral("loop"));
    EXPECT_EQ(ParseAnimMode(QStringLiteral("linear,reverse,once")).AnimMode, QStringLiteral("linear,once"));
    const auto plain = ParseAnimMode(QStringLiteral("linear,once"));
    EXPECT_EQ(plain.AnimMode, QStringLiteral("linear,once"));
    EXPECT_FALSE(plain.HasReverse);
}
