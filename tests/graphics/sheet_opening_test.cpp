#include "graphics/sheet_opening.h"

#include "host_scope.h"
#include "sheet_scope.h"

#include <gtest/gtest.h>

namespace {

const SheetRequest Request{.File = QStringLiteral("a.pcx"), .Block = {}, .Prompt = {}};
const QStringList KnownModes = {QStringLiteral("loop"), QStringLiteral("linear"), QStringLiteral("once")};

/// A block that describes the sheet on show.
void HoldBlock(int x, int y, int frames)
{
    Conf.Element.ImageFile = QStringLiteral("a.pcx");
    Conf.Element.ElementOpen = true;
    Conf.FieldFound.fill(1);
    Conf.Element.XPos = x;
    Conf.Element.YPos = y;
    Conf.Element.Frames = frames;
}

} // namespace

// Catches: marks off by one, a mode of the game called unknown.
TEST(SheetOpening, MarksTheBlockThatDescribesTheSheet)
{
    SheetScope scope(4, 3);
    HoldBlock(3, 0, 3);
    Conf.Element.StartFrame = 2;
    Conf.Element.AnimMode = QStringLiteral("linear,once");
    const SheetOpening opening = FitElementToSheet(Request, KnownModes);
    EXPECT_TRUE(opening.FromBlock);
    EXPECT_TRUE(opening.MayUpdate);
    EXPECT_EQ(Sheet.Start, QPoint(3, 0));
    EXPECT_EQ(Sheet.End, QPoint(1, 1));
    EXPECT_EQ(Sheet.EndIndex, 5);
    EXPECT_EQ(Sheet.InStart, QPoint(1, 1));
    EXPECT_EQ(Conf.Element.AnimMode, QStringLiteral("linear,once"));
    EXPECT_TRUE(Sheet.ImageWarnings.isEmpty()) << Sheet.ImageWarnings.toStdString();
}

// Catches: a block outside the sheet shown where there is no tile, a warning lost or out of order.
TEST(SheetOpening, MendsWhatDoesNotFitFieldByField)
{
    SheetScope scope(4, 3);
    HoldBlock(4, 3, 13);
    Conf.Element.AnimMode = QStringLiteral("wobble");
    FitElementToSheet(Request, KnownModes);
    EXPECT_EQ(Sheet.ImageWarnings, QStringLiteral("The XPOS exceeds the width of the image.\n\n"
                                                  "The YPOS exceeds the height of the image.\n\n"
                                                  "The frame total exceeds the size of the image.\n\n"
                                                  "The animation mode you typed doesn't exist. Defaulting to normal."
                                                  "\n\n"));
    EXPECT_EQ(Conf.Element.XPos + Conf.Element.YPos, 0);
    EXPECT_EQ(Conf.Element.Frames, 1);
    EXPECT_EQ(Conf.Element.AnimMode, QStringLiteral("loop"));
    EXPECT_EQ(Conf.UnknownMode, QStringLiteral("wobble")) << "an update leaves it unless the user picks another";
    Conf.Element.AnimMode.clear();
    FitElementToSheet(Request, KnownModes);
    EXPECT_EQ(Conf.UnknownMode, QString()) << "a line without a mode stays one";

    SheetScope whole(4, 3);
    HoldBlock(0, 0, 12);
    FitElementToSheet(Request, KnownModes);
    EXPECT_EQ(Conf.Element.Frames, 12) << "the whole sheet fits";
}

// Catches: another sheet's values taken for this one, an update without a place to write to.
TEST(SheetOpening, StartsFromDefaultsOnAnotherSheet)
{
    SheetScope scope(4, 3);
    HoldBlock(2, 2, 2);
    const SheetRequest other{.File = QStringLiteral("b.pcx"), .Block = {}, .Prompt = {}};
    Conf.Element.Offset = 7;
    Conf.Element.BlockKey = QStringLiteral("zip");
    EXPECT_FALSE(FitElementToSheet(other, KnownModes).FromBlock);
    EXPECT_EQ(Conf.Element.Offset, 0);
    EXPECT_EQ(Conf.Element.BlockKey, QString());
    EXPECT_FALSE(Sheet.Start);
    EXPECT_EQ(Conf.Element.XPos, 0);
    EXPECT_EQ(Conf.Element.StartFrame, -1);

    SheetScope lacking(4, 3);
    HoldBlock(2, 2, 2);
    Conf.FieldFound[YPosField] = 0;
    EXPECT_FALSE(FitElementToSheet(Request, KnownModes).MayUpdate);
    EXPECT_EQ(Conf.Element.XPos, 0);
    EXPECT_TRUE(Sheet.ImageWarnings.contains(QStringLiteral("missing xpos or ypos")));
}

// Catches: a division by no columns, tools offered on an image without a whole tile.
TEST(SheetOpening, TakesAnImageBelowOneTile)
{
    SheetScope scope(1, 1);
    ShowSheet(QImage(31, 40, QImage::Format_RGB32));
    HoldBlock(0, 0, 1);
    const SheetOpening opening = FitElementToSheet(Request, KnownModes);
    EXPECT_TRUE(opening.TooSmall);
    EXPECT_FALSE(opening.MayUpdate);
    EXPECT_TRUE(Sheet.ImageWarnings.startsWith(QStringLiteral("Image is smaller than 32 pixels.\n\nImage is not a ")));
}

// Catches: a sheet of the lists that opens with the block of an earlier one, a block of the text that is not read.
TEST(SheetOpening, TakesTheElementOfTheRequest)
{
    SheetScope scope(4, 3);
    HostScope host;
    DocumentText& text = CurrentPane();
    text.LoadBytes("one\nzip: a.pcx\nzip.xpos: 2\nzip.ypos: 1\n");
    SheetRequest request = Request;
    request.Block = BlockPlace{1, 2};
    Frame.CurrentMode = ModeGfx;
    TakeElement(request, text);
    EXPECT_EQ(std::pair(Conf.Element.XPos, Conf.Element.YPos), std::pair(2, 1));
    EXPECT_EQ(Conf.FieldFound, (FieldFlags{1, 1}));
    EXPECT_TRUE(Conf.Element.ElementOpen);

    TakeElement(Request, text);
    EXPECT_FALSE(Conf.Element.ElementOpen);
    EXPECT_EQ(Conf.FieldFound.at(NameField), 1);
    EXPECT_EQ(Conf.Element.ImageFile, QString()) << "the lists know of no block";
}
