#pragma once

#include <optional>

class DocumentText;

/// The nearest line from `caretLine` up that names a tile sheet, at most `reach` lines above; comment lines count.
std::optional<int> FindMainLine(const DocumentText& pane, int caretLine, int reach);

/// First line behind the block that begins at `mainLine`: the first that does not start with its key. May be the
/// line count. A main line without a key is a block of its own.
int EndOfBlock(const DocumentText& pane, int mainLine);

/// "Select Element Block": the block around the caret of the current pane; nothing if there is none.
void SelectElementBlock();
