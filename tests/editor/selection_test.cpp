#include "either_text.h"

namespace {

struct SelectionTest : EitherTextTest
{
};

ON_EITHER_TEXT(SelectionTest);

// Catches: columns that wander between bytes and characters, a direction lost, a line outside that is taken.
TEST_P(SelectionTest, SetSelClampsColumnsAndRefusesLines)
{
    subject->SetText(u"abc\n€\U0001F600x\n"_s + QString(300, u'y'));
    const std::pair<Range, Range> cases[] = {
        {{0, 1, 0, 2}, {0, 1, 0, 2}},     {{1, 1, 1, 3}, {1, 1, 1, 3}},         {{1, 3, 0, 1}, {1, 3, 0, 1}},
        {{0, -5, 0, 99}, {0, 0, 0, 3}},   {{0, 99, 0, 99}, {0, 3, 0, 3}},       {{0, 0, 1, 255}, {0, 0, 1, 4}},
        {{2, 0, 2, 255}, {2, 0, 2, 300}}, {{2, 255, 2, 255}, {2, 255, 2, 255}}, {{1, 2, 1, 2}, {1, 1, 1, 1}},
    };
    for (const auto& [set, got] : cases) {
        EXPECT_TRUE(subject->SetSel(set, false));
        EXPECT_EQ(subject->GetSel(false), got) << set.StartLine << ' ' << set.StartCol;
    }
    subject->SetSel({1, 3, 0, 1}, false);
    EXPECT_EQ(subject->GetSel(true), (Range{0, 1, 1, 3}));
    for (const Range& outside : {Range{-1, 0, 0, 0}, Range{0, 0, 3, 0}, Range{3, 0, 3, 0}})
        EXPECT_FALSE(subject->SetSel(outside, false));
    EXPECT_EQ(subject->GetSel(false), (Range{1, 3, 0, 1})) << "a refused range changes nothing";
}

// Catches: a count by bytes, and one that is not brought up to date when the selection grows, shrinks or turns.
TEST_P(SelectionTest, SelLengthIsThatOfSelText)
{
    subject->LoadBytes("ab\n\xC3\xA4\xF0\x9F\x98\x80\r\n\r\nxyz\rend");
    for (int startLine = 0; startLine < 5; ++startLine)
        for (int endLine = 0; endLine < 5; ++endLine)
            for (const int column : {0, 1, 3}) {
                subject->SetSel({startLine, column, endLine, 2}, false);
                ASSERT_EQ(subject->SelLength(), subject->SelText().size())
                    << startLine << ' ' << endLine << ' ' << column;
            }
    subject->ExecuteCmd(CmdSelectAll);
    EXPECT_EQ(subject->SelLength(), 19);
    subject->InsertText(u"more"_s, {1, 0, 1, 0});
    EXPECT_EQ(subject->SelLength(), 23);
}

// Catches: a rectangle that ends at the shorter lines, reaches only one line, or loses its corners.
TEST_P(SelectionTest, ColumnsAreARectangle)
{
    subject->SetText(u"abcdef\nab\nabcdef\nx"_s);
    const Range block{0, 2, 2, 4, true};
    ASSERT_TRUE(subject->SetSel(block, true));
    EXPECT_EQ(subject->GetSel(true), block);
    EXPECT_EQ(subject->SelText(), u"cd\r\n\r\ncd"_s);
    EXPECT_EQ(subject->SelLength(), 8);
    ASSERT_TRUE(subject->SetSel({2, 4, 0, 2, true}, true));
    EXPECT_EQ(subject->GetSel(true), block);
    subject->ExecuteCmd(CmdDeleteRight);
    EXPECT_EQ(subject->Text(), u"abef\r\nab\r\nabef\r\nx"_s);
    ASSERT_TRUE(subject->SetSel({1, 5, 3, 7, true}, true));
    EXPECT_EQ(subject->GetSel(true), (Range{1, 5, 3, 7, true})) << "beyond the lines' ends";
    EXPECT_EQ(subject->SelText(), u"\r\n\r\n"_s);
    EXPECT_FALSE(subject->SetSel({0, 0, 4, 1, true}, true));
    subject->SetSel({0, 0, 0, 1}, true);
    EXPECT_FALSE(subject->GetSel(true).ColumnSel);
}

// Catches: a caret that stays behind the end of its line once the rectangle is gone.
TEST_P(SelectionTest, ARectangleBehindTheLinesEndsInThem)
{
    subject->SetText(QStringLiteral("one two\r\nab\r\n"));
    for (const int command : {CmdWordRight, CmdWordRightExtend, CmdCharRight, CmdCharRightExtend, CmdLineUpExtend}) {
        ASSERT_TRUE(subject->SetSel({1, 4, 2, 9, true}, false));
        subject->ExecuteCmd(command);
        const Range after = subject->GetSel(true);
        EXPECT_LE(subject->CaretColumn(), subject->GetLineLength(subject->CaretLine())) << command;
        EXPECT_LE(after.StartCol, subject->GetLineLength(after.StartLine)) << command;
        EXPECT_LE(after.EndCol, subject->GetLineLength(after.EndLine)) << command;
        EXPECT_FALSE(after.ColumnSel) << command;
    }
}

TEST_P(SelectionTest, SelectLineLeavesTheLineEndOut)
{
    Put(u"ab\ncd|\nef"_s);
    subject->SelectLine(0, true);
    EXPECT_EQ(Shown(), u"[ab|\ncd\nef"_s);
    subject->SelectLine(3, true);
    EXPECT_EQ(Shown(), u"[ab|\ncd\nef"_s);
}

// Catches: a word that ends at a letter beyond ASCII, takes a sign along, or is looked for on the next line.
TEST_P(SelectionTest, CurrentWordIsWhatTheCaretTouches)
{
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"|ab.cd", u"ab"},       {u"a|b.cd", u"ab"}, {u"ab|.cd", u"ab"},  {u"ab.|cd", u"cd"},  {u"a .| b", u""},
        {u"x_1ä€|é-", u"x_1ä€é"}, {u"ab\n|", u""},    {u"ab|\ncd", u"ab"}, {u"[ab cd|", u"cd"}, {u"|", u""},
    };
    for (const auto& [text, word] : cases) {
        Put(QString::fromUtf16(text));
        EXPECT_EQ(subject->CurrentWord(), QString::fromUtf16(word)) << QString::fromUtf16(text);
        EXPECT_EQ(subject->CurrentWordLength(), QString::fromUtf16(word).size());
    }
}

// Catches: scrolling that was not asked for, or none where it was.
TEST_F(PaneTest, MakeVisibleScrolls)
{
    Component()->resize(300, 200);
    pane->SetText(u"line\n"_s.repeated(500));
    const auto top = [&] { return Component()->SendScintilla(QsciScintillaBase::SCI_GETFIRSTVISIBLELINE); };
    pane->SetSel({400, 0, 400, 0}, false);
    EXPECT_EQ(top(), 0);
    pane->SetSel({400, 0, 400, 0}, true);
    EXPECT_GT(top(), 350);
    EXPECT_LE(top(), 400);
    pane->LockRedraw(true);
    pane->SetSel({3, 0, 3, 0}, true);
    EXPECT_GT(top(), 350);
    pane->LockRedraw(false);
    EXPECT_LE(top(), 3);
}

} // namespace
