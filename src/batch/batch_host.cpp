#include "batch/batch_host.h"

#include "frame/frame_events.h"
#include "frame/recovery/recovery.h"

BatchHost::BatchHost() = default;
BatchHost::~BatchHost() = default;

EditorPane& BatchHost::Pane(int tab)
{
    auto& pane = panes.at(tab);
    if (!pane)
        pane = MakePane();
    return *pane;
}

EditorPane& BatchHost::txtBuffer()
{
    if (!buffer)
        buffer = MakePane();
    return *buffer;
}

void BatchHost::ShowCode(const RecoveredText& code)
{
    ShownCode = code.Bytes;
}

void BatchHost::SelectTab(int tab)
{
    Selected = tab;
}

void BatchHost::Listen(FrameEvents& events)
{
    QObject::connect(&events, &FrameEvents::TabChanged, &events,
                     [this](int tab) { Faces.at(tab) = Frame.Documents.at(tab).Face; });
    QObject::connect(&events, &FrameEvents::ModeChanged, &events, [this](int mode) { Modes.push_back(mode); });
    QObject::connect(&events, &FrameEvents::CaretMoved, &events, [this](const QString& place) { CaretPlace = place; });
    QObject::connect(&events, &FrameEvents::PathChanged, &events, [this](const QString& path) { Path = path; });
    QObject::connect(&events, &FrameEvents::Noticed, &events, [this](const QString& text) { Notices << text; });
}

void BatchHost::ShowProgress(int maximum, int value)
{
    ProgressMaximum = maximum;
    ProgressValue = value;
    ProgressShown = true;
    ++ProgressCalls;
}

void BatchHost::OpenTool(ToolWindow tool)
{
    if (OnOpenTool)
        OnOpenTool(tool);
}

void BatchHost::PreviewMedia(const MediaRequest& request)
{
    if (OnPreview)
        OnPreview(request);
}
