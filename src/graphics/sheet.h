#pragma once

#include <QImage>
#include <QPoint>
#include <QString>
#include <optional>

constexpr int TileSize = 32; ///< pixels, in both directions; the game's own

/// The tile sheet on show and the marks on it. Tiles are numbered from 0, row by row, so that an animation that runs
/// past the right edge goes on in the next row. The block in work is `Conf.Element`.
struct SheetState
{
    QImage Picture;
    int SheetWidth = 0, SheetHeight = 0;       ///< pixels
    int SheetColumns = 0, SheetRows = 0;       ///< whole tiles
    int EndColumn = 0, EndRow = 0;             ///< result of GetEndFrame
    int EndIndex = -1;                         ///< tile of the end mark; -1: there is none
    std::optional<QPoint> Start, End, InStart; ///< tiles (column, row) of the marks on show
    QString ImageWarnings;                     ///< each ends with two line breaks
    bool Reading = false;                      ///< the picture of the next one is waited for
};
extern SheetState Sheet;
void ResetSheet();

/// Takes a picture as the sheet on show; no marks, no warnings.
void ShowSheet(const QImage& picture);

/// The same sheet, painted anew outside: the marks stay.
void ReplacePicture(const QImage& picture);

/// Number of the first tile of the block in work.
int BaseTile();

/// Puts the place of tile BaseTile() + count - 1 into EndColumn and EndRow. Without whole columns EndRow stays.
void GetEndFrame(int count);
