#pragma once

#include "level/level_record.h"
#include "platform/result.h"

#include <QByteArrayView>
#include <functional>

/// One section of the offset table. A section that does not exist has Mapdata 0.
using OffsetTable = std::function<LevelOffsets(const QString& section)>;

/// How one file is laid out.
struct LevelLayout
{
    LevelOffsets Offsets;
    QString Form;
    LevelFamily Family = LevelFamily::Classic;
};

/// The characters at the file's start up to a byte below 32, at most 37.
QString LeadingText(QByteArrayView bytes);

/// Do four characters of the file stand at `at`? `at` may lie outside.
bool HasMark(QByteArrayView bytes, qsizetype at, const char* name);

/// The row of the table for a file: that of its leading text, else that of the text and " AUTH" (a second layout of one
/// form). A row with Mapsize is one of chunks, and counts only if HEAD, AUTH and BODY stand where it has them. A file
/// that begins RND1 and fits no row is laid out by its chunks. Failure: the reason, no path.
[[nodiscard]] Result<LevelLayout> FindLayout(QByteArrayView bytes, const OffsetTable& table);

/// File version 3: offsets from a walk through the chunks in front of the map. There is no flag Double, the map always
/// has two bytes a cell.
[[nodiscard]] Result<LevelLayout> RecordLayout(QByteArrayView bytes);
