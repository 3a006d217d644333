#include "conf/element_blocks.h"

#include "host_scope.h"

#include <gtest/gtest.h>

namespace {

/// Selects the block around a line of a text and gives back the selection.
Range BlockAround(const QByteArray& text, int line)
{
    Frame.Settings.SheetKinds = {QStringLiteral("pcx"), QStringLiteral("png")};
    EditorPane& pane = CurrentPane();
    pane.LoadBytes(text);
    pane.SetSel({.StartLine = line, .StartCol = 2, .EndLine = line, .EndCol = 2}, false);
    SelectElementBlock();
    return pane.GetSel(true);
}

} // namespace

// Catches: a wrong end of the block, sheets known by one ending only, the key compared without its case.
TEST(SelectElementBlock, TakesTheLinesThatStartWithTheKey)
{
    HostScope scope;
    const QByteArray text = "x\nzip: a.PNG\nzip.xpos: 1\nzip.ypos: 2\nZip.frames: 3\nzip.delay: 4\n";
    EXPECT_EQ(BlockAround(text, 3), (Range{.StartLine = 1, .EndLine = 4}));
    EXPECT_EQ(BlockAround("#zip: a.pcx\n#zip.xpos: 1\n\n", 1), (Range{.StartLine = 0, .EndLine = 2}));
    EXPECT_EQ(BlockAround("zip: a.pcx\nzip_2: b\n", 0).EndLine, 2) << "the key is a beginning, not a word";
}

// Catches: a walk that never ends, a selection that cannot end after the last line.
TEST(SelectElementBlock, EndsWhereThereIsNoKeyAndBehindTheLastLine)
{
    HostScope scope;
    EXPECT_EQ(BlockAround("see a.pcx\nother\n", 0), (Range{.StartLine = 0, .EndLine = 1}));
    EXPECT_EQ(BlockAround("see a.pcx\nsee a.pcx too\n", 0), (Range{.StartLine = 0, .EndLine = 1}));
    EXPECT_EQ(BlockAround(": a.pcx\nother\n", 0), (Range{.StartLine = 0, .EndLine = 1}));
    EXPECT_EQ(BlockAround("zip: a.pcx\nzip.xpos: 1", 1), (Range{.StartLine = 0, .EndLine = 2}));
    EXPECT_EQ(CurrentPane().LineCount(), 3);
}

// Catches: a reach beyond 50 lines, and a caret that wanders when there is nothing to select.
TEST(SelectElementBlock, LooksFiftyLinesUp)
{
    HostScope scope;
    QByteArray text = "zip: a.pcx\n";
    for (int line = 1; line <= 60; ++line)
        text += "zip.xpos: 1\n";
    EXPECT_EQ(BlockAround(text, 50), (Range{.StartLine = 0, .EndLine = 61}));
    EXPECT_EQ(BlockAround(text, 51), (Range{.StartLine = 51, .EndLine = 51}));
}
