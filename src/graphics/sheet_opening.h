#pragma once

#include "graphics/sheet_request.h"

#include <QStringList>

class DocumentText;

/// What the window may offer for the sheet on show.
struct SheetOpening
{
    bool TooSmall = false;  ///< below one tile: nothing can be marked
    bool MayUpdate = true;  ///< the block of the request can take the values
    bool FromBlock = false; ///< the block describes this sheet; else all values are those of a new element
};

/// Makes `Conf.Element` what a request is about: in a graphics text the block at its place.
void TakeElement(const SheetRequest& request, const DocumentText& text);

/// Fits the block in work to the sheet on show, sets the marks and gathers `Sheet.ImageWarnings`. `animModes`: the
/// words that the game knows; a mode may join several with commas.
SheetOpening FitElementToSheet(const SheetRequest& request, const QStringList& animModes);
