#pragma once

#include "macro/language/run_state.h"
#include "macro/run_stage.h"

/// The target stands before the user's eyes for the scope.
class SeenTarget
{
public:
    explicit SeenTarget(RunState& run) : stage(run.Stage) { stage.ShowTarget(true); }
    ~SeenTarget() { stage.ShowTarget(false); }
    SeenTarget(const SeenTarget&) = delete;
    SeenTarget& operator=(const SeenTarget&) = delete;

private:
    RunStage& stage;
};
