#pragma once

#include <QString>

class EditorPane;
class FrameEvents;
struct MediaHit;
struct MediaRequest;
struct RecoveredText;

/// What a tab of the strip shows.
struct TabFace
{
    bool Visible = false;
    QString Caption;
    int Picture = 0; ///< image of the list `mode`, from 1; 0 none
    bool Enabled = true;
};

/// The eight tabs and their panes.
class PanePort
{
public:
    virtual ~PanePort() = default;
    virtual EditorPane& Pane(int tab) = 0; ///< 0 to 7
    virtual EditorPane& txtBuffer() = 0;
    virtual void SelectTab(int tab) = 0; ///< fires the strip's click: the pane of the tab comes in front
    virtual int SelectedTab() const = 0;
    virtual void FocusPane() = 0;
};

/// What shows that something is going on.
class BusyPort
{
public:
    virtual ~BusyPort() = default;
    virtual void ShowProgress(int maximum, int value) = 0;
    virtual void HideProgress() = 0;
    virtual void SetEnabled(bool enabled) = 0; ///< menus, bars, lists and panes; what stops a run stays live
    virtual void BusyPointer(bool busy) = 0;
};

enum class ToolWindow { Project, About, Options, PCXLab, AVI2BMP, Games, MakePreview, Wizard, LevelManager };
enum class ListKind { Recent, Comments, Blocks, GameWords, Marks };

/// Windows and players that a routine opens by name.
class ToolPort
{
public:
    virtual ~ToolPort() = default;
    virtual void OpenTool(ToolWindow tool) = 0; ///< modal; returns when closed
    /// A floating list, made anew from the current document; of the game's words the list below the text.
    virtual void ShowList(ListKind list) = 0;
    virtual void CloseLists() = 0;                              ///< hides the floating lists, focus to the pane
    virtual void ShowMediaEntry(const MediaHit& entry) = 0;     ///< its tab in front, the entry selected and in view
    virtual bool CanPreview(int mode) const = 0;                ///< is there a tool that opens the media of a mode?
    virtual void PreviewMedia(const MediaRequest& request) = 0; ///< returns when done
    virtual void StopPlayers() = 0;
    virtual void EditMacro(const QString& path) = 0; ///< on the workbench; empty: a new one. Returns when closed
    // Once the caller has returned and nothing else is at work.
    /// Begins to record what is done to the text, or ends that and opens the workbench on the macro that came of it.
    virtual void RecordMacro() = 0;
    virtual void ShowZippedSet(const QString& archive) = 0; ///< in the Level Manager
    virtual void ShowMacro(const QString& path) = 0;        ///< on the workbench
    virtual void ShowCode(const RecoveredText& code) = 0;   ///< unsaved code, on the workbench; its copy goes then
};

/// A host has all the ports, and hears what changes.
class HostWindow : public PanePort, public BusyPort, public ToolPort
{
public:
    virtual void Listen(FrameEvents& events) = 0; ///< called once, by InstallHost
};

PanePort& Panes();
EditorPane& CurrentPane(); ///< the pane of the tab in front
BusyPort& Busy();
ToolPort& Tools();
