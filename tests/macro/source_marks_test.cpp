#include "macro/source_marks.h"

#include "check_cases.h"
#include "macro/source_names.h"
#include "test_support.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// "LINE message", a "?" in front of the message where the mark is not strong; of several lines of a message the first.
QStringList Said(const QString& source)
{
    QStringList said;
    for (const LineMark& mark : MarksOfSource(source.split(u'\n')))
        said << u"%1 %2%3"_s.arg(mark.Line).arg(mark.Strong ? u""_s : u"?"_s, mark.Message.section(u'\n', 0, 0));
    return said;
}

QStringList StrongOnes(const QStringList& source)
{
    QStringList said;
    for (const LineMark& mark : MarksOfSource(source))
        if (mark.Strong)
            said << u"%1 %2"_s.arg(mark.Line).arg(mark.Message);
    return said;
}

} // namespace

// Catches: a fault that a look could tell and does not, one told at another line or in other words than the run's.
TEST(SourceMarks, TellWhatARunWouldFailFor)
{
    const std::pair<QString, QStringList> cases[] = {
        {u"# a note\nprnt a\nfoo"_s,
         {u"1 Unrecognised command: prnt. Did you mean \"print\"?"_s, u"2 Unrecognised command: foo"_s}},
        {u"clear now\nlocate 10"_s,
         {u"0 Too many commands in this line! Maximum is 0"_s, u"1 Missing command or value in this line."_s}},
        {u"dim $count\nset $cuont +1\nset $count +$none\nprint ($nine+1) [len:$ten]\nif $count ==$six\nendif"_s,
         {u"1 The variable: $cuont has not been dimmed. Did you mean \"$count\"?"_s,
          u"2 The variable: $none has not been dimmed"_s, u"3 The variable: $nine has not been dimmed"_s,
          u"4 The variable: $six has not been dimmed"_s}},
        {u"gotolabel @here\ngosub There\nlabel @Here\nlabel @here\nlabel none"_s,
         {u"1 Couldn't find the Sub: @There"_s, u"3 Duplicate Label\\Sub error"_s, u"4 Missing @ in Label name."_s}},
        {u"$a =1\n  $b"_s, {u"0 Variable has no command"_s, u"1 Variable has no command"_s}},
        {u"print [lastlen\nprint [lastmesageresult]"_s,
         {u"1 ?[lastmesageresult] is no tag. Did you mean \"[lastmessageresult]\"?"_s}},
    };
    for (const auto& [source, wanted] : cases)
        EXPECT_EQ(Said(source), wanted);
}

// Catches: a block whose missing end or wrong neighbour goes unsaid, a mark at the end of the source in place of the
// block's beginning, a fault of one block that marks those behind it.
TEST(SourceMarks, FollowTheBlocks)
{
    const QString embedded = u"Can't have an If statement embedded in another If statement!"_s;
    const std::pair<QString, QStringList> cases[] = {
        {u"dim $a\nif $a ==1\nprint a\nlabel @x1\nelse"_s,
         {u"1 If statement without EndIf"_s, u"4 Else without If statement"_s}},
        {u"if [len] ==1\nif [len] ==2\nendif\nendif"_s, {u"1 "_s + embedded, u"3 EndIf without If statement"_s}},
        {u"caseselect [len]\ncase ==1\ncase else\nsub @s1\nendsub"_s, {u"0 CaseSelect statement without EndCase"_s}},
        {u"case ==1\nendcase\nexitloop\nendloop"_s,
         {u"0 Case without CaseSelect"_s, u"1 CaseEnd without CaseSelect"_s, u"2 ExitLoop without Loop"_s,
          u"3 EndLoop without Loop"_s}},
        {u"loop 3\nprint a"_s, {u"0 ?Loop without EndLoop"_s}},
        {u"group ?a1\nan item\n?a2\nendgroup\nan item"_s, {u"4 Unrecognised command: an"_s}},
        {u"sub @s1\ndim $a\nprint $a"_s, {u"0 ?Sub statement without EndSub"_s, u"1 Can't have Dims inside subs"_s}},
        {u"loop 2\ndim $a\ndim $b\nendloop\nendsub"_s,
         {u"1 Can't have Dims inside Loops!"_s, u"4 EndSub without Sub"_s}},
        {u"dim $a\nif $a ==1\nloop 3\nelse\nloop 4\nendif\nendloop\nsub @s1\nstop"_s, {}},
    };
    for (const auto& [source, wanted] : cases)
        EXPECT_EQ(Said(source), wanted) << source.toStdString();
}

// Catches: a quote that its user is about to close and that marks all lines behind it, or takes a block's begin away.
TEST(SourceMarks, AnOpenQuoteMarksItsOwnLineAlone)
{
    EXPECT_EQ(Said(u"print \"a b\"\nif [len] ==\"one two\nprint c d\nendif\nnoword \"x y\""_s),
              QStringList({u"1 Found unclosed quotes in the file."_s, u"4 Unrecognised command: noword"_s}));
}

// Catches: a mark on a source that runs without a fault.
TEST(SourceMarks, LeaveWhatRunsAlone)
{
    for (const QString& folder : {u"macros"_s, u"bench/macros"_s})
        for (const QFileInfo& file : QDir(ProjectFile(folder)).entryInfoList({u"*.gfbasic"_s})) {
            QFile source(file.filePath());
            ASSERT_TRUE(source.open(QIODevice::ReadOnly));
            EXPECT_EQ(Said(QString::fromUtf8(source.readAll()).remove(u'\r')), QStringList()) << file.fileName();
        }
    int looked = 0;
    for (const QFileInfo& file : QDir(ProjectFile(u"tests/macro/checks"_s)).entryInfoList({u"*.txt"_s}))
        for (const CheckCase& one : CheckCasesOf(file.filePath())) {
            if (!one.Wanted.filter(u"ERROR"_s).isEmpty())
                continue;
            ++looked;
            // Never evaluated there; and what a test run, but no saved macro, refuses.
            if (one.Source.join(u'\n').contains(u"$nosuch"_s) || one.Source.contains(u"$n"_s))
                continue;
            EXPECT_EQ(StrongOnes(one.Source), QStringList()) << file.fileName() << ": " << one.Name;
        }
    EXPECT_GT(looked, 60);
}

// Catches: a name that a list of them lacks or has twice, a place at another line.
TEST(SourceNamesOf, KnowWhatASourceMakes)
{
    const SourceNames names = NamesOfSource(u"dim $Count\n  dim  $count\nLABEL @Go\n# dim $no\nsub @Work\nendsub\n"
                                            "group walls\nsub @work\ngroup ?gems"_s.split(u'\n'));
    EXPECT_EQ(names.Variables, QStringList(u"$Count"_s));
    EXPECT_EQ(names.Groups, QStringList({u"?walls"_s, u"?gems"_s}));
    EXPECT_EQ(names.Places, (std::vector<SourcePlace>{{u"@Go"_s, 2, false}, {u"@Work"_s, 4, true}}));
}
