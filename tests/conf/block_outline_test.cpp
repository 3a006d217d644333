#include "conf/block_outline.h"

#include "conf_fixture.h"

using BlockOutline = ConfTest;

namespace {

const QByteArray Text = "name: Set\n#zip: no.png\nzip:  a.PNG\nzip.xpos: 1\nzip.ypos: 2\nzip.EDITOR: e.pcx\n"
                        "zip.EDITOR.xpos: 7\nzip.frames: 4\nzip.anim_mode: linear,reverse\nzip.moving: C:b.pcx\n"
                        "zip.moving.name: Zip & <b>Zap</b>\n\nzippy.xpos: 3\n : c.png\n";

} // namespace

// Catches: comments, lines without a key or sheets known by one ending that get into the outline, wrong line numbers,
// the whole line taken for the key or image.
TEST_F(BlockOutline, FindsEachMainLine)
{
    QStringList found;
    for (const OutlineBlock& block : FindBlocks(QByteArray(Text).replace("\n", "\r\n"), Frame.Settings.SheetKinds))
        found << QStringLiteral("%1 %2 %3").arg(block.Line).arg(block.Key, block.Image);
    EXPECT_EQ(found.join(u'|'), QStringLiteral("2 zip a.PNG|5 zip.EDITOR e.pcx|9 zip.moving b.pcx"));
}

// Catches: a mark beside a neighbour's lines, a key that is only the beginning of a word, comments that belong.
TEST_F(BlockOutline, KnowsTheBlockOfALine)
{
    Load(Text);
    const LineReader lines = LinesOf(Pane());
    for (int line = 2; line <= 8; ++line)
        EXPECT_EQ(BlockAround(lines, line, Frame.Settings.SheetKinds), (BlockLines{2, 8})) << line;
    EXPECT_EQ(BlockAround(lines, 10, Frame.Settings.SheetKinds), (BlockLines{9, 10}));
    for (const int line : {0, 1, 11, 12, 14, 99})
        EXPECT_EQ(BlockAround(lines, line, Frame.Settings.SheetKinds), std::nullopt) << line;
}

// Catches: a summary of another block or of the sub group, fields named that the block does not have, a summary over
// the value.
TEST_F(BlockOutline, SaysWhatABlockSays)
{
    Load(Text);
    const LineReader lines = LinesOf(Pane());
    EXPECT_EQ(BlockSummary(lines, 8, 3, Frame.Settings.SheetKinds),
              QStringLiteral("zip: a.PNG, tile 1,2, 4 frames, linear reversed"));
    EXPECT_EQ(BlockSummary(lines, 6, 3, Frame.Settings.SheetKinds), QStringLiteral("zip.EDITOR: e.pcx, tile 7,0"));
    EXPECT_EQ(BlockSummary(lines, 10, 3, Frame.Settings.SheetKinds),
              QStringLiteral("zip.moving: b.pcx, \"Zip & <b>Zap</b>\""));
    EXPECT_EQ(BlockSummary(lines, 3, 9, Frame.Settings.SheetKinds), QString());
    EXPECT_EQ(BlockSummary(lines, 12, 2, Frame.Settings.SheetKinds), QString());
    EXPECT_EQ(Conf.Element, ElementRecord()) << "a look changes nothing";
}
