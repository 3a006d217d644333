#include "conf/block_fields.h"

#include "conf_fixture.h"

namespace {

class BlockFieldsTest : public ConfTest
{
protected:
    /// Reads the block at line 0 of the current pane; its image is what the main line says.
    ElementRecord& ReadFirst(const ElementRecord& before = {})
    {
        Read = ReadBlock({LinesOf(Pane()), 0, Frame.Settings.SheetKinds}, QStringLiteral("a.pcx"), before);
        return Read.Element;
    }

    void Update(int caretLine = 0) { UpdateElementBlock(Pane(), {0, caretLine}, Read.Element); }

    BlockReading Read;
};

} // namespace

// Catches: a field read with the bounds or the form of another, a token found at the line's start only, a found mark
// at the wrong place, a sub group or the next block read as more of this one.
TEST_F(BlockFieldsTest, ReadsEachFieldOnceAndWithinBounds)
{
    Load("zip: a.pcx\n"
         "zip.EDITOR: e.pcx\nzip.EDITOR.xpos: 9\n  zip.xpos: 12345678\nzip.ypos: abc\nzip.frames: 0\n"
         "zip.crumbled.xpos: 7\nzip.delay: 9999999\nzip.anim_mode: PingPong,reverse\nzip.start_frame: 2.6\n"
         "zip.global_sync: TRUE\nzip.offset: -4\nzip.name:\tGr\xC3\xBC\xC3\x9F Gott \nzip.name: second\n"
         "zip.moving.xpos: 5\nzip.moving.delay: 6\n");
    const ElementRecord& read = ReadFirst();
    EXPECT_EQ(read.XPos, 32767) << "eight characters are the upper bound";
    EXPECT_EQ(read.YPos, 0);
    EXPECT_EQ(read.Frames, 1);
    EXPECT_EQ(read.Delay, 5000000) << "seven characters are read and held";
    EXPECT_EQ(read.AnimMode, QStringLiteral("pingpong"));
    EXPECT_TRUE(read.Reverse);
    EXPECT_EQ(read.StartFrame, 3);
    EXPECT_EQ(read.GlobalSync, 1);
    EXPECT_EQ(read.Offset, 0);
    EXPECT_EQ(read.ElementName, QStringLiteral("Grüß Gott"));
    EXPECT_EQ(read.BlockKey, QStringLiteral("zip"));
    EXPECT_EQ(read.ImageFile, QStringLiteral("a.pcx"));
    EXPECT_EQ(Read.FieldFound, (std::array{1, 1, 1, 1, 1, 1, 1, 1, 1}));
}

// Catches: values of the block before that show through, fields that count as found without a line.
TEST_F(BlockFieldsTest, ReadStartsFromDefaultsButKeepsThePlace)
{
    const ElementRecord before{
        QStringLiteral("old.pcx"), 3,    4,   5, 6, 7, QStringLiteral("random"), 1, 8, QStringLiteral("old"),
        QStringLiteral("old"),     true, true};
    Load("zip: a.pcx\nzip\n");
    const ElementRecord& read = ReadFirst(before);
    const ElementRecord wanted{
        QStringLiteral("old.pcx"), 3, 4, 1, 1, -1, QStringLiteral("loop"), 0, 0, {}, {}, false, true};
    EXPECT_EQ(read, wanted);
    EXPECT_EQ(Read.FieldFound, FieldFlags{});
}

// Catches: a read beyond 31 lines below the main line or beyond a line without the key, and one that takes the fields
// of a block whose key begins with this one.
TEST_F(BlockFieldsTest, ReadEndsWithTheBlock)
{
    QByteArray text = "zip: a.pcx\n";
    for (int line = 1; line <= 30; ++line)
        text += "zip.crumbled_like: x\n";
    Load(text + "zip.xpos: 31\nzip.ypos: 32\n");
    EXPECT_EQ(ReadFirst().XPos, 31);
    EXPECT_EQ(Read.FieldFound.at(YPosField), 0);
    Load("zip: a.pcx\nother.xpos: 1\nzip.ypos: 2\n");
    ReadFirst();
    EXPECT_EQ(Read.FieldFound, FieldFlags{});
    Load("zip: a.pcx\nzip.xpos: 1\nzip.moving.xpos: 2\nzip.moving.delay: 3\n");
    EXPECT_EQ(ReadFirst().XPos, 1);
    EXPECT_EQ(Read.Element.Delay, 1) << "a second xpos begins another block";
    Load("zip: a.pcx\nzip.name: a.pcx\nzip.moving: b.pcx\nzip.moving.delay: 7\n");
    EXPECT_EQ(ReadFirst().Delay, 1);
    EXPECT_EQ(Read.FieldFound.at(NameField), 1) << "a name may look like a sheet";
}

// Catches: notes and unknown words lost when nothing of them was changed, a value not aligned, fields added or written
// into the next block, a step for each line.
TEST_F(BlockFieldsTest, UpdateRewritesWhatChangedAsOneStep)
{
    const QByteArray before = "zip: a.pcx\r\nzip.xpos: 1\r\nzip.frames: 3 # all of it\r\nzip.anim_mode: Loop # on\r\n"
                              "zip.delay:7\r\nzip.start_frame: 9\r\nzip.EDITOR.xpos: 4\r\nzip.offset: 6 # tick\r\n"
                              "zip.moving.xpos: 8\r\n";
    Load(before, 2);
    EXPECT_EQ(ReadFirst().AnimMode, QStringLiteral("loop")) << "the note is none of it";
    EXPECT_EQ(Read.Element.Frames, 3);
    Read.Element.XPos = 22;
    Read.Element.StartFrame = -1;
    Read.Element.Offset = 5;
    Read.Element.GlobalSync = 1;
    Update(2);
    EXPECT_EQ(Bytes(),
              "zip: a.pcx\r\nzip.xpos:          22\r\nzip.frames: 3 # all of it\r\nzip.anim_mode: Loop # on\r\n"
              "zip.delay:         7\r\nzip.start_frame:   0\r\nzip.EDITOR.xpos: 4\r\nzip.offset:        5\r\n"
              "zip.moving.xpos: 8\r\n");
    EXPECT_EQ(Pane().GetSel(true), (Range{.StartLine = 2, .EndLine = 2}));
    EXPECT_EQ(Read.Element.StartFrame, 0);
    Pane().ExecuteCmd(CmdUndo);
    EXPECT_EQ(Bytes(), before);
}

// Catches: the word reverse written twice, lost, or written after "loop"; a trimmed compare in the update, which
// would reach lines that the read of another program indents.
TEST_F(BlockFieldsTest, UpdateWritesReverseOnce)
{
    for (const auto& [mode, written] : {std::pair("loop", "reverse"), std::pair("linear", "linear,reverse")}) {
        Load("zip: a.pcx\nzip.anim_mode: none\n zip.xpos: 1\nzip.name:\n");
        ReadFirst();
        Read.Element.AnimMode = QLatin1String(mode);
        Read.Element.Reverse = true;
        Read.Element.XPos = 5;
        Update();
        Update();
        EXPECT_EQ(Bytes(), QByteArray("zip: a.pcx\nzip.anim_mode:     ") + written + "\n zip.xpos: 1\nzip.name:\n");
    }
}
