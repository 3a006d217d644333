#include "pane_fixture.h"

namespace {

struct TextTest : PaneTest
{
};

// Catches: a buffer that counts as blank after an insertion, or never again.
TEST_F(TextTest, LineCountIsNoughtForABlankBufferOnly)
{
    EXPECT_EQ(pane->LineCount(), 0);
    pane->AddText({});
    EXPECT_EQ(pane->LineCount(), 1);
    pane->SetText({});
    EXPECT_EQ(pane->LineCount(), 0);
    EXPECT_EQ(pane->GetSel(true), Range());
    EXPECT_TRUE(pane->SetSel({}, true));
    pane->InsertLine(0, u"one"_s);
    EXPECT_EQ(pane->Text(), u"one"_s);
    pane->DeleteLine(0);
    EXPECT_EQ(pane->LineCount(), 1);
    pane->LoadBytes({});
    EXPECT_EQ(pane->LineCount(), 0);
    pane->ReplaceSel(u"x"_s);
    pane->ExecuteCmd(CmdUndo);
    EXPECT_EQ(pane->LineCount(), 1);
}

// Catches: lines told with their ends, a line outside that crashes, columns in bytes.
TEST_F(TextTest, LinesAreToldWithoutTheirEnds)
{
    pane->LoadBytes("a\r\n\xE2\x82\xAC\xF0\x9F\x98\x80\n\rlast");
    EXPECT_EQ(pane->LineCount(), 4);
    EXPECT_EQ(pane->GetLine(1), u"€\U0001F600"_s);
    EXPECT_EQ(pane->GetLineLength(1), 3);
    EXPECT_EQ(pane->GetLine(2), QString());
    EXPECT_EQ(pane->GetLine(3), u"last"_s);
    EXPECT_EQ(pane->LineStart(3), pane->Bytes().size() - 4);
    for (const int outside : {-1, 4, 99}) {
        EXPECT_EQ(pane->GetLine(outside), QString());
        EXPECT_EQ(pane->GetLineLength(outside), 0);
    }
    EXPECT_EQ(pane->Text(), u"a\r\n€\U0001F600\r\n\r\nlast"_s);
}

// Catches: a line put in on the wrong side, the last line deleted without the line end in front, edits that take the
// selection along.
TEST_F(TextTest, InsertAndDeleteLines)
{
    Put(u"a\nb|"_s);
    pane->InsertLine(1, u"x"_s);
    EXPECT_EQ(Shown(), u"a\nx\nb|"_s);
    pane->InsertLine(3, u"end"_s);
    EXPECT_EQ(Shown(), u"a\nx\nb|\nend"_s);
    pane->DeleteLine(1);
    EXPECT_EQ(Shown(), u"a\nb|\nend"_s);
    pane->DeleteLine(2);
    EXPECT_EQ(Shown(), u"a\nb|"_s);
    pane->DeleteLine(7);
    pane->InsertText(u"\n1\r2"_s, {0, 1, 5, 5});
    EXPECT_EQ(pane->Text(), u"a\r\n1\r\n2\r\nb"_s);
    pane->InsertText(u"!"_s, {9, 0, 9, 0});
    pane->AddText(u"?"_s);
    EXPECT_EQ(pane->Text(), u"a\r\n1\r\n2\r\nb!?"_s);
    EXPECT_EQ(pane->SelText(), QString());
}

// Catches: SelText that loses its selection, or ReplaceSel that keeps one; columns replaced at one line only.
TEST_F(TextTest, WrittenSelectionStaysAndReplacedOneGoes)
{
    Put(u"a[b|c"_s);
    pane->SetSelText(u"1\n2"_s);
    EXPECT_EQ(Shown(), u"a[1\n2|c"_s);
    pane->SetSelText(u"x"_s);
    EXPECT_EQ(Shown(), u"a[x|c"_s);
    pane->ReplaceSel(u"yy"_s);
    EXPECT_EQ(Shown(), u"ayy|c"_s);
    pane->ReplaceSel(QString(u'\0'));
    EXPECT_EQ(pane->Text().size(), 5);
    pane->SetText(u"abcd\nabcd\nabcd"_s);
    ASSERT_TRUE(pane->SetSel({0, 1, 2, 3, true}, false));
    pane->ReplaceSel(u"-"_s);
    EXPECT_EQ(Shown(), u"a-|d\nad\nad"_s);
    pane->ExecuteCmd(CmdUndo);
    EXPECT_EQ(pane->Text(), u"abcd\r\nabcd\r\nabcd"_s);
}

// Catches: more than the changed bytes touched (marks of other lines, undo size), more than one undo step, line ends
// changed on the way.
TEST_F(TextTest, ReplaceLinesWritesTheBytesInOneStep)
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
