#include "windows/parts/close_guard.h"

#include "frame/frame_state.h"
#include "frame/messages/messages.h"
#include "frame/recovery/recovery.h"
#include "frame/run_scope.h"
#include "frame/settings/settings.h"
#include "platform/processes/processes.h"
#include "windows/parts/dialog_help.h"

#include <QCoreApplication>

Result<> KeepEverything()
{
    SaveHistories();
    return Frame.Keeper ? Frame.Keeper->KeepAllNow() : Result<>();
}

bool MayClose()
{
    const Result<> kept = KeepEverything();
    return kept || Confirmed(message::TextNotKept, kept.error().Text());
}

void EndWork()
{
    // The copies come first: whoever sent the signal may not wait for the rest.
    // If they fail there is nobody left to ask.
    if (Frame.Keeper)
        static_cast<void>(Frame.Keeper->KeepAllNow());
    Frame.Ending = true;
    StopRuns(StopReason::Close);
    processes::StopWaiting();
    CloseModalWindows();
    QCoreApplication::exit(0);
}
