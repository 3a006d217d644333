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
    QImage AsShown;                            ///< the same as the game shows it: what it takes for see-through is so
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

/// The same sheet, painted anew outside: first tile and frames stay, and the other marks follow them where the sheet
/// has become wider or narrower.
void ReplacePicture(const QImage& picture);

/// Number of the first tile of the block in work.
int BaseTile();

/// Tiles of the run that is marked, from its first one.
struct TileRun
{
    int First = 0, Count = 0;

    bool operator==(const TileRun&) const = default;
};
/// Nothing without a mark on the first tile.
std::optional<TileRun> MarkedRun();

/// Puts the place of tile BaseTile() + count - 1 into EndColumn and EndRow. Without whole columns EndRow stays.
void GetEndFrame(int count);
