#pragma once

/// "Edit Element": selects the block around the caret, notes in Conf which commands it has, puts its text into
/// txtBuffer and opens the inject window on it; returns when that has closed. All of it is one undo step. Nothing
/// happens without a main line within 100 lines; message 34 for one without a colon, message 29 for the sub groups
/// EDITOR and PREVIEW.
void EditElement();
