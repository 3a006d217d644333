#pragma once

#include <QObject>
#include <QString>

/// What has changed in the frame. The main window and the host without a window listen; nobody below calls them.
class FrameEvents : public QObject
{
    Q_OBJECT

signals:
    void TabChanged(int tab);              ///< what the strip shows of it: Documents[tab].Face
    void ModeChanged(int mode);            ///< of the current document
    void CaretMoved(const QString& place); ///< the text of its status panel
    void PathChanged(const QString& path); ///< of the current document, in the system's form
    void Noticed(const QString& text);     ///< a line for some seconds; "" ends it
    void ViewSettingChanged();             ///< one of the view toggles
    void MenuStripsChanged(bool on);       ///< the menus' title strips
    void ToolBarsLoaded();                 ///< Frame.Settings.Bands was read
    void RecentChanged();                  ///< Frame.Recent was loaded anew
    void MediaChanged();                   ///< patterns or folders of the media lists
    void ShortcutsChanged();               ///< section `Shortcuts`
    void ColourFormChanged();              ///< the user has fixed a light or a dark form, or the desktop's again
    void MediaLooksChanged();              ///< colours and font of the media lists, or Thumbnails
    void WorkChanged();                    ///< a run or a modal window has begun or ended
};
FrameEvents& Events();

/// Tells something in the status bar for some seconds; "" ends what is told.
void ShowNotice(const QString& text);
