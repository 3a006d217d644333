#include "graphics/sheet.h"

#include "conf/element_record.h"

SheetState Sheet;

void ResetSheet()
{
    Sheet = SheetState{};
}

void ShowSheet(const QImage& picture)
{
    Sheet = SheetState{};
    ReplacePicture(picture);
}

void ReplacePicture(const QImage& picture)
{
    Sheet.Picture = picture;
    Sheet.SheetWidth = picture.width();
    Sheet.SheetHeight = picture.height();
    Sheet.SheetColumns = picture.width() / TileSize;
    Sheet.SheetRows = picture.height() / TileSize;
}

int BaseTile()
{
    return Conf.Element.YPos * Sheet.SheetColumns + Conf.Element.XPos;
}

void GetEndFrame(int count)
{
    const int tile = BaseTile() + count - 1;
    if (Sheet.SheetColumns < 1)
        return;
    Sheet.EndRow = tile / Sheet.SheetColumns;
    Sheet.EndColumn = tile % Sheet.SheetColumns;
}
