#pragma once

#include "level/level_record.h"

#include <QStringList>

/// A value of levelheader.ini; a stored "NA" comes back as "-999".
QString ReadLevelHeader(const QString& section, const QString& key);

/// A section of levelheader.ini as offsets; what is missing is 0. The OffsetTable of the program.
LevelOffsets ReadLevelOffsets(const QString& section);

/// The family of the chunks after a map, by the name of the first one.
LevelFamily FamilyOfTail(QByteArrayView tail);

/// What the first chunk of a custom element file for a level of this family may be called; a name of three characters
/// stands for all that begin so.
QStringList CustomMarks(LevelFamily family);
