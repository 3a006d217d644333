#include "batch/verbs.h"
#include "host_scope.h"
#include "services/archive_tool.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct RunVerbTest : testing::Test
{
    RunVerbTest() { Frame.DataFolder = ProjectFile(u"data/"_s); }

    int Run(const QByteArray& source, const QStringList& more = {})
    {
        const QString macro = folder.Write(u"macro.txt"_s, source);
        return Call(QStringList{macro} + more);
    }
    int Call(const QStringList& arguments)
    {
        said.clear();
        told.clear();
        QTextStream out(&said), err(&told);
        return RunVerb(QStringList{u"run"_s} + arguments, {out, err, scope.Answers});
    }

    HostScope scope;
    TestFolder folder;
    QString said, told;
};

} // namespace

// Catches: a text that is printed with other line ends or with something added, an error that is not on one line or
// that hides the text.
TEST_F(RunVerbTest, PrintsTheTextAndTellsTheError)
{
    EXPECT_EQ(Run("print a [br] b\n"), 0);
    EXPECT_EQ(said, u"a\nb"_s);
    EXPECT_EQ(told, QString());
    EXPECT_EQ(Run("print \xC3\xA4 [br]\ndim $a\nset $a =1 /0\n"), 1);
    EXPECT_EQ(said, u"\u00E4\n"_s);
    EXPECT_TRUE(told.startsWith(u"BASIC Error In Line 2: Variable has overflowed!  Possible causes:-^^Varible"_s))
        << told;
    EXPECT_EQ(told.count(u'\n'), 1);
}

// Catches: another encoding or other line ends in what is saved, a file written after a failed run, a file in which
// "?" stands for a letter.
TEST_F(RunVerbTest, SavesAsTheFileWas)
{
    const QString on = folder.Write(u"in.conf"_s, "\xE4\nb\n"), to = folder.Path(u"out.conf"_s);
    EXPECT_EQ(Run("docend\nprint c [br]\n", {u"--on"_s, on, u"--save"_s, to}), 0);
    EXPECT_EQ(folder.Read(u"out.conf"_s), "\xE4\nb\nc\n");
    EXPECT_EQ(said, u"\u00E4\nb\nc\n"_s);
    EXPECT_EQ(folder.Read(u"in.conf"_s), "\xE4\nb\n");
    EXPECT_EQ(Run("print [chr:228] [br] x\n", {u"--save"_s, to}), 0);
    EXPECT_EQ(folder.Read(u"out.conf"_s), "\xC3\xA4\r\nx");
    EXPECT_EQ(Run("print gone\nnosuchword\n", {u"--save"_s, to}), 1);
    EXPECT_EQ(Run("print \xE2\x98\xBA\n", {u"--on"_s, on, u"--save"_s, to}), 2);
    EXPECT_EQ(folder.Read(u"out.conf"_s), "\xC3\xA4\r\nx");
    EXPECT_EQ(Run("print x\n", {u"--save"_s, folder.Path(u"none/out.conf"_s)}), 2);
}

// Catches: messages or prints that stand on another line or among the text, a "|" that looks like a border.
TEST_F(RunVerbTest, TellsMessagesAndPrints)
{
    EXPECT_EQ(Run("message \"a[br]b\" T_i Yes_No\nmessage [br] x\nprint [lastmessageresult] [br]\n",
                  {u"--answer"_s, u"No"_s, u"--log"_s}),
              0);
    EXPECT_EQ(told, u"MESSAGE T_i|a[br]b|Yes_No\nMESSAGE x|^|OK\nPRINT OK^\n"_s);
    EXPECT_EQ(Run("print a\npause text\nask Prompt Title\nprint [lastmessageresult]\n"), 0);
    EXPECT_EQ(said, u"acancel"_s);
}

// Catches: an answer that goes to another dialog, a misfit that goes on, an order of endings that hides the first.
TEST_F(RunVerbTest, AnswersComeInOrder)
{
    const QByteArray macro =
        "listadd one\nlistadd two\nlistshow Title\nask Prompt Title\nprint [lastlistchoice] [lastask]\n";
    EXPECT_EQ(Run(macro, {u"--answer"_s, u"two"_s, u"--answer"_s, u"12"_s}), 0);
    EXPECT_EQ(said, u"two12"_s);
    EXPECT_EQ(Run(macro, {u"--answer"_s, u"three"_s}), 2);
    EXPECT_EQ(told, u"\"three\" is no answer to: Title\n"_s);
    EXPECT_EQ(Run("message a T OK\nnosuch\n", {u"--answer"_s, u"Cancel"_s}), 2);
}

// Catches: a limit that does not end the run, or is told as something else.
TEST_F(RunVerbTest, ALimitStopsIt)
{
    EXPECT_EQ(Run("print a\nlabel @a1\ngotolabel @a1\n", {u"--max-seconds"_s, u"0.05"_s}), 3);
    EXPECT_EQ(said, u"a"_s);
}

// Catches: a folder or a document that is not the file's, a mode by another name.
TEST_F(RunVerbTest, TheFileIsTheOpenDocument)
{
    Frame.ConfNames[ModeSfx] = u"soundsinfo.conf"_s;
    const QString on = folder.Write(u"SoundsInfo.conf"_s, "x");
    EXPECT_EQ(Run("clear\nprint [openfilefull] [openfilename]\nif [currentpath] ==[opendir]\nprint same\nendif\n",
                  {u"--on"_s, on}),
              0);
    EXPECT_EQ(said, u"SoundsInfo.confsoundsinfosame"_s);
    EXPECT_EQ(Frame.CurrentMode, int(ModeSfx));
    const QByteArray kept = folder.Path(u"kept.txt"_s).toUtf8();
    EXPECT_EQ(Run("openfilesave " + kept + "\nprint [opendirfull]\n", {u"--on"_s, on, u"--allow-files"_s}), 0);
    EXPECT_TRUE(said.startsWith(QString::fromUtf8(kept))) << said;
    EXPECT_EQ(folder.Read(u"kept.txt"_s), "x");
    EXPECT_EQ(Run("print [currentpath]\n"), 0);
    EXPECT_EQ(said, QDir::currentPath() + u'/');
}

// Catches: random numbers that differ from run to run with one seed.
TEST_F(RunVerbTest, ASeedRepeatsTheNumbers)
{
    const QByteArray macro = "random 1 1000000\nprint [lastrandom]\n";
    EXPECT_EQ(Run(macro, {u"--seed"_s, u"5"_s}), 0);
    const QString first = said;
    EXPECT_EQ(Run(macro, {u"--seed"_s, u"5"_s}), 0);
    EXPECT_EQ(said, first);
    EXPECT_EQ(Run(macro, {u"--seed"_s, u"6"_s}), 0);
    EXPECT_NE(said, first);
}

// Catches: a wrong call that runs something, a macro that cannot be read that counts as empty.
TEST_F(RunVerbTest, WrongCallsEndWithTwo)
{
    const QString macro = folder.Write(u"macro.txt"_s, "print a\n");
    const QStringList calls[] = {{},
                                 {macro, macro},
                                 {macro, u"--nosuch"_s},
                                 {macro, u"--answer"_s},
                                 {macro, u"--seed"_s, u"x"_s},
                                 {macro, u"--max-seconds"_s, u"-1"_s},
                                 {macro, u"--on"_s, folder.Path(u"none.conf"_s)},
                                 {folder.Path(u"none.txt"_s)},
                                 {folder.Path()}};
    for (const QStringList& call : calls) {
        EXPECT_EQ(Call(call), 2) << call.join(u' ');
        EXPECT_EQ(said, QString());
        EXPECT_FALSE(told.isEmpty());
    }
}

// Catches: an archive that is run as text, the words of graphics missing where no window is.
TEST_F(RunVerbTest, RunsAnArchiveAndKnowsTheWords)
{
    const QString archive = folder.Path(u"packed.gfb"_s);
    ASSERT_TRUE(AddBytesToResource(u"basic.txt"_s, "element gfxaction 1\r\nprint [lastelement]\r\n", archive));
    EXPECT_EQ(Call({archive}), 0);
    EXPECT_EQ(said, u"left"_s);
    ASSERT_TRUE(AddBytesToResource(u"basic.txt"_s, "resunpack none here\r\n", archive));
    EXPECT_EQ(Call({archive, u"--allow-files"_s}), 1);
    EXPECT_EQ(told, u"BASIC Error In Line 0: Can't find the file: 'none' in the resource.\n"_s);
}
