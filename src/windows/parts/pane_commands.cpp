#include "windows/parts/pane_commands.h"

#include "frame/frame_events.h"
#include "frame/host_ports.h"

void SearchPane(int command)
{
    EditorPane& pane = CurrentPane();
    if (pane.FindText().isEmpty()) {
        pane.ExecuteCmd(CmdFindDialog);
        return;
    }
    if (pane.ExecuteCmd(command)) {
        ShowNotice({});
        return;
    }
    const QString broken = pane.FindError();
    ShowNotice(broken.isEmpty() ? QStringLiteral("Not found: ") + pane.FindText() : broken);
}

void SearchFor(const QString& text)
{
    if (!text.isEmpty()) {
        CurrentPane().ExecuteCmd(CmdSetFindText, text);
        for (int tab = 0; tab < int(Frame.Documents.size()); ++tab)
            Panes().Pane(tab).SetFindText(text); // F3 goes on with it in every tab
        SearchPane(CmdFindNext);
    }
    Panes().FocusPane();
}
