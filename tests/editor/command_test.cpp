#include "either_text.h"

#include <QClipboard>
#include <QGuiApplication>

namespace {

struct CommandTest : EitherTextTest
{
    QString After(int number, const QString& before, const QVariant& argument = {})
    {
        Put(before);
        done = subject->ExecuteCmd(number, argument);
        return Shown();
    }

    bool done = false;
};

ON_EITHER_TEXT(CommandTest);

struct Case
{
    int Number;
    const char *Before, *After;
    bool Done = true;
};

// Catches: a number without a command or with another's, a caret or an anchor left in the wrong place, a command that
// takes a neighbour's line end with it.
TEST_P(CommandTest, NumbersDoWhatTheyName)
{
    constexpr Case cases[] = {
        {101, "x on|e, two;\n", "x two, one|;\n"},
        {101, "one two|", "one two|", false},
        {101, "one |\ntwo", "one |\ntwo", false},
        {102, "a|b.cd", "a[b|.cd"},
        {103, "|ab  cd", "ab  |cd"},
        {103, "ab|.cd", "ab.|cd"},
        {103, "ab  |\n  cd", "ab  \n|  cd"},
        {103, "ab|", "ab|"},
        {107, "ab cd|", "ab |cd["},
        {107, "ab\n|cd", "ab|\n[cd"},
        {108, "ab  |cd", "|ab  cd"},
        {108, "|ab", "|ab"},
        {136, "a\nb|c\nd", "a\n[bc|\nd"},
        {137, "a|b\nc", "[ab\nc|"},
        {141, "a\n\nb\n|c", "a\n\n|b\nc"},
        {142, "|a\nb\n\nc", "a\nb\n\n|c"},
        {148, "abc\nd|e", "a|bc\nd[e"},
        {149, "abc\nde|\n", "ab|c\nde\n"},
        {152, "a|b\nc", "ab\n|\nc"},
        {153, "x\na|b", "x\n|\nab"},
        {154, "a|bc\n", "a[bc|\n"},
        {155, "a|bc\n", "abc|\n"},
        {156, "a|b\ncd", "a[b\nc|d"},
        {157, "a|b\ncd", "ab\nc|d"},
        {158, "x\nab|c", "x\n|c"},
        {158, "|c", "|c", false},
        {159, "ab|c\nd", "ab|\nd"},
        {160, "a\nb|c\nd", "a\n|d"},
        {160, "a\nb|c", "a\n|"},
        {164, "  a|b", "|  a[b"},
        {165, "  a|b", "|  ab"},
        {184, "a[b|c", "ab|c"},
        {184, "a|b[c", "ab|c"},
        {188, "ab\nc|d", "|ab\nc[d"},
        {189, "ab\nc|d", "|ab\ncd"},
        {190, "a|b\ncd", "a[b\ncd|"},
        {191, "a|b\ncd", "ab\ncd|"},
        {194, "ab|c", "a|c"},
        {194, "a\n|b", "a|b"},
        {194, "a[bc|d", "a|d"},
        {195, "ab|c", "ab|"},
        {195, "a|\nb", "a|b"},
        {195, "a[bc|d", "a|d"},
        {199, "ab|cd", "ac|bd"},
        {199, "abc|\n", "acb|\n"},
        {199, "ab\n|cd", "ab\n|cd", false},
        {200, "a|bc", "a[b|c"},
        {201, "a|\nb", "a\n|b"},
        {202, "ab|c", "a|b[c"},
        {203, "a\n|b", "a|\nb"},
        {212, "ab|c", "ab\n|c"},
        {212, "a[b|c", "a\n|c"},
        {229, "a[b|c", "ab|c"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(testing::Message() << row.Number << " on " << row.Before);
        EXPECT_EQ(After(row.Number, QString::fromUtf8(row.Before)), QString::fromUtf8(row.After));
        EXPECT_EQ(done, row.Done);
    }
    EXPECT_FALSE(subject->ExecuteCmd(100));
    EXPECT_FALSE(subject->ExecuteCmd(-1));
}

// Catches: moves by bytes instead of characters, which would cut a letter beyond ASCII.
TEST_P(CommandTest, CharactersBeyondAsciiStayWhole)
{
    EXPECT_EQ(After(199, u"ä|€x"_s), u"€|äx"_s);
    EXPECT_EQ(After(201, u"|\U0001F600x"_s), u"\U0001F600|x"_s);
    EXPECT_EQ(After(194, u"a\U0001F600|x"_s), u"a|x"_s);
    EXPECT_EQ(After(101, u"ä|ö ßx"_s), u"ßx äö|"_s);
    EXPECT_EQ(After(103, u"|äö ß"_s), u"äö |ß"_s);
}

// Catches: a page that is no page, up and down mixed up, a selection dropped by the extending twin.
TEST_F(PaneTest, PagesMoveByWhatIsShown)
{
    QString text;
    for (int i = 0; i < 200; ++i)
        text += "line\n"_L1;
    Component()->resize(400, 300);
    pane->SetText(text);
    pane->SetSel({100, 2, 100, 2}, true);
    pane->ExecuteCmd(146);
    const Range down = pane->GetSel(true);
    EXPECT_GT(down.StartLine, 103);
    EXPECT_EQ(down.StartCol, 2);
    pane->ExecuteCmd(144);
    EXPECT_EQ(pane->GetSel(true), (Range{100, 2, 100, 2}));
    pane->ExecuteCmd(145);
    EXPECT_EQ(pane->GetSel(false), (Range{100, 2, down.EndLine, 2}));
    pane->SetSel({100, 2, 100, 2}, true);
    pane->ExecuteCmd(143);
    EXPECT_LT(pane->GetSel(false).EndLine, 97);
    EXPECT_EQ(pane->GetSel(false).StartLine, 100);
}

// Catches: vertical moves that aim at a column from before the caret was set by the program.
TEST_P(CommandTest, VerticalMovesKeepTheColumnOfTheCaret)
{
    subject->SetText(u"abcdef\nx\nabcdef"_s);
    subject->SetSel({0, 5, 0, 5}, false);
    subject->ExecuteCmd(157);
    subject->ExecuteCmd(157);
    EXPECT_EQ(subject->GetSel(true), (Range{2, 5, 2, 5}));
    subject->SetSel({0, 2, 0, 2}, false);
    subject->ExecuteCmd(157);
    subject->ExecuteCmd(157);
    EXPECT_EQ(subject->GetSel(true), (Range{2, 2, 2, 2}));
}

// Catches: a clipboard emptied by a command without a selection, pieces appended in the wrong order, pasted line ends
// that are not the document's.
TEST_P(CommandTest, ClipboardCommands)
{
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setText(u"before"_s);
    for (const int number : {197, 198, 210}) {
        EXPECT_EQ(After(number, u"a|b"_s), u"a|b"_s);
        EXPECT_FALSE(done);
        EXPECT_EQ(clipboard->text(), u"before"_s);
    }
    EXPECT_EQ(After(198, u"a[bc|d"_s), u"a[bc|d"_s);
    EXPECT_EQ(clipboard->text(), u"bc"_s);
    EXPECT_EQ(After(210, u"x[yz|"_s), u"x|"_s);
    EXPECT_EQ(clipboard->text(), u"bcyz"_s);
    EXPECT_EQ(After(197, u"x|yz["_s), u"x|"_s);
    EXPECT_EQ(clipboard->text(), u"yz"_s);
    EXPECT_EQ(After(140, u"a[b|c"_s), u"ayz|c"_s);
    EXPECT_EQ(After(161, u"a\nb|b\nc"_s), u"a\n|c"_s);
    EXPECT_EQ(After(140, u"1\n|2"_s), u"1\nbb\n|2"_s);
    subject->LoadBytes("a\nb\n");
    subject->ExecuteCmd(140);
    EXPECT_EQ(subject->FileBytes(), "bb\na\nb\n");
}

// Catches: a line number beyond the end that does nothing or crashes, dialogs that open with a number.
TEST_P(CommandTest, GotoLineAndDialogsAskForTheirWindow)
{
    QList<FindKind> kinds;
    QObject::connect(pane.get(), &EditorPane::FindWanted, pane.get(), [&](FindKind kind) { kinds.append(kind); });
    EXPECT_EQ(After(168, u"a\nbc|\nd"_s, 2), u"a\nbc\n|d"_s);
    EXPECT_EQ(After(168, u"a\nbc|\nd"_s, 99), u"a\nbc\n|d"_s);
    EXPECT_FALSE(subject->ExecuteCmd(168, -2));
    EXPECT_TRUE(kinds.isEmpty());
    for (const int number : {168, 169, 178})
        EXPECT_EQ(After(number, u"a|b"_s, -1), u"a|b"_s);
    EXPECT_EQ(kinds, OnPane() ? (QList{FindKind::GotoLine, FindKind::Replace, FindKind::Find}) : QList<FindKind>());
}

// Catches: a repeat that counts steps which the text's end refused, or goes on for ever there; a caret told by the
// selection's start.
TEST_P(CommandTest, RepeatTellsHowOftenItWent)
{
    Put(u"ab\nc|d\nef"_s);
    EXPECT_EQ(subject->Repeat(CmdLineDown, 5), 2); // in the last line it goes to the end
    EXPECT_EQ(subject->Repeat(CmdCharLeft, 1'000'000'000), 8);
    EXPECT_EQ(subject->Repeat(CmdDeleteRight, 3), 3);
    EXPECT_EQ(subject->Repeat(12345, 3), 0);
    Put(u"ab\nc|d\nef"_s);
    EXPECT_EQ(subject->Repeat(CmdCharRightExtend, 3), 3);
    EXPECT_EQ(subject->CaretLine(), 2);
    EXPECT_EQ(subject->CaretColumn(), 1);
}

} // namespace
