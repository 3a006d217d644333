#include "conf/check_for_errors.h"

#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"

CheckContext CurrentCheckContext()
{
    CheckContext context;
    context.LookForImages = Frame.CurrentMode == ModeGfx;
    context.SheetKinds = Frame.Settings.SheetKinds;
    if (!context.LookForImages)
        return context;
    for (const MediaListModel* list : {&Lists().Base, &Lists().Extra, &Lists().Rnd})
        for (int row = 0; row < list->rowCount(); ++row)
            context.Images.insert(list->Name(row).toLower());
    return context;
}

void CheckForErrors()
{
    DocumentText& pane = CurrentPane();
    const int lines = pane.LineCount();
    Busy().ShowProgress(lines + 1, 0);
    const auto found = FirstBadLine(pane.Bytes(), CurrentCheckContext(), ThrottledProgress(lines + 1));
    Busy().HideProgress();
    if (found) {
        pane.ExecuteCmd(CmdGotoLine, found->Line);
        ShowMessage(121, found->Messages.join(QLatin1Char('^')) + QLatin1Char('^'));
    } else {
        ShowMessage(120);
    }
    Panes().FocusPane();
}
