#include "macro/language/close_changed.h"

#include "frame/messages/messages.h"
#include "macro/language/run_state.h"
#include "macro/language/seen_target.h"
#include "text/document_text.h"

bool ConfirmCloseChanged(RunState& run)
{
    if (run.TestRun || !run.Text().Modified())
        return true;
    const SeenTarget seen(run);
    const bool mayGo = Confirmed(message::CloseChanged);
    if (!mayGo)
        run.Fail("BASIC Stopped because the User didn't want to close their changed file.");
    return mayGo;
}
