#pragma once

#include "level/level_record.h"

#include <QByteArray>
#include <QList>

/// What a level file made by a test holds. Bytes that are no field are noise, so that none may get lost unseen.
struct LevelPlan
{
    QByteArray Form = "rnd1-2"; ///< "1.0", "1.2 BODY", "1.2 AUTH", "1.4", "rnd1-2", "rnd1-3"
    int Width = 5, Height = 4;
    int Time = 100, Count = 12;
    QByteArray Name = "a cave", Author = "somebody";
    bool Wide = true; ///< two bytes a cell, where the form leaves the choice
    QByteArray Tail = {};
};

struct BuiltLevel
{
    QByteArray Bytes;
    LevelOffsets At; ///< where the builder put each field; NoField where there is none
};

BuiltLevel BuildLevel(const LevelPlan& plan);

/// The cell that a built level has at x, y.
int CellOf(const LevelPlan& plan, int x, int y);
bool IsWide(const LevelPlan& plan);

/// The offset table, written down a second time.
LevelOffsets KnownOffsets(const QString& section);

/// A plan of every form.
QList<LevelPlan> EveryForm();

/// A chunk as it stands after a map.
QByteArray ChunkBytes(const QByteArray& name, qsizetype size);
