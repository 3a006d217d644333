#include "either_text.h"

namespace {

struct TextTest : EitherTextTest
{
};

ON_EITHER_TEXT(TextTest);

// Catches: a buffer that counts as blank after an insertion, or never again.
TEST_P(TextTest, LineCountIsNoughtForABlankBufferOnly)
{
    EXPECT_EQ(subject->LineCount(), 0);
    subject->AddText({});
    EXPECT_EQ(subject->LineCount(), 1);
    subject->SetText({});
    EXPECT_EQ(subject->LineCount(), 0);
    EXPECT_EQ(subject->GetSel(true), Range());
    EXPECT_TRUE(subject->SetSel({}, true));
    subject->InsertLine(0, u"one"_s);
    EXPECT_EQ(subject->Text(), u"one"_s);
    subject->DeleteLine(0);
    EXPECT_EQ(subject->LineCount(), 1);
    subject->LoadBytes({});
    EXPECT_EQ(subject->LineCount(), 0);
    subject->ReplaceSel(u"x"_s);
    EXPECT_EQ(subject->ExecuteCmd(CmdUndo), OnPane());
    EXPECT_EQ(subject->LineCount(), 1);
}

// Catches: lines told with their ends, a line outside that crashes, columns in bytes.
TEST_P(TextTest, LinesAreToldWithoutTheirEnds)
{
    subject->LoadBytes("a\r\n\xE2\x82\xAC\xF0\x9F\x98\x80\n\rlast");
    EXPECT_EQ(subject->LineCount(), 4);
    EXPECT_EQ(subject->GetLine(1), u"€\U0001F600"_s);
    EXPECT_EQ(subject->GetLineLength(1), 3);
    EXPECT_EQ(subject->GetLine(2), QString());
    EXPECT_EQ(subject->GetLine(3), u"last"_s);
    EXPECT_EQ(subject->LineStart(3), subject->Bytes().size() - 4);
    for (const int outside : {-1, 4, 99}) {
        EXPECT_EQ(subject->GetLine(outside), QString());
        EXPECT_EQ(subject->GetLineLength(outside), 0);
    }
    EXPECT_EQ(subject->Text(), u"a\r\n€\U0001F600\r\n\r\nlast"_s);
}

// Catches: a line put in on the wrong side, the last line deleted without the line end in front, edits that take the
// selection along.
TEST_P(TextTest, InsertAndDeleteLines)
{
    Put(u"a\nb|"_s);
    subject->InsertLine(1, u"x"_s);
    EXPECT_EQ(Shown(), u"a\nx\nb|"_s);
    subject->InsertLine(3, u"end"_s);
    EXPECT_EQ(Shown(), u"a\nx\nb|\nend"_s);
    subject->DeleteLine(1);
    EXPECT_EQ(Shown(), u"a\nb|\nend"_s);
    subject->DeleteLine(2);
    EXPECT_EQ(Shown(), u"a\nb|"_s);
    subject->DeleteLine(7);
    subject->InsertText(u"\n1\r2"_s, {0, 1, 5, 5});
    EXPECT_EQ(subject->Text(), u"a\r\n1\r\n2\r\nb"_s);
    subject->InsertText(u"!"_s, {9, 0, 9, 0});
    subject->AddText(u"?"_s);
    EXPECT_EQ(subject->Text(), u"a\r\n1\r\n2\r\nb!?"_s);
    EXPECT_EQ(subject->SelText(), QString());
}

// Catches: SelText that loses its selection, or ReplaceSel that keeps one; columns replaced at one line only.
TEST_P(TextTest, WrittenSelectionStaysAndReplacedOneGoes)
{
    Put(u"a[b|c"_s);
    subject->SetSelText(u"1\n2"_s);
    EXPECT_EQ(Shown(), u"a[1\n2|c"_s);
    subject->SetSelText(u"x"_s);
    EXPECT_EQ(Shown(), u"a[x|c"_s);
    subject->ReplaceSel(u"yy"_s);
    EXPECT_EQ(Shown(), u"ayy|c"_s);
    subject->ReplaceSel(QString(u'\0'));
    EXPECT_EQ(subject->Text().size(), 5);
    subject->SetText(u"abcd\nabcd\nabcd"_s);
    ASSERT_TRUE(subject->SetSel({0, 1, 2, 3, true}, false));
    subject->ReplaceSel(u"-"_s);
    EXPECT_EQ(Shown(), u"a-|d\nad\nad"_s);
    if (subject->ExecuteCmd(CmdUndo)) {
        EXPECT_EQ(subject->Text(), u"abcd\r\nabcd\r\nabcd"_s);
    }
}

// Catches: lines written with other line ends, or a line too many replaced.
TEST_P(TextTest, ReplaceLinesKeepsWhatItIsGiven)
{
    subject->LoadBytes("a\nb\r\nc\nd");
    subject->ReplaceLines(1, 2, "b\r\ncc\nnew");
    EXPECT_EQ(subject->FileBytes(), "a\nb\r\ncc\nnew\nd");
    subject->ReplaceLines(0, 99, {});
    EXPECT_EQ(subject->FileBytes(), "");
}

// Catches: more than the changed bytes touched (marks of other lines, undo size), more than one undo step, line ends
// changed on the way.
TEST_F(PaneTest, ReplaceLinesWritesTheBytesInOneStep)
{
    pane->LoadBytes("a\nb\r\nc\nd");
    int changed = 0;
    QObject::connect(Component(), &QsciScintillaBase::SCN_MODIFIED, pane.get(),
                     [&](int, int, const char*, int length) { changed += length; });
    pane->ReplaceLines(1, 2, "b\r\ncc\nnew");
    EXPECT_EQ(pane->FileBytes(), "a\nb\r\ncc\nnew\nd");
    EXPECT_EQ(changed, 5);
    pane->ReplaceLines(1, 99, "b\r\ncc\nnew\nd");
    EXPECT_EQ(changed, 5) << "nothing differs";
    EXPECT_TRUE(pane->ExecuteCmd(CmdUndo));
    EXPECT_EQ(pane->FileBytes(), "a\nb\r\nc\nd");
    EXPECT_FALSE(pane->CanUndo());
}

} // namespace
