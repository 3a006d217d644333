#include "conf/document_hints.h"

#include "frame/host_ports.h"
#include "frame/program_scope.h"

namespace {

class DocumentHintsTest : public FrameTest
{
protected:
    void SetUp() override { Run.Start(); }

    void Load(const QByteArray& text)
    {
        SetMode(ModeSfx);
        CurrentPane().LoadBytes(text);
        HintsOfDocument().Forget();
    }
    int After(bool forward)
    {
        GotoMark(forward);
        return CurrentPane().CaretLine();
    }
};

} // namespace

// Catches: the marked line of the caret found again, a search that ends at the end of the document or of one stretch,
// a mark of a plain text, the words of the mark not said.
TEST_F(DocumentHintsTest, MarksAreGoneThroughRoundTheEnds)
{
    const QByteArray filler = QByteArray("# x\n").repeated(3000);
    Load("ok\n" + filler + "bad\nbad\n" + filler);
    EXPECT_EQ(After(true), 3001);
    EXPECT_EQ(After(true), 3002);
    EXPECT_EQ(After(true), 0);
    EXPECT_EQ(After(false), 3002);
    EXPECT_EQ(After(false), 3001);
    EXPECT_TRUE(Window.Notices.last().contains(QStringLiteral("No colon found")));
    SetMode(ModeTxt);
    EXPECT_EQ(After(true), 3001);
    EXPECT_EQ(Window.Notices.last(), QStringLiteral("No line of this document has a mark"));
}

// Catches: another part of the key replaced, one in the value, a change of a line that has become another.
TEST_F(DocumentHintsTest, TheNearestWordTakesTheWrongOnesPlace)
{
    Load("a.elemnt.elemnt2: elemnt\nb: 1\n");
    LineHint hint{.Line = 0, .Message = {}, .Wrong = QStringLiteral("elemnt2"), .Right = QStringLiteral("element")};
    PutNearestWordIn(hint);
    EXPECT_EQ(CurrentPane().FileBytes(), "a.elemnt.element: elemnt\nb: 1\n");
    PutNearestWordIn(hint);
    hint.Line = 1;
    PutNearestWordIn(hint);
    EXPECT_EQ(CurrentPane().FileBytes(), "a.elemnt.element: elemnt\nb: 1\n");
}

// Catches: a word of a value looked for in the key, in a note or inside of a longer word; a hint of a value without the
// word that it tells.
TEST_F(DocumentHintsTest, TheNearestWordOfAValueIsPutInToo)
{
    SetMode(ModeGfx);
    CurrentPane().LoadBytes("lop.anim_mode: xlop, lop # lop\nemerald.anim_mode: Pingpnog,reverse\n"
                            "emerald.global_sync: ture\n");
    PutNearestWordIn({.Message = {}, .Wrong = QStringLiteral("lop"), .Right = QStringLiteral("loop"), .InValue = true});
    EXPECT_EQ(CurrentPane().GetLine(0), QStringLiteral("lop.anim_mode: xlop, loop # lop"));
    HintsOfDocument().Forget();
    for (const LineHint& hint : HintsOfDocument().InLines(1, 2))
        if (hint.InValue)
            PutNearestWordIn(hint);
    EXPECT_EQ(CurrentPane().GetLine(1), QStringLiteral("emerald.anim_mode: pingpong,reverse"));
    EXPECT_EQ(CurrentPane().GetLine(2), QStringLiteral("emerald.global_sync: true"));
}
