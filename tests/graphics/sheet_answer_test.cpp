#include "graphics/sheet_answer.h"

#include "host_scope.h"
#include "sheet_scope.h"

#include <gtest/gtest.h>

// Catches: an answer written that was none, into another place, into the midst of a block, or as two steps; a line that
// the block has added once more.
TEST(SheetAnswer, IsWrittenAsOneStep)
{
    SheetScope scope(4, 3);
    HostScope host;
    DocumentText& text = CurrentPane();
    const QByteArray before = "one\nzip: a.pcx\nzip.xpos: 2\nzip.ypos: 1\n";
    text.LoadBytes(before);
    Frame.Settings.SpacerWidth = 12;
    const SheetRequest request{.File = QStringLiteral("a.pcx"), .Block = BlockPlace{1, 3}, .Prompt = {}};
    SheetAnswer answer{.Outcome = SheetOutcome::Closed, .Element = {}, .Key = QStringLiteral("mole")};
    answer.Element.ImageFile = QStringLiteral("a.pcx");
    answer.Element.XPos = 3;
    answer.Element.Reverse = true;
    WriteSheetAnswer(text, request, answer);
    EXPECT_EQ(text.Bytes(), before);
    EXPECT_EQ(Conf.Element.XPos, 3) << "the next tool goes on with it";

    answer.Outcome = SheetOutcome::Update;
    WriteSheetAnswer(text, request, answer);
    EXPECT_EQ(text.Bytes(), "one\nzip: a.pcx\nzip.xpos:  3\nzip.ypos:  0\n");
    EXPECT_EQ(text.GetSel(true).StartLine, 3);
    text.ExecuteCmd(CmdUndo);
    EXPECT_EQ(text.Bytes(), before);

    answer.Added[FramesField] = answer.Added[NameField] = answer.Added[XPosField] = 1;
    WriteSheetAnswer(text, request, answer);
    EXPECT_EQ(text.Bytes(),
              "one\nzip: a.pcx\nzip.xpos:  3\nzip.ypos:  0\nzip.frames:1\nzip.name:  Element's Full Name\n");
    EXPECT_EQ(text.GetSel(true).StartLine, 3);
    text.ExecuteCmd(CmdUndo);
    EXPECT_EQ(text.Bytes(), before);

    answer.Outcome = SheetOutcome::GoTo;
    WriteSheetAnswer(text, request, answer);
    EXPECT_EQ(text.GetSel(true).StartLine, 0);
    Frame.Settings.QuickElementTemplate = {1, 0, 0, 0, 1};
    answer.Outcome = SheetOutcome::NewElement;
    WriteSheetAnswer(text, request, answer);
    const QByteArray mole = "mole:      a.pcx\nmole.xpos: 3\nmole.anim_mode:reverse\n";
    EXPECT_EQ(text.Bytes(), QByteArray(mole + before));
    text.ExecuteCmd(CmdUndo);
    EXPECT_EQ(text.Bytes(), before);
    text.SetSel({.StartLine = 2, .EndLine = 2}, false);
    WriteSheetAnswer(text, request, answer);
    EXPECT_EQ(text.Bytes(), QByteArray(before + mole)) << "no block is parted";
}
