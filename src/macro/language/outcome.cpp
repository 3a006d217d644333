#include "macro/language/outcome.h"

#include "frame/frame_events.h"
#include "macro/language/run_state.h"
#include "platform/processes/counted_turn.h"

void TellFailure(RunState& run, const Failure& why, const QString& words)
{
    if (WasStopped(why))
        return;
    ShowNotice(why.Text().replace(QLatin1String("^^"), QLatin1String(": ")).replace(u'^', u' '));
    run.Fail(words);
}
