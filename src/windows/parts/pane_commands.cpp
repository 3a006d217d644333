#include "windows/parts/pane_commands.h"

void SearchPane(int command)
{
    EditorPane& pane = CurrentPane();
    if (pane.FindText().isEmpty()) {
        pane.ExecuteCmd(CmdFindDialog);
        return;
    }
    if (pane.ExecuteCmd(command)) {
        Host().ShowNotice({});
        return;
    }
    const QString broken = pane.FindError();
    Host().ShowNotice(broken.isEmpty() ? QStringLiteral("Not found: ") + pane.FindText() : broken);
}

void SearchFor(const QString& text)
{
    if (!text.isEmpty()) {
        CurrentPane().ExecuteCmd(CmdSetFindText, text);
        SearchPane(CmdFindNext);
    }
    Host().FocusPane();
}
