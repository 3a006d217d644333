#include "graphics/tiles_in_use.h"

#include "conf/block_outline.h"
#include "frame/media/media_lists.h"
#include "graphics/sheet.h"
#include "text/document_text.h"

#include <set>

QList<QPoint> TilesInUse(const DocumentText& pane, const QString& image, int without)
{
    const int all = Sheet.SheetColumns * Sheet.SheetRows;
    std::set<int> used;
    const LineReader lines = LinesOf(pane);
    for (const OutlineBlock& block : FindBlocks(pane.Bytes())) {
        if (block.Line == without || !StandsFor(block.Image, image))
            continue;
        const BlockReading read = ReadBlock(lines, block.Line, ElementRecord{}, image);
        const int first = read.Element.YPos * Sheet.SheetColumns + read.Element.XPos;
        for (int tile = first; tile < qMin(all, first + read.Element.Frames); ++tile)
            used.insert(tile);
    }
    QList<QPoint> tiles;
    for (const int tile : used)
        tiles << QPoint(tile % Sheet.SheetColumns, tile / Sheet.SheetColumns);
    return tiles;
}
