#pragma once

#include "platform/result.h"

#include <functional>

/// Called again and again by what takes time, with how much of how much is done, in units of its own. False: a stop
/// is wanted; the work then fails with Stopped and leaves all as it was. An empty one never stops.
using CountedTurn = std::function<bool(int done, int of)>;

inline QString WordOfStopped()
{
    return QStringLiteral("Stopped.");
}

inline tl::unexpected<Failure> Stopped(QString path = {})
{
    return Fail(std::move(path), WordOfStopped());
}

/// A stop needs no message: it was wanted.
inline bool WasStopped(const Failure& failure)
{
    return failure.Reason == WordOfStopped();
}
