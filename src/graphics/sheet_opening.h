#pragma once

#include <QStringList>

/// What the window may offer for the sheet on show.
struct SheetOpening
{
    bool TooSmall = false;  ///< below one tile: nothing can be marked
    bool MayUpdate = true;  ///< the block behind the window can take the values
    bool FromBlock = false; ///< the block describes this sheet; else all values are those of a new element
};

/// Fits the block in work to the sheet on show, sets the marks and gathers `Sheet.ImageWarnings`. `animModes`: the
/// words that the game knows; a mode may join several with commas.
SheetOpening FitElementToSheet(const QStringList& animModes);
