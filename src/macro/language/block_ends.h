#pragma once

struct RunState;

// Walks from the current line to the end of its block and lands in front of it, so that the end's line runs next. They
// look at how lines begin, letter case aside, and fail at the program's end and at a block inside the block. A line's
// walk is made once.

void SkipToElseOrEndIf(RunState& run);
void SkipToNextCase(RunState& run);
void SkipToEndSub(RunState& run);
