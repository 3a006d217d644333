#include "graphics/sheet_marks.h"

#include "conf/element_record.h"
#include "graphics/sheet.h"

namespace {

int TileNumber(QPoint tile)
{
    return tile.y() * Sheet.SheetColumns + tile.x();
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
        Sheet.EndIndex = -1; // a first tile marked next must not reach to an end that nobody sees
    }
    return true;
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
