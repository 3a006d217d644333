#include "windows/close_guard.h"

#include "frame/frame_state.h"
#include "frame/recovery.h"
#include "frame/settings.h"
#include "platform/processes.h"
#include "windows/dialog_help.h"

#include <QCoreApplication>

void KeepEverything()
{
    if (Frame.Keeper)
        Frame.Keeper->KeepAllNow();
    SaveHistories();
}

void EndWork()
{
    // The copies come first: whoever sent the signal may not wait for the rest.
    if (Frame.Keeper)
        Frame.Keeper->KeepAllNow();
    Frame.StopRequested = true;
    processes::StopWaiting();
    CloseModalWindows();
    QCoreApplication::exit(0);
}
