#include "frame/documents/documents.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "platform/files/paths.h"

#include <QTimer>
#include <utility>

namespace {

constexpr int FlashPhases = 8;
constexpr int FlashIdle = -1;

void SetTabEnabled(int tab, bool enabled)
{
    Frame.Documents.at(tab).Face.Enabled = enabled;
    ShowTab(tab);
}

void TickLater()
{
    QTimer::singleShot(200, [] {
        if (FlashTick())
            TickLater();
    });
}

} // namespace

bool HasFile(const Document& document)
{
    return document.Face.Caption != EmptyCaption && !document.Path.isEmpty();
}

int TabWithFile(const QString& path)
{
    const QString wanted = paths::Canonical(path);
    for (int tab = 0; tab < 8; ++tab) {
        const Document& document = Frame.Documents.at(tab);
        if (HasFile(document) && paths::Canonical(document.Path) == wanted)
            return tab;
    }
    return -1;
}

int ModifiedTabs()
{
    int count = 0;
    for (int tab = 0; tab < 8; ++tab)
        if (Frame.Documents.at(tab).Face.Visible && Panes().Pane(tab).Modified())
            ++count;
    return count;
}

void FlashTabCaption(int tab)
{
    if (Frame.FlashCount != FlashIdle && Frame.FlashTab != tab)
        SetTabEnabled(Frame.FlashTab, true);
    Frame.FlashTab = tab;
    if (!std::exchange(Frame.Flashing, true))
        TickLater();
}

bool FlashTick()
{
    if (!Frame.Flashing)
        return false;
    SetTabEnabled(Frame.FlashTab, Frame.FlashCount % 2 != 0);
    ++Frame.FlashCount;
    if (Frame.FlashCount < FlashPhases)
        return true;
    Frame.FlashCount = FlashIdle;
    Frame.Flashing = false;
    SetTabEnabled(Frame.FlashTab, true);
    return false;
}
