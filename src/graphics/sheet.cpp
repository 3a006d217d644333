#include "graphics/sheet.h"

#include "conf/element_record.h"
#include "graphics/see_through.h"

#include <utility>

SheetState Sheet;

void ResetSheet()
{
    Sheet = SheetState{};
}

namespace {

void TakePicture(const QImage& picture)
{
    Sheet.Picture = picture;
    Sheet.AsShown = picture.hasAlphaChannel() ? picture : AsInGame(picture);
    Sheet.SheetWidth = picture.width();
    Sheet.SheetHeight = picture.height();
    Sheet.SheetColumns = picture.width() / TileSize;
    Sheet.SheetRows = picture.height() / TileSize;
}

/// The tile that lies `count` - 1 behind the first one.
QPoint EndFrame(int count)
{
    GetEndFrame(count);
    return {Sheet.EndColumn, Sheet.EndRow};
}

} // namespace

void ShowSheet(const QImage& picture)
{
    Sheet = SheetState{};
    TakePicture(picture);
}

void ReplacePicture(const QImage& picture)
{
    const int columns = std::exchange(Sheet.SheetColumns, picture.width() / TileSize);
    TakePicture(picture);
    if (Sheet.SheetColumns == columns || Sheet.SheetColumns < 1)
        return;
    Sheet.EndIndex = -1; // it counted in the columns of before
    if (Sheet.End) {
        Sheet.End = EndFrame(Conf.Element.Frames);
        Sheet.EndIndex = BaseTile() + Conf.Element.Frames - 1;
    }
    if (Sheet.InStart)
        Sheet.InStart = EndFrame(Conf.Element.StartFrame + 1);
}

std::optional<TileRun> MarkedRun()
{
    return Sheet.Start ? std::optional(TileRun{BaseTile(), Conf.Element.Frames}) : std::nullopt;
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
