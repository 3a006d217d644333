#include "batch/batch_host.h"

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

void BatchHost::SelectTab(int tab)
{
    Selected = tab;
}

void BatchHost::SetPanel(int panel, const QString& text, int picture)
{
    Panels.at(panel) = text;
    PanelPictures.at(panel) = picture;
}

void BatchHost::EnableCommand(const QString& control, bool menu, bool button)
{
    Commands[control] = {menu, button};
}

void BatchHost::CheckCommand(const QString& control, bool checked)
{
    Checks[control] = checked;
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
