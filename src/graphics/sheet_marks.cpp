#include "graphics/sheet_marks.h"

#include "conf/element_record.h"
#include "graphics/sheet.h"

#include <algorithm>

namespace {

int TileNumber(QPoint tile)
{
    return tile.y() * Sheet.SheetColumns + tile.x();
}

QPoint TileOfNumber(int number)
{
    return {number % Sheet.SheetColumns, number / Sheet.SheetColumns};
}

void DropPlayStart()
{
    Conf.Element.StartFrame = -1;
    Sheet.InStart.reset();
}

} // namespace

bool MarkFirstTile(QPoint tile)
{
    ElementRecord& element = Conf.Element;
    element.XPos = tile.x();
    element.YPos = tile.y();
    Sheet.Start = tile;
    const int number = TileNumber(tile);
    if (number < Sheet.EndIndex) {
        element.Frames = Sheet.EndIndex - number + 1;
        Sheet.End = TileOfNumber(Sheet.EndIndex); // which a last tile in front of the first one had hidden
    } else {
        Sheet.End.reset();
        element.Frames = 1;
        Sheet.EndIndex = -1;
    }
    DropPlayStart();
    return true;
}

bool MarkLastTile(QPoint tile)
{
    ElementRecord& element = Conf.Element;
    Sheet.EndIndex = TileNumber(tile);
    Sheet.End = tile;
    DropPlayStart();
    element.Frames = Sheet.EndIndex - BaseTile() + 1;
    if (element.Frames < 1) {
        element.Frames = 1;
        Sheet.End.reset();
    }
    return true;
}

bool MarkRun(QPoint from, QPoint to)
{
    const auto [first, last] = std::minmax(from, to, [](QPoint a, QPoint b) { return TileNumber(a) < TileNumber(b); });
    MarkFirstTile(first);
    return MarkLastTile(last);
}

bool MarkPlayStart(QPoint tile)
{
    ElementRecord& element = Conf.Element;
    const int distance = TileNumber(tile) - BaseTile();
    if (distance > element.Frames || distance < 0)
        return false;
    if (tile.x() < element.XPos && tile.y() <= element.YPos) {
        element.StartFrame = 1;
        return false;
    }
    element.StartFrame = distance;
    Sheet.InStart = tile;
    return true;
}
