#include "graphics/tiles_in_use.h"

#include "conf/block_outline.h"

#include <map>

std::vector<UsedTile> TilesInUse(QByteArrayView text, const LineReader& lines, const SheetUse& sheet)
{
    const int all = sheet.Columns * sheet.Rows;
    std::map<int, std::vector<TileUser>> used;
    for (const OutlineBlock& block : FindBlocks(text, sheet.Endings)) {
        if (block.Line == sheet.Without || !sheet.Endings.StandsFor(block.Image, sheet.Image))
            continue;
        const BlockReading read = ReadBlock({lines, block.Line, sheet.Endings}, sheet.Image);
        const int first = read.Element.YPos * sheet.Columns + read.Element.XPos;
        for (int tile = first; tile < qMin(all, first + read.Element.Frames); ++tile)
            used[tile].push_back({block.Key, block.Line});
    }
    std::vector<UsedTile> tiles;
    for (auto& [tile, users] : used)
        tiles.push_back({QPoint(tile % sheet.Columns, tile / sheet.Columns), std::move(users)});
    return tiles;
}
