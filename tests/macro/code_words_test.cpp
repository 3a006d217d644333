#include "macro/code_words.h"

#include "macro/word_facts.h"
#include "test_support.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QStringList Offered(const QString& before, bool typing = true)
{
    return CodeWordsAt(before, typing, [] {
        return QStringList{u"dim $count"_s, u"group ?gems"_s, u"endgroup"_s, u"label @top"_s, u"sub @Work"_s};
    });
}

/// The line after an item was chosen at the "|" in it, which stands behind what was put in.
QString Picked(const QString& item, QString line)
{
    const int column = int(line.indexOf(u'|'));
    line.remove(column, 1);
    const CodePick pick = PickOf(item, line, column);
    return line.replace(column - pick.Before, pick.Before + pick.Behind, pick.Text + u'|');
}

} // namespace

// Catches: words of another kind than the place asks for, a list under prose, a command without its form.
TEST(CodeWords, FitTheirPlace)
{
    EXPECT_TRUE(Offered(u"  pr"_s).contains(u"print VALUE [VALUE ...]"_s));
    EXPECT_TRUE(Offered(u"en"_s).contains(u"endif"_s));
    EXPECT_EQ(Offered(u"set $co"_s), QStringList(u"$count"_s));
    EXPECT_EQ(Offered(u"if $count ==$"_s), QStringList(u"$count"_s));
    EXPECT_EQ(Offered(u"gosub @w"_s), QStringList({u"@top"_s, u"@Work"_s}));
    EXPECT_EQ(Offered(u"GoSub wo"_s), Offered(u"gosub @w"_s));
    EXPECT_EQ(Offered(u"print [grp:?ge"_s), QStringList(u"?gems"_s));
    EXPECT_TRUE(Offered(u"print [las"_s).contains(u"[lastvarlen]"_s));
    EXPECT_TRUE(Offered(u"if $a ==[nu"_s).contains(u"[numerical]"_s));
    EXPECT_EQ(Offered(u"print words"_s), QStringList());
    EXPECT_TRUE(Offered(u"print "_s, false).contains(u"$count"_s));
}

// Catches: a form that lands in the text, a sign or a bracket twice, the rest of a word left behind.
TEST(CodeWords, ReplaceTheWordAtTheCaret)
{
    EXPECT_EQ(Picked(u"print VALUE [VALUE ...]"_s, u"\tpri|"_s), u"\tprint |"_s);
    EXPECT_EQ(Picked(u"print VALUE [VALUE ...]"_s, u"pr|nt a"_s), u"print| a"_s);
    EXPECT_EQ(Picked(u"endif"_s, u"en|"_s), u"endif|"_s);
    EXPECT_EQ(Picked(u"$count"_s, u"set $co|x =1"_s), u"set $count| =1"_s);
    EXPECT_EQ(Picked(u"@Work"_s, u"gosub wo|"_s), u"gosub @Work|"_s);
    EXPECT_EQ(Picked(u"[br]"_s, u"print [b|]"_s), u"print [br]|"_s);
    EXPECT_EQ(Picked(u"[chr:N]"_s, u"print [c|"_s), u"print [chr:|"_s);
    EXPECT_EQ(Picked(u"[chr:N]"_s, u"print [|r:65]"_s), u"print [chr:|65]"_s);
}

// Catches: a word whose page is not found by its help id, or that is cut off at its sign.
TEST(CodeWords, AreExplained)
{
    const QString line = u"if $a ==[chr:65] [LastVarLen]"_s, words = u"help/words_gemforge_basic.html"_s;
    QFile file(ProjectFile(words));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString pages = QString::fromUtf8(file.readAll());
    EXPECT_EQ(WordAt(line, 1), u"if"_s);
    EXPECT_EQ(WordAt(line, 5), u"$a"_s);
    EXPECT_EQ(WordAt(line, 10), u"[chr:"_s);
    EXPECT_EQ(WordAt(line, 8), QString());
    EXPECT_EQ(WordAt(line, 20), u"[LastVarLen]"_s);
    for (const char16_t* word : {u"if", u"[chr:", u"[LastVarLen]", u"PRINT"}) {
        const auto facts = FactsOfWord(QString::fromUtf16(word));
        ASSERT_TRUE(facts);
        EXPECT_FALSE(facts->Meaning.isEmpty());
        EXPECT_TRUE(facts->HelpId.startsWith(u"!gemforge basic\\"_s));
        EXPECT_TRUE(pages.contains(u"\"w_%1\""_s.arg(facts->HelpId.section(u'\\', 1)))) << facts->HelpId;
    }
    EXPECT_FALSE(FactsOfWord(u"$a"_s));
    const WordFacts facts = *FactsOfWord(u"if"_s);
    for (const QString& row : TipOf(facts).split(u'\n'))
        EXPECT_TRUE(row.size() <= 80 && row == row.trimmed()) << row;
    EXPECT_EQ(TipOf(facts).replace(u'\n', u' '), facts.Form + u' ' + facts.Meaning);
}
