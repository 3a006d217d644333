#include "macro/language/seen_target.h"

#include "macro/language/run_state.h"
#include "macro/language/windows_of_run.h"
#include "macro/run_stage.h"
#include "macro/started_windows.h"

SeenTarget::SeenTarget(RunState& ofRun) : run(ofRun)
{
    StartedWindows.LetDown();
    run.Stage.ShowTarget(true);
}

SeenTarget::~SeenTarget()
{
    run.Stage.ShowTarget(false);
    if (IsWindowAlive(run))
        RaiseWindow(run);
}
