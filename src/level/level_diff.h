#pragma once

#include "level/level_files.h"

#include <QStringList>

/// The fields of a level by the names that people and scripts use, in their order.
QList<std::pair<QString, QString>> FieldsOf(const LevelRecord& level);

/// What tells two levels apart: "FIELD: OLD -> NEW", then "X,Y: OLD -> NEW" for cells that both maps have, counted from
/// 1. "settings" are header bytes that are no field, "customs" what stands after the map.
QStringList LevelDifferences(const LevelFile& before, const LevelFile& after);
