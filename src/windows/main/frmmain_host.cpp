#include "windows/main/frmmain.h"

#include "editor/make_pane.h"
#include "frame/documents/documents.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/messages/messages.h"
#include "frame/recovery/recovery.h"
#include "windows/about/frm_about.h"
#include "windows/files/frm_project.h"
#include "windows/find/find_dialogs.h"
#include "windows/game/frm_games.h"
#include "windows/game/words_panel.h"
#include "windows/images/frm_avi2bmp.h"
#include "windows/images/frm_pcx_lab.h"
#include "windows/levels/frm_make_preview.h"
#include "windows/lists/block_list.h"
#include "windows/lists/comment_tree.h"
#include "windows/lists/marks_panel.h"
#include "windows/lists/recent_popup.h"
#include "windows/macro/frm_macro_edit.h"
#include "windows/macro/macro_buttons.h"
#include "windows/main/command_keys.h"
#include "windows/main/dropped_files.h"
#include "windows/main/macro_recording.h"
#include "windows/main/status_panels.h"
#include "windows/main/tab_strip.h"
#include "windows/main/waiting_tools.h"
#include "windows/options/frm_options.h"
#include "windows/parts/window_position.h"
#include "windows/sets/frm_lvl_manager.h"
#include "windows/sets/frm_wizard.h"

#include <QApplication>
#include <QMenuBar>
#include <QStackedWidget>

// What the rooms below ask of their host.

void frmmain::SelectTab(int tab)
{
    strip->Select(tab);
}

int frmmain::SelectedTab() const
{
    return strip->Selected();
}

void frmmain::Listen(FrameEvents& events)
{
    connect(&events, &FrameEvents::TabChanged, this,
            [this](int tab) { strip->SetTab(tab, Frame.Documents.at(tab).Face); });
    connect(&events, &FrameEvents::ModeChanged, this, &frmmain::ModeChanged);
    connect(&events, &FrameEvents::CaretMoved, this, [this](const QString& place) { panels->SetPanel(2, place, 0); });
    connect(&events, &FrameEvents::PathChanged, this, [this](const QString& path) {
        panels->SetUnsaved(Pane(Frame.CurrentTab).Modified());
        panels->SetPanel(3, path, 0);
    });
    connect(&events, &FrameEvents::Noticed, panels, &StatusPanels::ShowNotice);
    connect(&events, &FrameEvents::ViewSettingChanged, this, &frmmain::UpdateCommands);
    connect(&events, &FrameEvents::MenuStripsChanged, this, [this](bool on) { menus.ShowStrips(on); });
    connect(&events, &FrameEvents::ToolBarsLoaded, this, [this] { bars.Load(Frame.Settings.Bands); });
    connect(&events, &FrameEvents::RecentChanged, this, [this] {
        if (recent->isVisible())
            recent->Fill();
    });
    connect(&events, &FrameEvents::ShortcutsChanged, this, &frmmain::TakeCommandKeys);
    connect(&events, &FrameEvents::MediaChanged, this, &frmmain::MediaChanged);
    connect(&events, &FrameEvents::MediaLooksChanged, this, &frmmain::StyleMediaLists);
    connect(&events, &FrameEvents::WorkChanged, this, &frmmain::WorkChanged);
    connect(&events, &FrameEvents::ModeChanged, marks, &MarksPanel::DocumentChanged);
    recording->Listen(events);
}

void frmmain::ModeChanged(int mode)
{
    panels->SetPanel(1, ModeName(mode), mode + 1);
    setWindowTitle(QStringLiteral("Gemforge - ") + ModeName(mode));
    UpdateCommands();
}

void frmmain::UpdateCommands()
{
    commands.Update({Frame.CurrentMode, CanPreview(Frame.CurrentMode), locked}, Frame.Settings);
}

void frmmain::ShowProgress(int maximum, int value)
{
    panels->ShowProgress(maximum, value);
}

void frmmain::HideProgress()
{
    panels->HideProgress();
}

/// The status bar stays live: what stops a run stands there.
void frmmain::SetEnabled(bool enabled)
{
    locked = !enabled;
    menuBar()->setEnabled(enabled);
    centralWidget()->setEnabled(enabled);
    bars.SetEnabled(enabled);
    UpdateCommands();
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

void frmmain::OpenTool(ToolWindow tool)
{
    // In the order of ToolWindow.
    static constexpr void (*Openers[])(frmmain&) = {
        [](frmmain& main) { RunProjectWindow(&main); },
        [](frmmain& main) {
            frmAbout::Run({[&main](const QByteArray& tune) { main.PlayModule(tune); }, [&main] { main.StopPlayers(); }},
                          &main);
        },
        [](frmmain& main) {
            RunOptionsWindow({[&main] { main.bars.SaveCoolbar(); }, [&main] { StorePosition(main); },
                              [&main] { return CommandShortcuts(main.buttons->Entries()); }},
                             &main);
            main.FocusPane();
        },
        [](frmmain& main) { frmPCXLab::Run(&main); },
        [](frmmain& main) { frmAVI2BMP::Run(&main); },
        [](frmmain& main) { RunGamesWindow(&main); },
        [](frmmain& main) { frmMakePreview::Run(&main); },
        [](frmmain& main) { frmWizard::Run(&main); },
        [](frmmain& main) { main.ManageLevels({}); },
    };
    static_assert(std::size(Openers) == size_t(ToolWindow::LevelManager) + 1);
    Openers[size_t(tool)](*this);
}

/// Confs that are chosen there open once the window has closed.
void frmmain::ManageLevels(const QString& archive)
{
    OpenDroppedFiles(frmLVLManager::Run(this, archive));
}

void frmmain::EditMacro(const QString& path)
{
    HideLists();
    frmMacroEdit::Run(this, path);
}

void frmmain::RecordMacro()
{
    HideLists();
    if (!recording->Running()) {
        recording->Start();
        return;
    }
    const RecordedMacro recorded = recording->Stop();
    if (recorded.Code.isEmpty()) {
        ShowNotice(QStringLiteral("Nothing was recorded"));
        return;
    }
    if (!recorded.NotReplayed.isEmpty())
        ShowMessage(message::RecordedInPart, recorded.NotReplayed.join(u'^'));
    frmMacroEdit::RunOn(this, recorded.Code);
}

void frmmain::RecordingChanged()
{
    const QString caption = recording->Running() ? QStringLiteral("Stop Recording") : QStringLiteral("Record Macro");
    const QString control = QStringLiteral("mnuRecordMacro");
    commands.Menu(control)->setText(caption);
    commands.Button(control)->setText(caption);
    commands.Button(control)->setToolTip(caption);
}

void frmmain::ShowZippedSet(const QString& archive)
{
    tools->Add([this, archive] {
        if (IsRndPathSet())
            ManageLevels(archive);
    });
}

void frmmain::HoldTools(bool on)
{
    tools->Hold(on);
}

void frmmain::ShowMacro(const QString& path)
{
    tools->Add([this, path] {
        if (IsRndPathSet())
            EditMacro(path);
    });
}

void frmmain::ShowCode(const RecoveredText& code)
{
    tools->Add([this, code] {
        HideLists();
        frmMacroEdit::TakeBack(this, code);
    });
}

void frmmain::ShowList(ListKind list)
{
    HideLists();
    const QRect area(stack->mapTo(recent->parentWidget(), QPoint()), stack->size());
    if (list == ListKind::Recent)
        recent->OpenOver(area);
    if (list == ListKind::Comments)
        comments->OpenOver(area);
    if (list == ListKind::Blocks)
        blocks->OpenOver(area);
    if (list == ListKind::GameWords)
        words->ShowList();
    if (list == ListKind::Marks)
        marks->ShowList();
}

void frmmain::CloseLists()
{
    HideLists();
    FocusPane();
}
