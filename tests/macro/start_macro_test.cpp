#include "frame/editor_pane.h"
#include "frame/frame_state.h"
#include "frame/run_scope.h"
#include "host_scope.h"
#include "macro/known_macros.h"
#include "macro/macro_ports.h"
#include "macro/macro_powers.h"
#include "macro/start_macro.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A document with text, a game, and macros to start.
struct StartMacroTest : testing::Test
{
    StartMacroTest()
    {
        Frame.Settings.RNDPath = folder.Write(u"game"_s, "program");
        Frame.CurrentFolder = folder.Path();
        Pane().LoadBytes("one\ntwo\n");
    }
    ~StartMacroTest() override { ResetMacroPorts(); }

    EditorPane& Pane() { return scope.Host.Pane(0); }
    void Start(const QByteArray& source) { StartMacro(folder.Write(u"macro.gfb"_s, source)); }

    QStringList Messages()
    {
        QStringList shown;
        for (const MessageQuestion& question : scope.Answers.AskedFor<MessageQuestion>())
            shown << question.Record.MessageTitle + u": "_s + question.Record.MessageText;
        return shown;
    }

    /// Answers the question about a new macro.
    void Choose(NewMacroChoice choice)
    {
        MacroWindows.KnownFile = folder.Path(u"known.txt"_s);
        MacroWindows.AskAboutNew = [this, choice](const NewMacro& macro) {
            asked.push_back(macro);
            return choice;
        };
    }

    HostScope scope;
    TestFolder folder;
    std::vector<NewMacro> asked;
};

} // namespace

// Catches: an effect of several undo steps, a caret that undo leaves elsewhere, line ends of lines nobody touched, a
// window that stays disabled, a clean text that counts as modified.
TEST_F(StartMacroTest, AllItDoesIsOneUndoStep)
{
    Pane().SetSel({1, 1, 1, 1}, false);
    Start("docstart\r\nprint a [br]\r\nmessage shown\r\ndocend\r\nprint z\r\nlineselect\r\n");
    EXPECT_EQ(Pane().FileBytes(), "a\none\ntwo\nz");
    EXPECT_EQ(Pane().SelText(), u"z"_s);
    EXPECT_TRUE(Pane().Modified());
    EXPECT_TRUE(scope.Host.Enabled);
    EXPECT_FALSE(Pane().UndoGroupOpen());
    EXPECT_TRUE(Pane().ExecuteCmd(CmdUndo));
    EXPECT_EQ(Pane().FileBytes(), "one\ntwo\n");
    EXPECT_EQ(Pane().GetSel(true), (Range{1, 1, 1, 1}));
    EXPECT_FALSE(Pane().CanUndo());
    Pane().SetModified(false);
    Start("docend\r\n");
    EXPECT_FALSE(Pane().Modified());
    EXPECT_EQ(Pane().CaretLine(), 2);
}

// Catches: a dialog above a text that is not up to date, a window that is enabled while the macro still runs, or one
// that is not when its error shows.
TEST_F(StartMacroTest, TheTextIsUpToDateWhenItIsToBeSeen)
{
    struct Looker : AnswerList
    {
        Looker(StartMacroTest& ofTest) : test(ofTest) {}
        Answer Ask(const Question& question) override
        {
            seen << QString::fromUtf8(test.Pane().FileBytes()) + (test.scope.Host.Enabled ? u" on"_s : u" off"_s);
            return AnswerList::Ask(question);
        }
        StartMacroTest& test;
        QStringList seen;
    } looker(*this);
    Frame.Ask = &looker;
    Start("docstart\r\nprint 1\r\nmessage a\r\nprint 2\r\nnosuchword\r\n");
    EXPECT_EQ(looker.seen, QStringList({u"1one\ntwo\n off"_s, u"12one\ntwo\n on"_s}));
    const auto last = looker.AskedFor<MessageQuestion>().back().Record;
    EXPECT_EQ(last.MessageTitle.trimmed(), u"BASIC Error In Line 4"_s);
    EXPECT_EQ(last.MessageText, u"Unrecognised command: nosuchword"_s);
    EXPECT_TRUE(scope.Host.Enabled);
    EXPECT_TRUE(Pane().ExecuteCmd(CmdUndo));
    EXPECT_EQ(Pane().FileBytes(), "one\ntwo\n");
}

// Catches: a macro that runs without a game, on top of other work, or from nothing.
TEST_F(StartMacroTest, WhatKeepsItFromStarting)
{
    {
        const RunScope other(RunKind::Pass, u"other"_s);
        Start("print x\r\n");
    }
    StartMacro(folder.Path(u"none.gfb"_s));
    EXPECT_EQ(Messages(), QStringList());
    QFile::remove(Frame.Settings.RNDPath);
    Start("print x\r\n");
    ASSERT_EQ(Messages().size(), 1);
    EXPECT_TRUE(Messages().front().startsWith(u"RND Not Located"_s));
    EXPECT_EQ(Pane().FileBytes(), "one\ntwo\n");
}

// Catches: font or colours that stay changed, a bar that stays; a macro that does not run while a game is tested.
TEST_F(StartMacroTest, ThePaneLooksAsBefore)
{
    const RunScope game(RunKind::Beside, u"game"_s);
    const QString font = Pane().FontName();
    const int colour = Pane().GetColor(16);
    Start("progbarset 9\r\nprogbarsetval 3\r\ncolour 9 9 9 9 9 9\r\nmessage a\r\n");
    EXPECT_GT(scope.Host.ProgressCalls, 0);
    EXPECT_FALSE(scope.Host.ProgressShown);
    EXPECT_EQ(Pane().FontName(), font);
    EXPECT_EQ(Pane().GetColor(16), colour);
}

// Catches: a macro asked about twice, one that is not asked about after it was changed or refused, a setting that is
// not obeyed.
TEST_F(StartMacroTest, AsksAboutWhatHasNotRunHereYet)
{
    Choose(NewMacroChoice::Cancel);
    Start("docstart\r\nprint x\r\n");
    EXPECT_EQ(Pane().FileBytes(), "one\ntwo\n");
    Choose(NewMacroChoice::Run);
    for (int i = 0; i < 2; ++i)
        Start("docstart\r\nprint x\r\n");
    EXPECT_EQ(asked.size(), 2);
    EXPECT_EQ(Pane().FileBytes(), "xxone\ntwo\n");
    Start("docstart\r\nfilekill x\r\nprint y\r\n");
    ASSERT_EQ(asked.size(), 3);
    EXPECT_EQ(asked[1].Powers, 0);
    EXPECT_TRUE(asked[1].CanCopy);
    EXPECT_EQ(asked[2].Powers, int(TouchesFiles));
    EXPECT_FALSE(asked[2].CanCopy);
    Frame.Settings.AskBeforeMacros = 0;
    Start("docstart\r\nprint z\r\n");
    EXPECT_EQ(asked.size(), 3);
}

// Catches: a run on a copy that reaches the text before it was taken, or by several steps; one that counts as run.
TEST_F(StartMacroTest, ACopyIsTakenOrDropped)
{
    Choose(NewMacroChoice::RunOnCopy);
    bool taken = false;
    MacroChanges seen;
    MacroWindows.TakeChanges = [&](const MacroChanges& changes) {
        seen = changes;
        EXPECT_EQ(Pane().FileBytes(), "one\ntwo\n");
        return taken;
    };
    const QByteArray macro = "docstart\r\nprint x\r\nmessage a\r\ndocend\r\nprint y\r\n";
    Start(macro);
    EXPECT_EQ(seen.Before, "one\ntwo\n");
    EXPECT_EQ(seen.After, "xone\ntwo\ny");
    EXPECT_EQ(Pane().FileBytes(), "one\ntwo\n");
    EXPECT_FALSE(Pane().CanUndo());
    taken = true;
    Start(macro);
    EXPECT_EQ(Pane().FileBytes(), "xone\ntwo\ny");
    EXPECT_TRUE(Pane().ExecuteCmd(CmdUndo));
    EXPECT_FALSE(Pane().CanUndo());
    EXPECT_EQ(asked.size(), 2);
}

// Catches: a word whose power is not told, one in a comment or in the middle of a line that counts.
TEST(MacroPowers, AreToldByTheFirstWords)
{
    EXPECT_EQ(PowersOf({u"print execute"_s, u"# filekill x"_s, u"set $a =levsave"_s}), 0);
    EXPECT_EQ(PowersOf({u"EXECUTE a"_s, u"levSave b"_s}), StartsPrograms | WritesLevels);
    EXPECT_EQ(PowersOf({u"peek 1 2bit"_s, u"dir *"_s}), 0);
    EXPECT_EQ(PowersOf({u"regread a $b"_s, u"keysend x"_s, u"winkillall"_s}), UsesRegistry | SendsKeys | SteersWindows);
}

// Catches: a macro that came with the program and is asked about, one that was changed since and is not.
TEST_F(StartMacroTest, OnesThatShipAreKnown)
{
    Choose(NewMacroChoice::Cancel);
    const QString before = std::exchange(Frame.ProgramFolder, folder.Path());
    const QString path = folder.Write(u"shipped.gfb"_s, "docstart\r\nprint shipped\r\n");
    folder.Write(u"data/shipped_macros.txt"_s, QByteArray(64, 'a') + '\n' + MacroHash(path) + '\n');
    StartMacro(path);
    EXPECT_TRUE(asked.empty());
    EXPECT_TRUE(Pane().GetLine(0).startsWith(u"shipped"_s));
    folder.Write(u"shipped.gfb"_s, "docstart\r\nprint changed\r\n");
    StartMacro(path);
    EXPECT_EQ(asked.size(), 1U);
    Frame.ProgramFolder = before;
}
