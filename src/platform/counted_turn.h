#pragma once

#include "platform/result.h"

#include <functional>

/// Called again and again by what takes time, with how much of how much is done, in units of its own. False: a stop
/// is wanted; the work then fails with Stopped and leaves all as it was. An empty one never stops.
using CountedTurn = std::function<bool(int done, int of)>;

<<<<<<< HEAD
inline QString StoppedReason()
=======
inline QString WordOfStopped()
>>>>>>> main
{
    return QStringLiteral("Stopped.");
}

inline tl::unexpected<Failure> Stopped(QString path = {})
{
<<<<<<< HEAD
    return Fail(std::move(path), StoppedReason());
=======
    return Fail(std::move(path), WordOfStopped());
>>>>>>> main
}

/// A stop needs no message: it was wanted.
inline bool WasStopped(const Failure& failure)
{
<<<<<<< HEAD
    return failure.Reason == StoppedReason();
=======
    return failure.Reason == WordOfStopped();
>>>>>>> main
}
