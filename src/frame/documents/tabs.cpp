#include "frame/documents/documents.h"
#include "frame/files/file_commands.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/recovery/recovery.h"
#include "platform/paths.h"

#include <QTimer>
#include <utility>

namespace {

constexpr int FlashPhases = 8;
constexpr int FlashIdle = -1;

void SetTabEnabled(int tab, bool enabled)
{
    Frame.Documents.at(tab).Face.Enabled = enabled;
    ShowTab(tab);
}

void TickLater()
{
    QTimer::singleShot(200, [] {
        if (FlashTick())
            TickLater();
    });
}

void SelectFirstTab()
{
    Panes().SelectTab(0);
    Frame.CurrentTab = 0;
}

} // namespace

bool HasFile(const Document& document)
{
    return document.Face.Caption != EmptyCaption && !document.Path.isEmpty();
}

int TabWithFile(const QString& path)
{
    const QString wanted = paths::Canonical(path);
    for (int tab = 0; tab < 8; ++tab) {
        const Document& document = Frame.Documents.at(tab);
        if (HasFile(document) && paths::Canonical(document.Path) == wanted)
            return tab;
    }
    return -1;
}

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

int ModifiedTabs()
{
    int count = 0;
    for (int tab = 0; tab < 8; ++tab)
        if (Frame.Documents.at(tab).Face.Visible && Panes().Pane(tab).Modified())
            ++count;
    return count;
}

bool MayGiveUp(DocumentText& pane)
{
    return !pane.Modified() || Confirmed(message::CloseChanged);
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
        EmptySlot(tab);
        Panes().SelectTab(0);
    }
    ActivateTab();
}

void CloseAllTabs()
{
    if (ModifiedTabs() > 0 && !Confirmed(message::CloseAllChanged))
        return;
    for (int tab = 1; tab < 8; ++tab)
        EmptySlot(tab);
    SelectFirstTab();
    CurrentPane().SetModified(false);
    NewDocument(Frame.CurrentMode);
}

void FlashTabCaption(int tab)
{
    if (Frame.FlashCount != FlashIdle && Frame.FlashTab != tab)
        SetTabEnabled(Frame.FlashTab, true);
    Frame.FlashTab = tab;
    if (!std::exchange(Frame.Flashing, true))
        TickLater();
}

bool FlashTick()
{
    if (!Frame.Flashing)
        return false;
    SetTabEnabled(Frame.FlashTab, Frame.FlashCount % 2 != 0);
    ++Frame.FlashCount;
    if (Frame.FlashCount < FlashPhases)
        return true;
    Frame.FlashCount = FlashIdle;
    Frame.Flashing = false;
    SetTabEnabled(Frame.FlashTab, true);
    return false;
}
