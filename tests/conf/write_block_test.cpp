#include "conf/write_block.h"

#include "conf/headline.h"
#include "conf_fixture.h"

using WriteBlock = ConfTest;

// Catches: another order, a value beside its column, a start frame of -1 written, the rest of the line kept, a line
// end of its own in a document that has another, more than one undo step.
TEST_F(WriteBlock, PutsAWholeBlockInPlaceOfTheLine)
{
    const QByteArray before = "first\nsee .custom_1: here\nlast\n";
    Load(before);
    Select(1, 4, 14);
    Conf.Element = {QStringLiteral("my.png"), 2, 3, 4, 5, -1, QStringLiteral("linear"), 1, 6, {}, {}, false, false};
    WriteElementBlock(Pane(), Conf.Element, true, 0);
    EXPECT_EQ(Bytes(), "first\ncustom_1:          my.png\ncustom_1.xpos:     2\ncustom_1.ypos:     3\n"
                       "custom_1.frames:   4\ncustom_1.delay:    5\ncustom_1.anim_mode:linear\n"
                       "custom_1.name:     custom_1\ncustom_1.global_sync:true\ncustom_1.offset:   6\n"
                       "custom_1.EDITOR:   my.png\ncustom_1.EDITOR.xpos:2\ncustom_1.EDITOR.ypos:3\nlast\n");
    EXPECT_EQ(Pane().GetSel(true), (Range{.StartLine = 1, .EndLine = 1}));
    Pane().ExecuteCmd(CmdUndo);
    EXPECT_EQ(Bytes(), before);
}

// Catches: quick element that ignores its ticks, writes the main line only if ticked, or an offset that would stop the
// animation; a caller's undo step that is ended or split.
TEST_F(WriteBlock, QuickElementWritesTheTickedFieldsOnly)
{
    Frame.Settings.QuickElementTemplate = {0, 1, 0, 0, 0, 1, 0, 0, 1, 0};
    Load("yamyam.moving.right");
    Pane().ExecuteCmd(CmdSelectAll);
    QuickElement();
    EXPECT_EQ(Bytes(),
              "yamyam.moving.right:Your.PCX\r\nyamyam.moving.right.ypos:0\r\nyamyam.moving.right.start_frame:0");
    Load("x\n");
    Pane().ExecuteCmd(CmdOpenUndoGroup);
    Pane().InsertLine(1, QStringLiteral("zip"));
    Select(1, 0, 3);
    WriteElementBlock(Pane(), Conf.Element, false, CallersUndoGroup);
    EXPECT_TRUE(Pane().UndoGroupOpen());
    Pane().InsertLine(0, QStringLiteral("more"));
    Pane().ExecuteCmd(CmdCloseUndoGroup);
    Pane().ExecuteCmd(CmdUndo);
    EXPECT_EQ(Bytes(), "x\n");
}

// Catches: a block without a key, or one over several lines, written into the text.
TEST_F(WriteBlock, RefusesASelectionWithoutAKey)
{
    Load("a\tb : .\nzip\n");
    for (const Range& selection : {Range{}, Range{0, 0, 0, 3}, Range{0, 4, 0, 7}, Range{0, 0, 1, 3}}) {
        Scope.Answers.Asked.clear();
        Pane().SetSel(selection, false);
        QuickElement();
        EXPECT_EQ(Title(), QStringLiteral("No Selection Error"));
        EXPECT_EQ(Bytes(), "a\tb : .\nzip\n");
        EXPECT_FALSE(Pane().UndoGroupOpen());
    }
    EXPECT_EQ(KeyFromSelection(QStringLiteral(":.a b\xE4.")), QStringLiteral(".ab\xE4"));
}

// Catches: characters without an element that get a line, the words reversed or above the caret, a text of 51
// characters that is not refused.
TEST_F(WriteBlock, HeadlineGivesALineACharacter)
{
    Load("top\nend\n", 0);
    Scope.Answers.Next = {QStringLiteral("A-7 z!\xE4"), QString(51, u'a'), Cancelled{}};
    MakeHeadline();
    EXPECT_EQ(Bytes(), "top\nchar_a\nchar_minus\nchar_7\nchar_space\nchar_z\nend\n");
    MakeHeadline();
    MakeHeadline();
    EXPECT_EQ(Pane().LineCount(), 8);
    EXPECT_EQ(HeadlineLines(QString(50, u'a')).size(), 50);
    Pane().ExecuteCmd(CmdUndo);
    EXPECT_EQ(Bytes(), "top\nend\n");
}
