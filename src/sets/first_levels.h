#pragma once

#include "level/level_map.h"

#include <QString>
#include <vector>

struct SetNode;

/// A level as its game holds it, in the folder or zipped.
struct FirstLevel
{
    QString File; ///< name of its file
    QString Name;
    LevelMap Map;
};

/// The first levels of a game, in the order people count them, `most` of them. What cannot be read is passed over.
std::vector<FirstLevel> FirstLevelsOf(const SetNode& node, size_t most);
