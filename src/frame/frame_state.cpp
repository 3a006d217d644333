#include "frame/frame_state.h"

FrameState Frame;

void ResetFrame()
{
    HostWindow* host = Frame.Host;
    Asker* asker = Frame.Ask;
    Frame = FrameState{};
    Frame.Host = host;
    Frame.Ask = asker;
}

void InstallHost(HostWindow& host, Asker& asker)
{
    Frame.Host = &host;
    Frame.Ask = &asker;
}

HostWindow& Host()
{
    Q_ASSERT(Frame.Host);
    return *Frame.Host;
}
