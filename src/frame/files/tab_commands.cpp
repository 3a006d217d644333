#include "frame/files/tab_commands.h"

#include "frame/files/closed_tabs.h"
#include "frame/files/file_commands.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/recovery/recovery.h"

namespace {

void SelectFirstTab()
{
    Panes().SelectTab(0);
    Frame.CurrentTab = 0;
}

} // namespace

void EmptySlot(int tab)
{
    DocumentText& pane = Panes().Pane(tab);
    pane.SetText({});
    // SetText keeps both, and the slot's next document is a new one.
    pane.SetEncoding(FileEncoding::Utf8);
    pane.SetLineEnd(LineBreak::CrLf);
    pane.ClearUndoBuffer();
    pane.SetModified(false);
    Document fresh;
    fresh.Face.Visible = tab == 0;
    fresh.Face.Caption = EmptyCaption;
    fresh.Face.Picture = fresh.Mode + 1;
    Frame.Documents.at(tab) = fresh;
    ShowTab(tab);
    if (Frame.Keeper)
        Frame.Keeper->TextSettled(tab);
}

void OpenNewTab()
{
    for (int tab = 1; tab < 8; ++tab) {
        Document& document = Frame.Documents.at(tab);
        if (document.Face.Visible)
            continue;
        document.Face.Visible = true;
        document.Face.Caption = EmptyCaption;
        document.Mode = ModeGfx;
        ShowTab(tab);
        Panes().SelectTab(tab);
        return;
    }
}

void CloseTab()
{
    const int tab = Frame.CurrentTab;
    if (tab == 0) {
        NewDocument(Frame.CurrentMode);
    } else {
        if (!MayGiveUp(CurrentPane()))
            return;
        if (!CurrentPane().Modified())
            KeepClosedText(tab);
        EmptySlot(tab);
        Panes().SelectTab(0);
    }
    ActivateTab();
}

void CloseAllTabs()
{
    if (ModifiedTabs() > 0 && !Confirmed(message::CloseAllChanged))
        return;
    for (int tab = 0; tab < 8; ++tab)
        if (Frame.Documents.at(tab).Face.Visible)
            KeepClosedText(tab);
    for (int tab = 1; tab < 8; ++tab)
        EmptySlot(tab);
    SelectFirstTab();
    CurrentPane().SetModified(false);
    NewDocument(Frame.CurrentMode);
}
