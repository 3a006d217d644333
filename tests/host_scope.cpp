#include "host_scope.h"

#include "frame/frame_state.h"

HostScope::HostScope()
{
    ResetFrame();
    InstallHost(Host, Answers);
}

HostScope::~HostScope()
{
    ResetFrame();
    Frame.Host = nullptr;
    Frame.Ask = nullptr;
}
