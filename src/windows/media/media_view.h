#pragma once

#include "frame/media/media_request.h"

#include <QListView>
#include <QSortFilterProxyModel>

class MediaListModel;
class QLineEdit;
class Thumbnails;

/// One file list beside the text: PCXBrowser, extraFileList or rndFileList. It is a palette: a press selects and is
/// told, and the keyboard stays where it was. By key it can be entered; then Enter opens, Ctrl+Enter inserts, letters
/// narrow the list down.
class MediaView : public QListView
{
    Q_OBJECT

public:
    /// The folder of the source is not read before the list shows.
    MediaView(MediaSource source, const char* name, QWidget* parent);

    MediaSource Source() const { return source; }
    MediaHit Entry() const;   ///< the selected entry; Row -1 and no name for none
    QString Selected() const; ///< the selected entry, "" for none
    int SelectedRow() const;  ///< in the list's model; -1 for none
    void SelectRow(int row);  ///< of the model, brought into the middle; one outside selects none
    QString Path() const;     ///< of the selected entry, "" for none
    QString PathOf(const QModelIndex& index) const;

    /// Shows only entries that contain `text`, case ignored; "" shows all.
    void Narrow(const QString& text);
    QLineEdit* Filter() const { return filter; } ///< the line that is typed into, hidden while it is empty
    void OpenFilter(const QString& text = {});
    void EndFilter();
    bool HasKeyboard() const;

    void SetStyle();       ///< colours, font and thumbnails of the settings
    void LookAtPictures(); ///< files may have another picture by now

    /// Folder or patterns may be others now; a filter is for one folder only. `note` stands in the place of entries
    /// while there are none.
    void Follow(const QString& note);

signals:
    void Pressed(bool insert); ///< by the mouse, after the selecting
    void Opened();             ///< by double click or Enter, with an entry selected
    void MenuWanted(const QPoint& onScreen);
    void Inserted(); ///< by key

protected:
    void showEvent(QShowEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    MediaListModel& List() const;
    void Attach();
    void PressAt(QMouseEvent& event);
    void DragEntry();
    void PlaceFilter();

    MediaSource source;
    QSortFilterProxyModel shown;
    QLineEdit* filter;
    Thumbnails* thumbnails;
    QString note, folder;
    QPoint pressedAt;
    bool mayDrag = false;
};
