#pragma once

#include "conf/line_reader.h"
#include "frame/media/sheet_endings.h"

#include <QByteArrayView>
#include <QList>
#include <QPoint>

/// The sheet whose use is asked for.
struct SheetUse
{
    QString Image; ///< its name in a text, letter case ignored
    int Columns = 0, Rows = 0;
    int Without = -1; ///< main line of a block that is left out
    SheetEndings Endings;
};

/// Tiles (column, row) of the sheet that the blocks of a text use, each once. `text` and `lines` are the same text.
QList<QPoint> TilesInUse(QByteArrayView text, const LineReader& lines, const SheetUse& sheet);
