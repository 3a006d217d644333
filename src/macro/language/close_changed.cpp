#include "macro/language/close_changed.h"

#include "frame/messages/messages.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "text/document_text.h"

bool ConfirmCloseChanged(RunState& run)
{
    if (run.TestRun || !run.Text().Modified())
        return true;
    run.Stage.ShowTarget(true);
    const bool mayGo = Confirmed(message::CloseChanged);
    run.Stage.ShowTarget(false);
    if (!mayGo)
        run.Fail("BASIC Stopped because the User didn't want to close their changed file.");
    return mayGo;
}
