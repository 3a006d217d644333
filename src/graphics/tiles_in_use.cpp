#include "graphics/tiles_in_use.h"

#include "conf/block_outline.h"

#include <set>

QList<QPoint> TilesInUse(QByteArrayView text, const LineReader& lines, const SheetUse& sheet)
{
    const int all = sheet.Columns * sheet.Rows;
    std::set<int> used;
    for (const OutlineBlock& block : FindBlocks(text, sheet.Endings)) {
        if (block.Line == sheet.Without || !sheet.Endings.StandsFor(block.Image, sheet.Image))
            continue;
        const BlockReading read = ReadBlock({lines, block.Line, sheet.Endings}, sheet.Image);
        const int first = read.Element.YPos * sheet.Columns + read.Element.XPos;
        for (int tile = first; tile < qMin(all, first + read.Element.Frames); ++tile)
            used.insert(tile);
    }
    QList<QPoint> tiles;
    for (const int tile : used)
        tiles << QPoint(tile % sheet.Columns, tile / sheet.Columns);
    return tiles;
}
