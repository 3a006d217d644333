#pragma once

struct RunState;

/// The target stands before the user's eyes for the scope, and no window of another program above what we ask.
class SeenTarget
{
public:
    explicit SeenTarget(RunState& run);
    ~SeenTarget();
    SeenTarget(const SeenTarget&) = delete;
    SeenTarget& operator=(const SeenTarget&) = delete;

private:
    RunState& run;
};
