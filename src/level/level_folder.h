#pragma once

#include "platform/result.h"

#include <QStringList>

/// Names of the level files of a folder, in the order people count them. Failure: the folder cannot be read.
[[nodiscard]] Result<QStringList> LevelsIn(const QString& folder);

/// The number that a level's file name gives, without zeros in front; the name without its ending if it gives none.
QString LevelNumber(const QString& fileName);
