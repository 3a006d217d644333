#include "conf/comments.h"

#include "conf/element_blocks.h"
#include "host_scope.h"

#include <gtest/gtest.h>

// Catches: a title off its place, a code that leads to another picture, the long form taken too early or too late.
TEST(Separator, LineAndPictureBelongTogether)
{
    const SeparatorMarks marks;
    const QString line = SeparatorLine(QStringLiteral("Yamyam"), QStringLiteral("a"), marks);
    EXPECT_EQ(line.size(), 60);
    EXPECT_EQ(line.left(3), marks.Marker());
    EXPECT_EQ(line.indexOf(QStringLiteral(" Yamyam ")), 26);
    EXPECT_EQ(ImageOfSeparator(line), 12);
    EXPECT_EQ(SeparatorLine(QString(54, u'x'), {}, marks).size(), 59);
    const QString longest = SeparatorLine(QString(55, u'x'), {}, marks);
    EXPECT_EQ(longest, marks.Marker() + QLatin1Char(' ') + QString(55, u'x') + QLatin1Char(' '));
    for (int index = 1; index < IconCount; ++index)
        EXPECT_EQ(ImageOfSeparator(IconCode(index)), index + 1);
    EXPECT_EQ(IconCode(0), QString());
    EXPECT_EQ(ImageOfSeparator(u"#~---"), 1);
}

// Catches: a separator below the line, a caret that ends elsewhere, an empty title that writes a line.
TEST(InsertCommentSeparator, StandsAboveTheLineOfTheCaret)
{
    HostScope scope;
    EditorPane& pane = CurrentPane();
    pane.LoadBytes("a: 1\nb: 2\n");
    pane.SetSel({.StartLine = 1, .StartCol = 3, .EndLine = 1, .EndCol = 3}, false);
    InsertCommentSeparator(pane, {}, QStringLiteral("a"));
    EXPECT_EQ(pane.LineCount(), 3);
    Frame.Settings.LineCommentSearchChar = QStringLiteral("~");
    Frame.Settings.LineCommentLineChar = QStringLiteral("-");
    InsertCommentSeparator(pane, QStringLiteral("B"), QStringLiteral("a"));
    EXPECT_EQ(pane.GetLine(1), SeparatorLine(QStringLiteral("B"), QStringLiteral("a"), SeparatorMarks{}));
    EXPECT_EQ(pane.GetSel(true), (Range{.StartLine = 2, .EndLine = 2}));
}

// Catches: ordinary comments taken as chapters, marks left in titles, a sort that loses the document's order.
TEST(FindSeparators, TellsChaptersInOrder)
{
    const SeparatorMarks marks;
    const QByteArray text = "#~---- Zoo ----b\n# plain\n #~-- no\n#~---- Ant ----\r\n";
    const auto nodes = FindSeparators(text, marks, false);
    ASSERT_EQ(nodes.size(), 2u);
    EXPECT_EQ(nodes[0].Text, QStringLiteral("Zoo"));
    EXPECT_EQ(nodes[0].Image, 13);
    EXPECT_EQ(FindSeparators(text, marks, true).front().Text, QStringLiteral("Ant"));
    EXPECT_EQ(LineOfSeparator(text, nodes[1].Line), 3);
    EXPECT_EQ(LineOfSeparator(text, QStringLiteral("gone")), -1);
    EXPECT_EQ(LineOfSeparator(text.repeated(2), nodes[1].Line), 3) << "of two, the first";
}

// Catches: a line that the selection only ends in front of, more than one "#" taken, breaks changed, more than one undo
// step.
TEST(CommentSelected, PutsAndTakesOneMarkALine)
{
    HostScope scope;
    EditorPane& pane = CurrentPane();
    const QByteArray before = "a: 1\r\n#b\n\nlast\n";
    pane.LoadBytes(before);
    pane.ExecuteCmd(CmdSelectAll);
    CommentSelected();
    EXPECT_EQ(pane.FileBytes(), "#a: 1\r\n##b\n#\n#last\n");
    EXPECT_EQ(pane.GetSel(true), Range{});
    pane.ExecuteCmd(CmdSelectAll);
    UncommentSelected();
    EXPECT_EQ(pane.FileBytes(), before);
    pane.ExecuteCmd(CmdUndo);
    pane.ExecuteCmd(CmdUndo);
    EXPECT_EQ(pane.FileBytes(), before);
    EXPECT_FALSE(scope.Host.ProgressShown);

    pane.SetSel({.StartLine = 1, .EndLine = 2}, false);
    UncommentSelected();
    EXPECT_EQ(pane.FileBytes(), "a: 1\r\nb\n\nlast\n");
}

// Catches: a block that takes the main line of the next one into its comment, whose picture is then gone.
TEST(CommentSelected, LeavesTheBlockBehindTheSelectedOne)
{
    const HostScope scope;
    Frame.CurrentMode = ModeGfx;
    Frame.Settings.SheetKinds = {QStringLiteral("pcx")};
    EditorPane& pane = CurrentPane();
    pane.LoadBytes("zip: a.pcx\nzip.xpos: 1\nmole: a.pcx\n");
    pane.SetSel({.StartLine = 1, .EndLine = 1}, false);
    SelectElementBlock();
    CommentSelected();
    EXPECT_EQ(pane.FileBytes(), "#zip: a.pcx\n#zip.xpos: 1\nmole: a.pcx\n");
}

// Catches: the lower separator inside the selection, a walk beyond either end.
TEST(SelectBetweenComments, TakesTheUpperSeparatorOnly)
{
    HostScope scope;
    Frame.Settings.LineCommentSearchChar = QStringLiteral("~");
    Frame.Settings.LineCommentLineChar = QStringLiteral("-");
    EditorPane& pane = CurrentPane();
    pane.LoadBytes("x\n#~-- A\na: 1\n#~-- B\nb: 1");
    pane.SetSel({.StartLine = 2, .EndLine = 2}, false);
    SelectBetweenComments();
    EXPECT_EQ(pane.GetSel(true), (Range{.StartLine = 1, .EndLine = 3}));
    pane.SetSel({.StartLine = 4, .EndLine = 4}, false);
    SelectBetweenComments();
    EXPECT_EQ(pane.GetSel(true), (Range{.StartLine = 3, .EndLine = 4, .EndCol = 4}));
    pane.SetSel({}, false);
    SelectBetweenComments();
    EXPECT_EQ(pane.GetSel(true), (Range{.StartLine = 0, .EndLine = 1}));
}

// Catches: a second "#" where all are comments, one taken away where some are not, blank lines made comments, the line
// below a selection or a block taken along, a block whose key begins alike too, the caret lost.
TEST(Comments, ToggleGoesThereAndBack)
{
    EXPECT_EQ(ToggleLines("a: 1\r\n\n#b: 2\n"), "#a: 1\r\n\n##b: 2\n");
    EXPECT_EQ(ToggleLines("#a: 1\r\n\n##b: 2\n"), "a: 1\r\n\n#b: 2\n");
    EXPECT_EQ(ToggleLines("\n  \n"), "\n  \n");

    HostScope scope;
    Frame.CurrentMode = ModeGfx;
    Frame.Settings.SheetKinds = {QStringLiteral("pcx")};
    EditorPane& pane = CurrentPane();
    const QByteArray before = "x: 1\na: s.pcx\na.xpos: 2\nb: t.pcx\n";
    pane.LoadBytes(before);
    pane.SetSel({2, 3, 2, 3}, false);
    ToggleComment();
    EXPECT_EQ(pane.FileBytes(), "x: 1\n#a: s.pcx\n#a.xpos: 2\nb: t.pcx\n");
    EXPECT_EQ(pane.CaretLine(), 2);
    ToggleComment();
    EXPECT_EQ(pane.FileBytes(), before);

    pane.LoadBytes("a: s.pcx\na.xpos: 2\na_b: s.pcx\na_b.xpos: 1\na.c: s.pcx\n");
    const QByteArray alike = "\na_b: s.pcx\na_b.xpos: 1\na.c: s.pcx\n";
    pane.SetSel({1, 0, 1, 0}, false);
    ToggleComment();
    EXPECT_EQ(pane.FileBytes(), "#a: s.pcx\n#a.xpos: 2" + alike);
    ToggleComment();
    EXPECT_EQ(pane.FileBytes(), "a: s.pcx\na.xpos: 2" + alike);

    pane.LoadBytes(before);
    pane.SetSel({0, 0, 1, 0}, false);
    ToggleComment();
    EXPECT_EQ(pane.FileBytes(), "#x: 1\na: s.pcx\na.xpos: 2\nb: t.pcx\n");
    pane.ExecuteCmd(CmdUndo);
    EXPECT_EQ(pane.FileBytes(), before);
}
