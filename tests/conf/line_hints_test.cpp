#include "conf/line_hints.h"

#include "test_support.h"

#include <gtest/gtest.h>

namespace {

HintContext Context()
{
    HintContext context;
    context.Words = MakeHintWords({QStringList{QStringLiteral("yamyam"), QStringLiteral("custom_1"), NoWords},
                                   {QStringLiteral("left"), QStringLiteral("moving")},
                                   {QStringLiteral("xpos")},
                                   {QStringLiteral("EDITOR")}});
    return context;
}

QStringList Said(const QByteArray& text, int line, const HintContext& context = Context())
{
    QStringList said;
    qsizetype start = 0;
    for (int number = 0; number < line; ++number)
        TakeLine(text, start);
    for (const LineHint& hint : HintsForLines(text, start, line, line, context))
        said << (hint.Level == HintLevel::Error ? QStringLiteral("! ") : QString()) + hint.Message;
    return said;
}

} // namespace

// Catches: words of the game marked as unknown, slips not named, the far-fetched proposed.
TEST(HintsForLines, TellsUnknownWordsWithTheNearest)
{
    EXPECT_EQ(Said("yamyam.moving.left.EDITOR.xpos: 1", 0), QStringList());
    EXPECT_EQ(Said("yamyma.xpos: 1", 0),
              QStringList{QStringLiteral("The element \"yamyma\" is not known. Did you mean \"yamyam\"?")});
    EXPECT_EQ(Said("custom_1.qqqq: 1", 0), QStringList{QStringLiteral("The word \"qqqq\" is not known.")});
    EXPECT_EQ(Said("anything.goes: 1", 0, HintContext{}), QStringList());
    EXPECT_EQ(NearestWord(QStringLiteral("xy"), {QStringLiteral("ab")}), QString());
}

// Catches: a repeated key that goes unseen, a longer key or a comment taken for it, a wrong line number.
TEST(HintsForLines, TellsASecondEqualKey)
{
    const QByteArray text = "custom_1: a\n#yamyam: 1\nyamyam.xpos: 1\r\nyamyam: 1\nx\nyamyam: 2\n";
    EXPECT_EQ(Said(text, 3), QStringList());
    EXPECT_EQ(Said(text, 5), QStringList{QStringLiteral("Line 4 has the same key already; the later line counts.")});
    HintContext near = Context();
    near.WholeFileLimit = 0;
    EXPECT_EQ(Said(text + QByteArray(100'000, '#') + "\nyamyam: 3", 7, near), QStringList());
}

// Catches: errors shown as faint, comment lines marked, a cut or a long line that goes unseen.
TEST(HintsForLines, TellsErrorsCutsAndLongLines)
{
    EXPECT_EQ(Said("yamyam: ", 0), QStringList{QStringLiteral("! Missing value after the colon.")});
    HintContext bare;
    bare.BareLines = true;
    EXPECT_EQ(Said("char_a", 0, bare), QStringList());
    EXPECT_EQ(Said("char_a", 0, HintContext{}).size(), 1);
    EXPECT_EQ(Said("yamyam: a # b", 0), QStringList{QStringLiteral("The game cuts the line at \"#\".")});
    EXPECT_EQ(Said("# unknown: a # b", 0), QStringList());
    EXPECT_EQ(Said("yamyam: " + QByteArray(1015, 'v'), 0), QStringList());
    EXPECT_EQ(Said("yamyam: " + QByteArray(1016, 'v'), 0).size(), 1);
}
