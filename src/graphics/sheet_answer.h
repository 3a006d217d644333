#pragma once

#include "graphics/sheet_request.h"

class DocumentText;

/// Writes what a sheet was left with into the text that the request came from, as one undo step: its block updated,
/// or a new block above the caret's line, or behind the block that the line belongs to. Or goes to a line there.
void WriteSheetAnswer(DocumentText& text, const SheetRequest& request, const SheetAnswer& answer);
