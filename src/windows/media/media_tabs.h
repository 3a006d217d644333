#pragma once

#include "frame/media/media_request.h"

#include <QTabWidget>
#include <array>

class ExtraPage;
class MacroTree;
class MediaView;

/// ssML, right of the text: the file lists Base, Extra and RnD. It shows what Frame.Media and the settings say and
/// tells what the user does.
class MediaTabs : public QTabWidget
{
    Q_OBJECT

public:
    explicit MediaTabs(QWidget* parent = nullptr);

    /// Of PCXBrowser, Extra or Rnd.
    MediaView& View(MediaSource source) const { return *views[size_t(source) - 1]; }
    void ShowList(MediaSource source); ///< its tab in front
    ExtraPage& Extra() const { return *extra; }
    MacroTree& Macros() const { return *macros; }

    /// Patterns or folders of the lists have changed.
    void ShowLists();
    /// Colours and font of the settings, thumbnails.
    void SetStyle();

    void LookAtPictures(); ///< the files may have changed

    void NoteSelection(); ///< to SavedListIndex, for a command that asks what is selected
    void SaveSelection(); ///< to SavedListIndex, as the window loses the focus
    /// The saved entries are selected again; an index of 0 leaves its list without a selection. A list that was
    /// pressed meanwhile keeps what was chosen, and nothing comes back twice.
    void RestoreSelection();

    MediaView* Focused() const; ///< the list that has the keyboard, null for none
    void FocusList();           ///< the keyboard to the list in front

signals:
    void Clicked(); ///< on a tab, in a list or beside the lists
    void Opened(const MediaHit& entry);
    void Inserted(const QString& name);
    void MenuWanted(MediaSource source, const QPoint& onScreen);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void AddPage(QWidget* page, const char* caption, const char* helpKey);
    void ConnectView(MediaView& view);

    std::array<MediaView*, 3> views;
    ExtraPage* extra;
    MacroTree* macros;
    std::array<bool, 5> awaited{}; ///< as SavedListIndex: saved and not yet restored
};
