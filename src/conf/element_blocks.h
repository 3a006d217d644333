#pragma once

#include "conf/line_reader.h"
#include "frame/media/sheet_endings.h"
#include "text/places.h"

/// Do the main lines of sub groups count in a search?
enum class GroupRule {
    Count,
    FromWithin ///< only if the search begins in a sub group
};

/// What counts as a main line, and how far up one is searched for.
struct MainLineSearch
{
    SheetEndings Endings;
    int Reach = 0; ///< lines above the first that are looked at
    GroupRule Groups = GroupRule::Count;
};

/// The nearest line from `from` up that names a tile sheet; comment lines count.
std::optional<int> FindMainLine(const LineReader& lines, int from, const MainLineSearch& search);

/// First line after the block that begins at `mainLine`: the first that does not start with its key. May be the
/// line count. A main line without a key is a block of its own.
int EndOfBlock(const LineReader& lines, int mainLine);

/// The block that holds the caret, one that is commented out too; nothing outside of one and in other modes than
/// graphics. It is the one that the margin marks, without a block whose key only begins alike.
std::optional<LineSpan> BlockAtCaret(const DocumentText& pane);

/// "Select Element Block": the block around the caret of the current pane; nothing if there is none.
void SelectElementBlock();
