#include "windows/find/find_dialogs.h"

#include "windows/find/find_dialog.h"
#include "windows/find/goto_dialog.h"

#include <QWidget>

namespace {

/// The owner's dialog of this class, made when it is first wanted.
template <class Dialog>
Dialog& DialogOf(QWidget* owner)
{
    if (auto* dialog = owner->findChild<Dialog*>(QString(), Qt::FindDirectChildrenOnly))
        return *dialog;
    return *new Dialog(owner);
}

} // namespace

void ShowFindDialog(QWidget* owner, EditorPane& pane, FindKind kind)
{
    QWidget* window = owner->window();
    if (kind == FindKind::GotoLine)
        DialogOf<GotoDialog>(window).Open(pane);
    else
        DialogOf<FindDialog>(window).Open(pane, kind);
}
