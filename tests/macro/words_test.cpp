#include "macro/language/program.h"
#include "macro/language/source_text.h"
#include "macro/language/word_tables.h"
#include "macro/macro_powers.h"
#include "test_support.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString Shipped(const QString& name)
{
    QFile file(ProjectFile(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Words of a section of the list for the macro editor.
QSet<QString> Listed(const QString& section)
{
    QSet<QString> words;
    const QString table = Shipped(u"data/basic.ini"_s);
    const qsizetype start = table.indexOf(u'[' + section + u"]\n");
    for (const QString& line : table.sliced(start).split(u'\n').mid(2)) {
        if (line.isEmpty())
            break;
        words.insert(line.section(u'=', 1));
    }
    return words;
}

/// What the language knows, by the name that the tables have it under.
struct Known
{
    QSet<QString> Commands, Tags;
    QStringList Faults;

    Known()
    {
        for (const auto& family : CommandFamilies())
            for (const CommandWord& row : family) {
                Take(Commands, QLatin1String(row.Word), row.Help);
                if (!row.Run)
                    Faults << QLatin1String(row.Word);
            }
        for (const auto& family : PlainTagFamilies())
            for (const PlainTag& row : family)
                Take(Tags, u'[' + QLatin1String(row.Name) + u']', row.Help);
        for (const auto& family : FunctionTagFamilies())
            for (const FunctionTag& row : family) {
                Take(Tags, u'[' + QLatin1String(row.Name) + u':', row.Help);
                if (QLatin1String(row.Name).size() != 3)
                    Faults << QLatin1String(row.Name);
            }
    }
    void Take(QSet<QString>& words, const QString& word, const char* help)
    {
        if (words.contains(word) || word != word.toLower() || QLatin1String(help).size() < 10)
            Faults << word;
        words.insert(word);
    }
};

} // namespace

// Catches: a word twice, one that can never match, one without help or handler; a word that the macro editor's list
// or the help lacks, or that only they have, after a family was added and the tables were not made again.
TEST(MacroWords, RowsListAndHelpAgree)
{
    const Known known;
    EXPECT_EQ(known.Faults, QStringList());
    EXPECT_EQ(Listed(u"macBASIC"_s) + Listed(u"macTEXT"_s), known.Commands);
    EXPECT_EQ(Listed(u"macSTATIC"_s), known.Tags);
    const QString page = Shipped(u"help/words_gemforge_basic.html"_s);
    for (const QString& word : known.Commands + known.Tags) {
        const QString title = word.endsWith(u':') ? QString(word + u']') : word;
        EXPECT_TRUE(page.contains(u"</a>"_s + title + u"</h3>"_s)) << word;
    }
}

// Catches: a command that works with files or programs and does not ask first, one that asks without need, one that the
// window in front of a new macro does not tell of.
TEST(MacroWords, WhatWorksWithFilesAsksFirst)
{
    const QSet<QString> told{u"openfileload"_s, u"openfileinsert"_s, u"openfilesave"_s, u"filekill"_s, u"dirkill"_s,
                             u"dirmake"_s,      u"filecopy"_s,       u"filemove"_s,     u"dircopy"_s,  u"dirmove"_s,
                             u"execute"_s,      u"resunpack"_s,      u"zip"_s,          u"unzip"_s,    u"ziplist"_s,
                             u"fileattrib"_s,   u"poke"_s,           u"pokeadd"_s};
    QSet<QString> gated;
    for (const auto& family : CommandFamilies())
        for (const CommandWord& row : family)
            if (row.Flags & SafeGate)
                gated.insert(QLatin1String(row.Word));
    EXPECT_EQ(gated, told);
    for (const QString& word : told)
        EXPECT_NE(PowersOf({word}), 0) << word;
}

// Catches: a word or a tag that is found by another case only, or by a part of it.
TEST(MacroWords, AreFoundInAnyLetterCase)
{
    EXPECT_STREQ(FindCommand(u"PrInT")->Word, "print");
    EXPECT_EQ(FindCommand(u"prin"), nullptr);
    EXPECT_EQ(FindCommand(u""), nullptr);
    EXPECT_STREQ(FindPlainTag(u"[BR]")->Name, "br");
    for (const char16_t* none : {u"[br", u"br]", u"[]", u"[", u"", u"[chr:65]"})
        EXPECT_EQ(FindPlainTag(none), nullptr);
    EXPECT_STREQ(FindFunctionTag(u"[CHR:65]")->Name, "chr");
    EXPECT_STREQ(FindFunctionTag(u"[chr:")->Name, "chr");
    for (const char16_t* none : {u"[chr", u"[char:65]", u"chr:65]", u"[ch:65]"})
        EXPECT_EQ(FindFunctionTag(none), nullptr);
}

// Catches: a macro of ours that does not even begin, or says a word that the language does not have.
TEST(MacroWords, MacrosThatShipSayOnlyThese)
{
    const QDir folder(ProjectFile(u"macros"_s));
    const QStringList files = folder.entryList({u"*.gfbasic"_s}, QDir::Files);
    EXPECT_FALSE(files.empty());
    for (const QString& file : files) {
        const PreparedSource source = PrepareSource(SourceFromBytes(Shipped(u"macros/"_s + file).toUtf8()));
        EXPECT_EQ(source.ErrorText, QString()) << file;
        Program program;
        program.Take(source.Lines);
        EXPECT_EQ(PrePass(program).Text, QString()) << file;
        bool inGroup = false; // what stands in a group block is an item
        for (const QString& line : source.Lines) {
            const QString word = line.section(u' ', 0, 0);
            EXPECT_TRUE(inGroup || IsBlankLine(line) || FindCommand(word)) << file << ": " << line;
            inGroup = word == u"group" || (inGroup && word != u"endgroup");
        }
    }
}
