#pragma once

#include "conf/element_record.h"

#include <QStringList>

struct ValueColumn;

/// Fields of a new block in the order of the quick element settings; the last stands for the three EDITOR lines.
constexpr std::array<const char*, 10> QuickFieldNames = {"xpos",        "ypos", "frames",      "delay",  "anim_mode",
                                                         "start_frame", "name", "global_sync", "offset", "EDITOR X3"};
using BlockFields = std::array<int, QuickFieldNames.size()>; ///< 1: wanted

/// Told to WriteElementBlock by a caller that has begun the undo step itself.
constexpr int CallersUndoGroup = -999;

/// The key that a selected text stands for: no blanks, without "." or ":" at its ends.
QString KeyFromSelection(const QString& selected);

/// The lines of a new block. The main line is always there; a start frame of -1 never.
QStringList NewBlockLines(const QString& key, const ElementRecord& record, const BlockFields& fields,
                          const ValueColumn& column);

/// Puts a block of Conf.Element in the place of the line whose key is selected: every field if `full`, else those of
/// QuickElementTemplate. Ends the undo step, its caller's too. Message 1, and nothing changes, without a key.
void WriteElementBlock(bool full, int undoMark);

/// "Quick Element".
void QuickElement();
