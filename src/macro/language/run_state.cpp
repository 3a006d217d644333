#include "macro/language/run_state.h"

#include "frame/frame_state.h"
#include "macro/run_stage.h"
#include "platform/files/byte_file.h"

RunState::RunState(RunStage& stage, RunScope& scope)
    : Stage(stage), Scope(scope), SafeSystem(Frame.Settings.SafeSystemBASIC != 0), target(&stage.Target())
{
}

RunState::~RunState() = default;

ElementRecord RunState::NoElement()
{
    ElementRecord none;
    none.ImageFile.clear();
    none.ElementName.clear();
    none.Frames = none.Delay = 0;
    return none;
}
