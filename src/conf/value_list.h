#pragma once

#include "frame/editor_pane.h"

/// Values for the code list: files, true and false, modes and elements, by what the key in front of the colon takes.

/// What may stand in `line`, number `number` of a text, where the caret is behind `column` characters of it. Nothing in
/// a key, in a note and where no value is known. The ticks for the code list hold here too: those of elements and of
/// graphic commands for what takes them, any for files.
OfferedValues ValuesAt(const QString& line, int number, int column);

/// The same at the caret of a pane.
OfferedValues ValuesAtCaret(EditorPane& pane);
