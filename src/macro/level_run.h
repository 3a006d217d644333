#pragma once

#include "level/level_box.h"

#include <vector>

class Group;

/// What limits the cells that a level command works on, as a macro has written it.
struct LevelCondition
{
    bool Unequal = false;
    qint32 Value = NoValue;
    const Group* Of = nullptr; ///< the items of a group; null: Value alone

    static constexpr qint32 NoValue = -1; ///< no condition
};

/// A test of a neighbour's cell, for levreplace.
struct LevelNeighbourTest
{
    qint32 Dx = 0, Dy = 0;
    LevelCondition Condition;
};

/// What the level commands of a run share, beside the level itself.
struct LevelRun
{
    LevelBox Box{0, 0, 0, 0};
    int ReplaceFrequency = 100; ///< percent
    std::vector<LevelNeighbourTest> ReplaceTests;
    qint32 LastLevelCount = 0;

    static constexpr size_t MostTests = 1000;
};
