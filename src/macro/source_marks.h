#pragma once

#include "frame/editor_pane.h"

/// What a look at a macro's source tells of its lines before it runs: words and tags that are none, arguments too few
/// or too many, variables that no `dim` makes, jumps to labels that are not there, blocks that do not end. In the order
/// of the lines. What a run would fail for is said in its own words; of what only looks wrong the mark is not strong.
std::vector<LineMark> MarksOfSource(const QStringList& typed);
