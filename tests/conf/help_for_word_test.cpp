#include "conf/help_for_word.h"
#include "test_support.h"

#include <gtest/gtest.h>

// Catches: a page a number instead of one a kind, a folder of the wrong mode, words cut in their middle.
TEST(HelpIdForWord, NumberedWordsShareAPageOfTheirModesFolder)
{
    const auto id = [](const char* word, int mode) { return HelpIdForWord(QString::fromLatin1(word), mode); };
    EXPECT_EQ(id("CUSTOM_12", 1), QStringLiteral("!graphics info\\custom"));
    EXPECT_EQ(id("char_a", 2), QStringLiteral("!sounds info\\char"));
    EXPECT_EQ(id("group_3", 3), QStringLiteral("!music info\\group"));
    EXPECT_EQ(id("customer", 4), QStringLiteral("!level info\\customer"));
    EXPECT_EQ(id("yamyam", 0), QStringLiteral("!other infos\\yamyam"));
    EXPECT_EQ(id("", 7), QStringLiteral("!other infos\\"));
}
