#pragma once

#include "platform/files/file_steps.h"

#include <memory>
#include <unistd.h>

/// Puts `before` in front of every call of a table: what it gives back other than 0 is the error the call fails with.
template <class Before>
FileSteps Hooked(FileSteps steps, Before before)
{
    const auto hook = [&]<class R, class... A>(std::function<R(A...)>& step) {
        step = [inner = std::move(step), before](A... arguments) -> R {
            if (const int error = before()) {
                errno = error;
                return R(-1);
            }
            return inner(arguments...);
        };
    };
    steps.ForEach(hook);
    return steps;
}

/// Counts the calls; the `nth` (from 1) fails with `error`. The error -1 ends the process there.
inline FileSteps FailingAt(FileSteps steps, int nth, int error, const std::shared_ptr<int>& count)
{
    return Hooked(std::move(steps), [=] {
        if (++*count != nth)
            return 0;
        if (error == -1)
            _exit(0);
        return error;
    });
}
