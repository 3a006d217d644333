#pragma once

#include "conf/block_commands.h"

#include <QStringList>

class DocumentText;
struct ValueColumn;

using QuickFlags = std::array<int, QuickFields.size()>; ///< in the order of QuickFields; 1: wanted

/// Given to WriteElementBlock by a caller that has begun the undo step itself.
constexpr int CallersUndoGroup = -999;

/// The key that a selected text stands for: no blanks, without "." or ":" at its ends.
QString KeyFromSelection(const QString& selected);

/// The lines of a new block. The main line is always there; a start frame of -1 never, nor an offset of 0, which would
/// show the first frame for ever.
QStringList NewBlockLines(const QString& key, const ElementRecord& record, const QuickFlags& fields,
                          const ValueColumn& column);

/// Puts a block of `record` in the place of the line whose key is selected: every field if `full`, else those of
/// QuickElementTemplate. One undo step, or
/// part of its caller's. Message 1, and nothing changes, without a key.
void WriteElementBlock(DocumentText& pane, const ElementRecord& record, bool full, int undoMark);

/// "Quick Element": a block of the element last in work, in the current pane.
void QuickElement();
