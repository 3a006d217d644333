#pragma once

#include "platform/result.h"
#include "sets/new_set.h"

#include <QByteArray>
#include <QStringList>
#include <functional>

/// What the game prints for a dump command (1 to 6). A stop ends the making; any other failure leaves that text out.
using DumpSource = std::function<Result<QByteArray>(int dumpIndex)>;

/// By the game in use, as LaunchGame runs it.
Result<QByteArray> DumpOfGame(int dumpIndex);

struct MadeSet
{
    QString Folder;         ///< without "/" at the end
    QStringList NotPrinted; ///< files that lack what the game was to print, in their order
};

/// Makes the folders and files of a set. They are made beside and take their place when all are there; a failure leaves
/// nothing. Fails if something of that name stands there. Whether everything is filled in is the caller's to see.
[[nodiscard]] Result<MadeSet> MakeSet(const NewSet& set, const DumpSource& dump);
