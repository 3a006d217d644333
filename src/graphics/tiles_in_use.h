#pragma once

#include "conf/line_reader.h"
#include "frame/media/sheet_endings.h"

#include <QByteArrayView>
#include <QPoint>
#include <QString>
#include <vector>

/// The sheet whose use is asked for.
struct SheetUse
{
    QString Image; ///< its name in a text, letter case ignored
    int Columns = 0, Rows = 0;
    int Without = -1; ///< main line of a block that is left out
    SheetEndings Endings;
};

/// A block that uses a tile.
struct TileUser
{
    QString Key;
    int Line = 0; ///< its main line

    bool operator==(const TileUser&) const = default;
};

struct UsedTile
{
    QPoint Tile; ///< column and row
    std::vector<TileUser> Users;
};

/// Tiles of the sheet that the blocks of a text use, row by row, each once. `text` and `lines` are the same text.
std::vector<UsedTile> TilesInUse(QByteArrayView text, const LineReader& lines, const SheetUse& sheet);
