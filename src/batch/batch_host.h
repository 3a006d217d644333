#pragma once

#include "editor/make_pane.h"
#include "frame/frame_state.h"
#include "frame/host_window.h"
#include "frame/messages/asker.h"

#include <array>
#include <functional>

/// A host without a window: eight panes made when first used, everything told to it kept for a look.
class BatchHost : public HostWindow
{
public:
    BatchHost();
    ~BatchHost() override;

    EditorPane& Pane(int tab) override;
    EditorPane& txtBuffer() override;
    void SetTab(int tab, const TabFace& face) override { Faces.at(tab) = face; }
    void SelectTab(int tab) override;
    int SelectedTab() const override { return Selected; }
    void SetPanel(int panel, const QString& text, int picture) override;
    void ShowNotice(const QString& text) override { Notices << text; }
    void SetCaption(const QString& caption) override { Caption = caption; }
    void EnableCommand(const QString& control, bool menu, bool button) override;
    void CheckCommand(const QString& control, bool checked) override;
    void ShowProgress(int maximum, int value) override;
    void HideProgress() override { ProgressShown = false; }
    void SetEnabled(bool enabled) override { Enabled = enabled; }
    void FocusPane() override {}
    void BusyPointer(bool) override {}
    void OpenTool(ToolWindow tool) override;
    void ShowComments() override { CommentsShown = true; }
    void ShowRecent() override { RecentShown = true; }
    void ShowBlocks() override {}
    void CloseLists() override { RecentShown = false; }
    void RecentChanged() override {}
    void MediaChanged() override {}
    void ShowMediaEntry(int source, int row) override { ShownEntry = {source, row}; }
    bool CanPreview(int) const override { return false; }
    void PreviewMedia() override;
    void StyleMediaLists() override {}
    void ShowMenuStrips(bool) override {}
    void LoadCoolbar() override {}
    void StopPlayers() override {}
    bool Turn() override { return !Frame.StopRequested; }

    std::array<TabFace, 8> Faces;
    std::array<QString, 4> Panels; ///< 1 to 3
    std::array<int, 4> PanelPictures{};
    QStringList Notices;
    QString Caption;
    QHash<QString, std::pair<bool, bool>> Commands; ///< control -> menu, button
    QHash<QString, bool> Checks;
    std::pair<int, int> ShownEntry{0, -1};      ///< source and row in the media lists
    std::function<void()> OnPreview;            ///< stands for the tool that opens a media file
    std::function<void(ToolWindow)> OnOpenTool; ///< stands for the tool windows
    int ProgressMaximum = 0, ProgressValue = 0, ProgressCalls = 0;
    bool ProgressShown = false, RecentShown = false, CommentsShown = false, Enabled = true;

private:
    std::array<std::unique_ptr<EditorPane>, 8> panes;
    std::unique_ptr<EditorPane> buffer;
    int Selected = 0;
};
