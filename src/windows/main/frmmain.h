#pragma once

#include "frame/editor_pane.h"
#include "frame/frame_events.h"
#include "frame/host_ports.h"
#include "platform/sound/audio.h"
#include "windows/main/command_set.h"
#include "windows/main/cool_bar.h"
#include "windows/main/menu_tree.h"

#include <QMainWindow>
#include <array>
#include <memory>

class BlockList;
class CommentTree;
class FloatingList;
class HelpSubject;
class LineHintsView;
class MacroRecording;
class MacroButtons;
class MediaTabs;
class MediaWatch;
class PaneSplit;
class QStackedWidget;
class RecentPopup;
class RunWatch;
class StatusPanels;
class TabStrip;
class MarksPanel;
class WaitingTools;
class WordsPanel;
class WindowKeys;

/// The main window: eight text panes behind a tab strip, menus and tool bars from the command table, the status bar
/// and the floating recent list. It joins these parts and is what the rooms below see as their host.
class frmmain : public QMainWindow, public HostWindow
{
    Q_OBJECT

public:
    frmmain();
    ~frmmain() override;

    /// Size, place and state of section `Window Positions`, brought onto a screen.
    void RestorePosition();
    /// What follows the start in the frame: the layout, menu icons, the startup time in the caption.
    void ShowStarted();
    /// Windows for files of tools wait until the program has started: its own questions come first.
    void HoldTools(bool on);
    /// OnMainWindowClose: keeps what must not be lost. Once.
    void Finish();
    /// Ends the program whatever runs, without a question: for SIGTERM and its like.
    void EndProgram();
    /// The user wants the window closed while something runs or a modal window is up: that ends first, then the window
    /// closes as at any other time, questions included.
    void CloseAfterWork();
    bool Ending() const { return ending; }

    EditorPane& Pane(int tab) override;
    EditorPane& txtBuffer() override;
    void SelectTab(int tab) override;
    int SelectedTab() const override;
    void ShowProgress(int maximum, int value) override;
    void HideProgress() override;
    void SetEnabled(bool enabled) override;
    void FocusPane() override;
    void BusyPointer(bool busy) override;
    void OpenTool(ToolWindow tool) override;
    void ShowList(ListKind list) override;
    void CloseLists() override;
    void ShowMediaEntry(const MediaHit& entry) override;
    bool CanPreview(int mode) const override;
    void PreviewMedia(const MediaRequest& request) override;
    void StopPlayers() override { audio::Stop(); }
    void EditMacro(const QString& path) override;
    void RecordMacro() override;
    void ShowZippedSet(const QString& archive) override;
    void ShowMacro(const QString& path) override;
    void ShowCode(const RecoveredText& code) override;
    void PlayModule(const QByteArray& bytes) { audio::PlayModule(bytes); }
    void Listen(FrameEvents& events) override;

    const CommandSet& Commands() const { return commands; }
    const MenuTree& Menus() const { return menus; }
    const CoolBar& Bars() const { return bars; }
    TabStrip& ssTxtWindows() const { return *strip; }
    PaneSplit& Split() const { return *split; }
    MediaTabs& Media() const { return *ssML; }
    StatusPanels& StatusBar() const { return *panels; }
    RecentPopup& RecentBack() const { return *recent; }
    CommentTree& TreeOfComments() const { return *comments; }
    BlockList& ListOfBlocks() const { return *blocks; }
    WordsPanel& WordsOfGame() const { return *words; }
    MarksPanel& ListOfMarks() const { return *marks; }
    QString HelpId() const;
    QString SelectedMedia() const; ///< full path of what is selected in the media list in front

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void LayOut();
    void ConnectParts();
    void ClaimKeys();
    void TakeCommandKeys();
    void ConnectPane(int tab, EditorPane& pane);
    void PanePressed(Qt::MouseButton button, Qt::KeyboardModifiers keys);
    void PaneTextChanged(int tab);
    void PopUpEditMenu(const QPoint& at);
    void ShowPaneOf(int tab);
    void EscapePressed();
    void MediaChanged();
    void StyleMediaLists();
    void UpdateCommands();
    void ModeChanged(int mode);
    void WorkChanged();
    void ToggleInsert();
    void ReadLocks();
    void LeaveMenuBar(); ///< a menu has closed: the keyboard goes back to where it was
    void MoveFocus();    ///< F6: pane, find box, tab strip, media list, pane ...
    void Activated();
    void AddMediaLists();
    void LeaveLists();
    void RunMacroFile(const QString& path);
    bool RunMacroOfKey(QChar key); ///< false: no macro has it
    void LoadMacroButtons();
    void RecordingChanged();
    void ShowMenuIcons();
    void TakeDrag(QDropEvent& event) const;
    void ManageLevels(const QString& archive);
    void RefreshLists();
    void MouseOver(const QString& helpId);
    void HideLists();
    bool ListShows() const;

    CommandSet commands;
    MenuTree menus;
    CoolBar bars;
    TabStrip* strip;
    QStackedWidget* stack;
    StatusPanels* panels;
    PaneSplit* split;
    MediaTabs* ssML = nullptr;
    MediaWatch* watch = nullptr;
    RecentPopup* recent;
    CommentTree* comments;
    BlockList* blocks;
    WordsPanel* words;
    MarksPanel* marks;
    HelpSubject* subject;
    LineHintsView* hints;
    WindowKeys* keys;
    RunWatch* runs;
    MacroButtons* buttons;
    MacroRecording* recording;
    WaitingTools* tools;
    std::array<std::unique_ptr<EditorPane>, 8> panes;
    std::unique_ptr<EditorPane> buffer;
    bool overtype = false;
    bool ending = false, finished = false, closeWanted = false, locked = false;
};
