#include "platform/screen/key_notation.h"
#include "test_support.h"

#include <gtest/gtest.h>

namespace {

/// Each stroke as "shift+ctrl+alt+Key", or "refused".
std::string Strokes(const char* notation)
{
    const auto strokes = ReadKeyNotation(QString::fromUtf8(notation));
    if (!strokes)
        return "refused";
    std::string text;
    for (const KeyStroke& stroke : *strokes)
        text += (text.empty() ? "" : " ") + std::string(stroke.Shift ? "shift+" : "") +
                (stroke.Control ? "ctrl+" : "") + (stroke.Alt ? "alt+" : "") + stroke.Key.toStdString();
    return text;
}

} // namespace

TEST(KeyNotation, WhatIsHeldForWhat)
{
    EXPECT_EQ(Strokes("aB"), "U0061 U0042");
    EXPECT_EQ(Strokes("+ab"), "shift+U0061 U0062");
    EXPECT_EQ(Strokes("^%{F4}x"), "ctrl+alt+F4 U0078");
    EXPECT_EQ(Strokes("+(ab)c"), "shift+U0061 shift+U0062 U0063");
    EXPECT_EQ(Strokes("^(a+(b)c)d"), "ctrl+U0061 shift+ctrl+U0062 ctrl+U0063 U0064");
    EXPECT_EQ(Strokes("(^ab)c"), "ctrl+U0061 U0062 U0063");
    EXPECT_EQ(Strokes("^()a"), "U0061");
    EXPECT_EQ(Strokes("+"), "") << "held for nothing";
    EXPECT_EQ(Strokes(""), "");
}

TEST(KeyNotation, NamesCountsAndCharacters)
{
    EXPECT_EQ(Strokes("~{enter}{PgDn}"), "Return Return Next");
    EXPECT_EQ(Strokes("{LEFT 3}+{TAB 2}"), "Left Left Left shift+Tab shift+Tab");
    EXPECT_EQ(Strokes("{+}{^}{%}{~}{(}{)}{{}{}}"), "U002B U005E U0025 U007E U0028 U0029 U007B U007D");
    EXPECT_EQ(Strokes("{h 2}{  2}{F16}{UP 0}"), "U0068 U0068 U0020 U0020 F16");
    EXPECT_EQ(Strokes("[]"), "U005B U005D");
    EXPECT_EQ(Strokes("a\r\nb\tc\nd"), "U0061 Return U0062 Tab U0063 Return U0064");
    EXPECT_EQ(Strokes("\xC3\xA4\xE4\xB8\xAD\xF0\x9F\x92\x8E"), "U00E4 U4E2D U1F48E");
}

TEST(KeyNotation, Refused)
{
    for (const char* const bad : {"{", "}", "{}", "{LEFT", "{NOSUCHKEY}", "{F17}", "{F0}", "{LEFT x}", "{LEFT -1}", "(",
                                  ")", "+(a", "a)", "{a 99999999}", "{LEFT 60000}{RIGHT 60000}", "{ab}"})
        EXPECT_EQ(Strokes(bad), "refused") << bad;
}
