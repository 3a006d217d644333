#include "macro/language/numbers.h"
#include "macro/test_source.h"
#include "macro_scope.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// What is left of a typed source, and what runs.
std::pair<QString, QStringList> Tested(const QString& typed)
{
    OwnClipboard clipboard;
    LineText code(clipboard);
    code.SetText(typed);
    const auto prepared = PrepareTestText(code);
    return {code.Text(), prepared ? prepared->Lines : QStringList{u"nothing"_s}};
}

} // namespace

// Catches: blanks in quotes that are collapsed, a comment that loses its own, a source without an end, tabs that become
// tokens.
TEST(TestSource, TidiesWhatWasTyped)
{
    EXPECT_EQ(Tested(u"  print  a   b \n#  a  b  "_s),
              std::pair(u"print a b\r\n#  a  b\r\n"_s, QStringList({u"print a b"_s, u"#  a  b"_s, QString()})));
    EXPECT_EQ(Tested(u" print \"c  d\"  \"  e\""_s),
              std::pair(u"print \"c  d\" \"  e\"\r\n"_s, QStringList({u"print c||d ||e"_s, QString()})));
    EXPECT_EQ(Tested(u"\tprint \t a\n"_s).second, QStringList({u"printa"_s, QString()}));
    EXPECT_EQ(Tested(QString()).second, QStringList{u"nothing"_s});
}

// Catches: a fault at another line, lines behind the fault that are lost.
TEST(TestSource, AVariableWithoutACommandStopsThere)
{
    HostScope host;
    OwnClipboard clipboard;
    LineText code(clipboard);
    code.SetText(u" print a\n  $a =1\n  print b"_s);
    const auto prepared = PrepareTestText(code);
    ASSERT_TRUE(prepared);
    EXPECT_EQ(prepared->ErrorText, u"Variable has no command"_s);
    EXPECT_EQ(prepared->ErrorLine, 1);
    EXPECT_EQ(code.Text(), u"print a\r\n  $a =1\r\n  print b"_s);
}

// Catches: a source whose last line is never run, one of a lone line feed that is one line, bytes of the code page that
// are lost.
TEST(MacroSource, EveryLineEndsAndEveryByteIsACharacter)
{
    EXPECT_EQ(PrepareSource(u"a\nb"_s).Lines, QStringList({u"a"_s, u"b"_s, QString()}));
    EXPECT_EQ(PrepareSource(u"a\r\n\r\n"_s).Lines, QStringList({u"a"_s, QString(), QString()}));
    EXPECT_TRUE(PrepareSource(u"\"\""_s).Lines.isEmpty());
    EXPECT_EQ(SourceFromBytes("print \xE4\x80"), u"print \u00E4\u20AC"_s);
    EXPECT_EQ(SourceFromBytes("print \xC3\xA4"), u"print \u00E4"_s);
}

// Catches: a number that is taken for a text or the reverse, a wrong rounding, a range that is a digit off.
TEST(MacroNumbers, AreReadAsTheLanguageSays)
{
    struct Row
    {
        const char16_t* Text;
        bool Numeric;
        std::optional<qint64> Long;
    };
    constexpr Row Rows[] = {
        {u"0", true, 0},
        {u" 12 ", true, 12},
        {u"-7", true, -7},
        {u"+7", true, 7},
        {u"1.", true, 1},
        {u".5", true, 0},
        {u"1.5", true, 2},
        {u"2.5", true, 2},
        {u"-0.5", true, 0},
        {u"1e3", true, 1000},
        {u"1E-3", true, 0},
        {u"1e-999", true, 0},
        {u"2147483647", true, 2147483647},
        {u"2147483647.4", true, 2147483647},
        {u"2147483647.5", true, std::nullopt},
        {u"-2147483648.5", true, -2147483648},
        {u"-2147483649", true, std::nullopt},
        {u"1e400", true, std::nullopt},
        {u"99999999999abc", false, std::nullopt},
        {u"12abc", false, 12},
        {u"1 2", false, 1},
        {u"1e", false, 1},
        {u"abc", false, 0},
        {u"", false, 0},
        {u"-", false, 0},
        {u".", false, 0},
        {u"1,000", false, 1},
        {u"&H7F", true, 127},
        {u"&hFFFF", true, -1},
        {u"&H0FFFF", true, 65535},
        {u"&HFFFFFFFF", true, -1},
        {u"&H1FFFFFFFF", true, std::nullopt},
        {u"&H", false, 0},
        {u"&HG", false, 0},
        {u"&O17", false, 15},
        {u"|5", false, 0},
    };
    for (const Row& row : Rows) {
        const ReadNumber read = NumberIn(row.Text);
        const auto number = read.Long ? std::optional<qint64>(*read.Long) : std::nullopt;
        EXPECT_EQ(read.Numeric, row.Numeric) << QString::fromUtf16(row.Text);
        EXPECT_EQ(number, row.Long) << QString::fromUtf16(row.Text);
        EXPECT_EQ(read.Plain, read.Numeric && number && QString::number(*number) == QString::fromUtf16(row.Text))
            << QString::fromUtf16(row.Text);
    }
}
