#include "windows/parts/screen_reader.h"

#include "editor/make_pane.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"

#include <QWidget>

namespace {

enum Setting { Automatic, Always, Never };

/// Interfaces are made once and kept; the next question makes the pane's anew.
void ForgetInterface(EditorPane& pane)
{
    if (QAccessibleInterface* known = QAccessible::queryAccessibleInterface(WidgetOf(pane)))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
}

} // namespace

ScreenReader::ScreenReader(int setting) : automatic(setting != Always && setting != Never)
{
    SetUpAccessibility(setting == Always || (automatic && QAccessible::isActive()));
    QAccessible::installActivationObserver(this);
}

ScreenReader::~ScreenReader()
{
    QAccessible::removeActivationObserver(this);
}

void ScreenReader::accessibilityActiveChanged(bool active)
{
    if (!automatic)
        return;
    SetUpAccessibility(active);
    for (int tab = 0; Frame.Host && tab < int(Frame.Documents.size()); ++tab)
        ForgetInterface(Panes().Pane(tab));
}
