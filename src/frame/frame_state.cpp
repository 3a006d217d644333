#include "frame/frame_state.h"

#include "frame/frame_events.h"
#include "frame/host_ports.h"

FrameState Frame;

void ResetFrame()
{
    HostWindow* host = Frame.Host;
    Asker* asker = Frame.Ask;
    const std::shared_ptr<FrameEvents> events = Frame.Events;
    const LookForm desktop = Frame.DesktopForm;
    Frame = FrameState{};
    Frame.DesktopForm = desktop;
    Frame.Host = host;
    Frame.Ask = asker;
    Frame.Events = events;
}

void InstallHost(HostWindow& host, Asker& asker)
{
    Frame.Host = &host;
    Frame.Ask = &asker;
    Frame.Events = std::make_shared<FrameEvents>();
    host.Listen(*Frame.Events);
}

FrameEvents& Events()
{
    if (!Frame.Events)
        Frame.Events = std::make_shared<FrameEvents>();
    return *Frame.Events;
}

void ShowNotice(const QString& text)
{
    emit Events().Noticed(text);
}

EditorPane& CurrentPane()
{
    return Panes().Pane(Frame.CurrentTab);
}

PanePort& Panes()
{
    Q_ASSERT(Frame.Host);
    return *Frame.Host;
}

BusyPort& Busy()
{
    Q_ASSERT(Frame.Host);
    return *Frame.Host;
}

ToolPort& Tools()
{
    Q_ASSERT(Frame.Host);
    return *Frame.Host;
}
