#include "windows/main/frmmain.h"

#include "editor/make_pane.h"
#include "frame/documents/documents.h"
#include "frame/frame_state.h"
#include "windows/about/frm_about.h"
#include "windows/blocks/frm_inject.h"
#include "windows/files/frm_project.h"
#include "windows/find/find_dialogs.h"
#include "windows/lists/block_list.h"
#include "windows/lists/comment_tree.h"
#include "windows/lists/recent_popup.h"
#include "windows/main/status_panels.h"
#include "windows/main/tab_strip.h"

#include <QApplication>
#include <QStackedWidget>

// What the rooms below ask of their host.

void frmmain::SetTab(int tab, const TabFace& face)
{
    strip->SetTab(tab, face);
}

void frmmain::SelectTab(int tab)
{
    strip->Select(tab);
}

int frmmain::SelectedTab() const
{
    return strip->Selected();
}

void frmmain::SetPanel(int panel, const QString& text, int picture)
{
    panels->SetPanel(panel, text, picture);
}

void frmmain::ShowNotice(const QString& text)
{
    panels->ShowNotice(text);
}

void frmmain::EnableCommand(const QString& control, bool menu, bool button)
{
    const bool opens = !commands.Opens(control) || CanPreview(Frame.CurrentMode);
    commands.Show(control, opens || !menu);
    commands.Enable(control, menu && opens, button && opens);
}

void frmmain::CheckCommand(const QString& control, bool checked)
{
    commands.Check(control, checked);
}

void frmmain::ShowProgress(int maximum, int value)
{
    panels->ShowProgress(maximum, value);
}

void frmmain::HideProgress()
{
    panels->HideProgress();
}

void frmmain::SetEnabled(bool enabled)
{
    setEnabled(enabled);
}

void frmmain::FocusPane()
{
    CurrentPane().FocusPane();
}

void frmmain::BusyPointer(bool busy)
{
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void frmmain::LoadCoolbar()
{
    bars.Load(Frame.Settings.Bands);
}

void frmmain::OpenTool(ToolWindow tool)
{
    if (tool == ToolWindow::Project)
        RunProjectWindow(this);
    if (tool == ToolWindow::About)
        frmAbout::Run({[this](const QByteArray& tune) { PlayModule(tune); }, [this] { StopPlayers(); }}, this);
    if (tool == ToolWindow::Inject)
        RunInjectWindow(this);
}

void frmmain::ShowRecent()
{
    HideLists();
    recent->OpenOver(stack->geometry());
}

void frmmain::ShowComments()
{
    HideLists();
    comments->OpenOver(stack->geometry());
}

void frmmain::ShowBlocks()
{
    HideLists();
    blocks->OpenOver(stack->geometry());
}

void frmmain::CloseLists()
{
    HideLists();
    FocusPane();
}

void frmmain::RecentChanged()
{
    if (recent->isVisible())
        recent->Fill();
}

bool frmmain::Turn()
{
    QApplication::processEvents();
    return !Frame.StopRequested;
}
