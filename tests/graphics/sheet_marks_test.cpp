#include "graphics/sheet_marks.h"

#include "sheet_scope.h"

#include <gtest/gtest.h>

// Catches: an end mark that is lost though it lies after the new first tile, or kept though it lies before it.
TEST(SheetMarks, FirstTileKeepsAnEndBehindItOnly)
{
    SheetScope scope(4, 3);
    EXPECT_TRUE(MarkFirstTile({2, 0}));
    EXPECT_TRUE(MarkLastTile({1, 1}));
    EXPECT_EQ(Conf.Element.Frames, 4) << "the run goes on in the next row";
    Conf.Element.StartFrame = 2;
    Sheet.InStart = QPoint(0, 1);
    MarkFirstTile({0, 1});
    EXPECT_EQ(Conf.Element.Frames, 2);
    EXPECT_EQ(Sheet.End, QPoint(1, 1));
    EXPECT_EQ(Conf.Element.StartFrame, -1);
    EXPECT_FALSE(Sheet.InStart);
    MarkFirstTile({1, 1});
    EXPECT_EQ(Conf.Element.Frames, 1);
    EXPECT_EQ(Sheet.EndIndex, -1);
    EXPECT_FALSE(Sheet.End);
}

// Catches: a run of no or negative length.
TEST(SheetMarks, LastTileInFrontOfTheFirstIsOneFrame)
{
    SheetScope scope(4, 3);
    MarkFirstTile({2, 1});
    MarkLastTile({1, 1});
    EXPECT_EQ(Conf.Element.Frames, 1);
    EXPECT_FALSE(Sheet.End);
    MarkFirstTile({0, 1});
    EXPECT_EQ(Conf.Element.Frames, 2) << "the end was only hidden";
    EXPECT_EQ(Sheet.End, QPoint(1, 1));
    MarkFirstTile({2, 1});
    MarkLastTile({2, 1});
    EXPECT_EQ(Conf.Element.Frames, 1);
    EXPECT_EQ(Sheet.End, QPoint(2, 1));
}

// Catches: a run dragged upward that ends before it begins, one that keeps the end of the run before.
TEST(SheetMarks, ADragMarksTheRunEitherWay)
{
    SheetScope scope(4, 3);
    MarkLastTile({3, 2});
    for (const auto& [from, to] : {std::pair(QPoint(3, 0), QPoint(1, 1)), std::pair(QPoint(1, 1), QPoint(3, 0))}) {
        MarkRun(from, to);
        EXPECT_EQ(MarkedRun(), (TileRun{3, 3}));
        EXPECT_EQ(Sheet.Start, QPoint(3, 0));
        EXPECT_EQ(Sheet.End, QPoint(1, 1));
    }
}

// Catches: an end mark that stays on its place while the tiles wrap at another edge.
TEST(SheetMarks, FollowTheFramesOnASheetOfAnotherWidth)
{
    SheetScope scope(4, 3);
    MarkRun({3, 0}, {1, 1});
    MarkPlayStart({0, 1});
    ReplacePicture(QImage(5 * TileSize, 3 * TileSize, QImage::Format_RGB32));
    EXPECT_EQ(MarkedRun(), (TileRun{3, 3}));
    EXPECT_EQ(Sheet.End, QPoint(0, 1));
    EXPECT_EQ(Sheet.InStart, QPoint(4, 0));
    MarkFirstTile({4, 0});
    EXPECT_EQ(Conf.Element.Frames, 2) << "counted in the new columns";
}

// Catches: a start of play outside the run, or a restart where nothing was marked.
TEST(SheetMarks, PlayStartLiesInsideTheRun)
{
    SheetScope scope(4, 3);
    MarkFirstTile({2, 0});
    MarkLastTile({1, 1});
    EXPECT_FALSE(MarkPlayStart({1, 0})) << "in front of the run";
    EXPECT_FALSE(MarkPlayStart({3, 2})) << "far after it";
    EXPECT_EQ(Conf.Element.StartFrame, -1);
    EXPECT_TRUE(MarkPlayStart({0, 1}));
    EXPECT_EQ(Conf.Element.StartFrame, 2);
    EXPECT_EQ(Sheet.InStart, QPoint(0, 1));
    EXPECT_TRUE(MarkPlayStart({2, 1})) << "one after the last tile is still taken";
}
