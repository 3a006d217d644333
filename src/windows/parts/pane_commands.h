#pragma once

#include "frame/documents/documents.h"
#include "frame/editor_pane.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"

#include <QVariant>

/// Runs numbered commands on the current pane, one after the other.
template <int... Commands>
void RunOnPane()
{
    EditorPane& pane = CurrentPane();
    (pane.ExecuteCmd(Commands), ...);
}

/// The same on what is selected; without a selection nothing happens but a notice.
template <int... Commands>
void RunOnSelection()
{
    if (CurrentPane().SelLength() == 0)
        ShowNotice(QStringLiteral("Nothing is selected"));
    else
        RunOnPane<Commands...>();
}

/// As RunOnPane, then the pane has the focus.
template <int... Commands>
void RunAndFocus()
{
    RunOnPane<Commands...>();
    Panes().FocusPane();
}

/// Find next (176) or previous (174) on the current pane. A search without a hit or with a broken expression is told
/// in the status bar.
void SearchPane(int command);

template <int Command>
void SearchAgain()
{
    SearchPane(Command);
}

/// Searches forward for `text` as the find box does: it becomes the search text, the pane has the focus afterwards.
void SearchFor(const QString& text);
