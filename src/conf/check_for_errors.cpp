#include "conf/check_for_errors.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_lists.h"
#include "frame/run_scope.h"

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
    RunScope run(RunKind::Pass, QStringLiteral("Check For Errors"));
    Busy().ShowProgress(lines + 1, 0);
    const auto found = FirstBadLine(pane.Bytes(), CurrentCheckContext(), ThrottledProgress(lines + 1, run));
    Busy().HideProgress();
    if (run.Stopped()) {
        ShowNotice(QStringLiteral("Check For Errors was stopped"));
        return Panes().FocusPane();
    }
    if (found) {
        pane.ExecuteCmd(CmdGotoLine, found->Line);
        ShowMessage(message::ConfErrors, found->Messages.join(QLatin1Char('^')) + QLatin1Char('^'));
    } else {
        ShowMessage(message::NoConfErrors);
    }
    Panes().FocusPane();
}
