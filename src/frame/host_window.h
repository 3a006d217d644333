#pragma once

#include <QString>
#include <QStringList>

class EditorPane;
class DocumentText;

/// What a tab of the strip shows.
struct TabFace
{
    bool Visible = false;
    QString Caption;
    int Picture = 0; ///< image of the list `mode`, from 1; 0 none
    bool Enabled = true;
};

enum class ToolWindow { Project, About, Inject };

/// The main window as the rooms below it see it; frmmain implements it, and so does the host without a window.
class HostWindow
{
public:
    virtual ~HostWindow() = default;
    virtual EditorPane& Pane(int tab) = 0; ///< 0 to 7
    virtual EditorPane& txtBuffer() = 0;
    virtual void SetTab(int tab, const TabFace& face) = 0;
    virtual void SelectTab(int tab) = 0; ///< fires the strip's click: the pane of the tab comes in front
    virtual int SelectedTab() const = 0;
    virtual void SetPanel(int panel, const QString& text, int picture = 0) = 0; ///< 1 to 3; picture as in TabFace
    virtual void ShowNotice(const QString& text) = 0; ///< a line in the status bar for some seconds; "" ends it
    virtual void SetCaption(const QString& caption) = 0;
    virtual void EnableCommand(const QString& control, bool menu, bool button) = 0;
    virtual void CheckCommand(const QString& control, bool checked) = 0;
    virtual void ShowProgress(int maximum, int value) = 0;
    virtual void HideProgress() = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual void FocusPane() = 0;
    virtual void BusyPointer(bool busy) = 0;
    virtual void OpenTool(ToolWindow tool) = 0; ///< modal; returns when closed
    virtual void ShowRecent() = 0;              ///< the floating recent list, already loaded
    virtual void ShowComments() = 0;            ///< the floating comment tree, made anew from the current document
    virtual void ShowBlocks() = 0;              ///< the floating outline of the current document's element blocks
    virtual void CloseLists() = 0;              ///< hides the floating lists, focus to the pane
    virtual void RecentChanged() = 0;           ///< Frame.Recent was loaded anew
    virtual void MediaChanged() = 0;            ///< patterns or folders of the media lists changed
    virtual void ShowMediaEntry(int source, int row) = 0; ///< its tab in front, the entry selected and in view
    virtual bool CanPreview(int mode) const = 0;          ///< is there a tool that opens the media of a mode?
    virtual void PreviewMedia() = 0;    ///< opens the media file at hand by the mode; returns when done
    virtual void StyleMediaLists() = 0; ///< colours and font of the media lists or Thumbnails changed
    virtual void ShowMenuStrips(bool on) = 0;
    virtual void LoadCoolbar() = 0; ///< Frame.Settings.Bands was read
    virtual void StopPlayers() = 0;
    virtual bool Turn() = 0; ///< lets events run; false: a stop is wanted
};
