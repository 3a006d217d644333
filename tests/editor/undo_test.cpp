#include "pane_fixture.h"

namespace {

struct UndoTest : PaneTest
{
    int StepsBack()
    {
        int steps = 0;
        while (pane->ExecuteCmd(CmdUndo))
            ++steps;
        return steps;
    }

    void Edit(int times)
    {
        for (int i = 0; i < times; ++i)
            pane->InsertText(QString::number(i), {0, 0, 0, 0});
    }
};

// Catches: a group that falls apart, closes early when nested, or lets undo cut it in two.
TEST_F(UndoTest, AGroupIsOneStep)
{
    EXPECT_FALSE(pane->ExecuteCmd(226));
    pane->LoadBytes("start");
    {
        UndoGroup outer(*pane);
        Edit(2);
        {
            const UndoGroup inner(*pane);
            pane->SetText(u"other"_s);
        }
        EXPECT_TRUE(pane->UndoGroupOpen());
        EXPECT_FALSE(pane->CanUndo());
        EXPECT_FALSE(pane->ExecuteCmd(129));
        Edit(1);
        outer.Close();
        outer.Close();
        EXPECT_FALSE(pane->UndoGroupOpen());
    }
    EXPECT_EQ(pane->Text(), u"0other"_s);
    EXPECT_EQ(StepsBack(), 1);
    EXPECT_EQ(pane->Text(), u"start"_s);
    EXPECT_TRUE(pane->ExecuteCmd(139));
    EXPECT_EQ(pane->Text(), u"0other"_s);
    EXPECT_FALSE(pane->ExecuteCmd(139));
}

// Catches: a caret that lands at the last edit of a pass instead of where the user was, also after redo, after a
// second group, and behind a history that was cleared in between.
TEST_F(UndoTest, AGroupBringsItsSelectionBack)
{
    const auto pass = [this](const QString& line, const Range& after) {
        const UndoGroup group(*pane);
        pane->ReplaceLines(0, 2, line.toUtf8());
        pane->SetSel(after, false);
    };
    pane->LoadBytes("one\r\ntwo\r\nthree");
    pane->SetSel({1, 1, 1, 3}, false);
    pass(u"ONE\r\ntwo\r\nTHREE"_s, {0, 0, 0, 0});
    pane->SetSel({2, 2, 2, 2}, false);
    pass(u"one!\r\ntwo\r\nthree!"_s, {0, 1, 0, 2});
    {
        const UndoGroup idle(*pane);
    }
    pane->ExecuteCmd(CmdUndo);
    EXPECT_EQ(pane->GetSel(true), (Range{2, 2, 2, 2}));
    pane->ExecuteCmd(CmdUndo);
    EXPECT_EQ(pane->GetSel(true), (Range{1, 1, 1, 3}));
    EXPECT_FALSE(pane->CanUndo());
    pane->ExecuteCmd(CmdRedo);
    EXPECT_EQ(pane->GetSel(true), (Range{0, 0, 0, 0}));
    pane->ExecuteCmd(CmdRedo);
    EXPECT_EQ(pane->GetSel(true), (Range{0, 1, 0, 2}));
    pane->ClearUndoBuffer();
    pass(u"1\r\n2\r\n3"_s, {0, 0, 0, 0});
    pane->ExecuteCmd(CmdUndo);
    EXPECT_EQ(pane->GetSel(true), (Range{0, 1, 0, 2}));
}

// Catches: a text that a group loads or writes whole and that cannot be taken back.
TEST_F(UndoTest, ALoadInsideAGroupComesBack)
{
    pane->LoadBytes("old\n");
    pane->ExecuteCmd(225);
    pane->LoadBytes("new\r\ntext");
    EXPECT_FALSE(pane->Modified());
    pane->ExecuteCmd(226);
    EXPECT_EQ(StepsBack(), 1);
    EXPECT_EQ(pane->FileBytes(), "old\n");
    pane->LoadBytes("again");
    EXPECT_FALSE(pane->CanUndo());
    EXPECT_FALSE(pane->CanRedo());
}

// Catches: a history cleared with half a group, whose rest then is many steps or none.
TEST_F(UndoTest, ClearUndoBufferKeepsGroupAndModified)
{
    Edit(1);
    pane->ExecuteCmd(225);
    Edit(1);
    pane->ClearUndoBuffer();
    EXPECT_TRUE(pane->Modified());
    Edit(3);
    pane->ExecuteCmd(226);
    EXPECT_EQ(StepsBack(), 1);
    EXPECT_EQ(pane->Text(), u"00"_s);
    EXPECT_TRUE(pane->Modified());
}

// Catches: a limit that counts edits instead of steps back, is one off, or forgets the flag when nothing is kept.
TEST_F(UndoTest, UndoLimitCountsStepsBack)
{
    pane->SetUndoLimit(3);
    Edit(5);
    EXPECT_EQ(StepsBack(), 3);
    EXPECT_TRUE(pane->CanRedo());
    pane->ExecuteCmd(CmdRedo);
    EXPECT_EQ(StepsBack(), 1);
    Edit(1);
    EXPECT_GT(StepsBack(), 0);
    pane->SetUndoLimit(-1);
    Edit(4);
    EXPECT_GE(StepsBack(), 4);

    pane->LoadBytes("x");
    pane->SetUndoLimit(0);
    EXPECT_FALSE(pane->Modified());
    Edit(1);
    EXPECT_TRUE(pane->Modified());
    EXPECT_EQ(StepsBack(), 0);
    pane->SetModified(false);
    EXPECT_FALSE(pane->Modified());
    pane->LoadBytes("y");
    EXPECT_FALSE(pane->Modified());
    pane->SetUndoLimit(5);
    Edit(1);
    EXPECT_EQ(StepsBack(), 1);
}

// Catches: a flag that says modified after undo back to the saved text, or not modified after undo past it.
TEST_F(UndoTest, ModifiedIsAPlaceInTheHistory)
{
    EXPECT_FALSE(pane->Modified());
    Edit(2);
    EXPECT_TRUE(pane->Modified());
    pane->SetModified(false);
    pane->ExecuteCmd(CmdUndo);
    EXPECT_TRUE(pane->Modified());
    pane->ExecuteCmd(CmdRedo);
    EXPECT_FALSE(pane->Modified());
    {
        const UndoGroup nothing(*pane);
    }
    EXPECT_FALSE(pane->Modified());
    pane->SetModified(true);
    EXPECT_TRUE(pane->Modified());
    pane->SetModified(false);
    pane->SetText(pane->Text());
    EXPECT_FALSE(pane->Modified()) << "the same text again is no edit";
}

// Catches: each typed letter a step of its own, typing glued to a program's edit, one undo that takes away all lines
// typed in a row.
TEST_F(UndoTest, TypingIsOneStepAndApartFromCommands)
{
    Component()->show();
    Type(u"abc"_s);
    pane->ReplaceSel(u"-"_s);
    Type(u"def"_s);
    EXPECT_EQ(pane->Text(), u"abc-def"_s);
    EXPECT_EQ(StepsBack(), 3);
    for (const QString& line : {u"one"_s, u"two"_s}) {
        Type(line);
        Press(Qt::Key_Return);
    }
    pane->ExecuteCmd(CmdUndo);
    pane->ExecuteCmd(CmdUndo);
    EXPECT_EQ(pane->Text(), u"one\r\n"_s);
}

// Catches: a view that jumps to the last hit when Replace All is undone, or when it is redone.
TEST_F(UndoTest, ReplaceAllKeepsTheView)
{
    Component()->resize(400, 200);
    Component()->show();
    pane->SetText(u"some line\n"_s.repeated(500));
    const auto view = [this] { return pane->VisibleLines().First; };
    pane->SetSel({.StartLine = 200, .EndLine = 200}, true);
    Component()->setFirstVisibleLine(197);
    pane->SetFindText(u"line"_s);
    pane->SetReplaceText(u"word"_s);
    ASSERT_TRUE(pane->ExecuteCmd(CmdReplaceAll));
    EXPECT_EQ(view(), 197);
    for (const int command : {CmdUndo, CmdRedo}) {
        ASSERT_TRUE(pane->ExecuteCmd(command));
        EXPECT_EQ(view(), 197) << command;
        EXPECT_EQ(pane->CaretLine(), 200);
    }
    EXPECT_EQ(StepsBack(), 2) << "the text itself is the other step";
}

} // namespace
