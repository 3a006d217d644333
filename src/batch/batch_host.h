#pragma once

#include "editor/make_pane.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/media/media_request.h"
#include "frame/messages/asker.h"

#include <array>
#include <functional>
#include <optional>
#include <vector>

/// A host without a window: eight panes made when first used, everything told to it kept for a look.
class BatchHost : public HostWindow
{
public:
    BatchHost();
    ~BatchHost() override;

    EditorPane& Pane(int tab) override;
    EditorPane& txtBuffer() override;
    void SelectTab(int tab) override;
    int SelectedTab() const override { return Selected; }
    void ShowProgress(int maximum, int value) override;
    void HideProgress() override { ProgressShown = false; }
    void SetEnabled(bool enabled) override { Enabled = enabled; }
    void FocusPane() override {}
    void BusyPointer(bool) override {}
    void OpenTool(ToolWindow tool) override;
    void ShowList(ListKind list) override { ShownList = list; }
    void CloseLists() override { ShownList.reset(); }
    void ShowMediaEntry(const MediaHit& entry) override { ShownEntry = entry; }
    bool CanPreview(int) const override { return false; }
    void PreviewMedia(const MediaRequest& request) override;
    void StopPlayers() override {}
    void EditMacro(const QString&) override {}
    void RecordMacro() override {}
    void ShowZippedSet(const QString& archive) override { ZippedSets << archive; }
    void ShowMacro(const QString& path) override { ShownMacros << path; }
    void ShowCode(const RecoveredText& code) override;
    void Listen(FrameEvents& events) override;

    std::array<TabFace, 8> Faces;
    std::vector<int> Modes; ///< as they came
    QString CaretPlace, Path;
    QStringList Notices, ZippedSets, ShownMacros;
    QByteArray ShownCode;
    std::optional<ListKind> ShownList;
    MediaHit ShownEntry{MediaSource::None, -1, {}};     ///< of the media lists
    std::function<void(const MediaRequest&)> OnPreview; ///< stands for the tool that opens a media file
    std::function<void(ToolWindow)> OnOpenTool;         ///< stands for the tool windows
    int ProgressMaximum = 0, ProgressValue = 0, ProgressCalls = 0;
    bool ProgressShown = false, Enabled = true;

private:
    std::array<std::unique_ptr<EditorPane>, 8> panes;
    std::unique_ptr<EditorPane> buffer;
    int Selected = 0;
};
