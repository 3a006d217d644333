#pragma once

#include <QFrame>

class QTreeWidget;
class QTreeWidgetItem;

/// The floating recent list: the tree RecentList in its frame RecentBack. It has the keyboard while it shows.
class RecentPopup : public QFrame
{
    Q_OBJECT

public:
    explicit RecentPopup(QWidget* parent);

    void Fill(); ///< from Frame.Recent
    /// Over the left half of the pane, at its full height. `paneArea` in the parent's coordinates.
    void Open(const QRect& paneArea);
    QTreeWidget* Tree() const { return tree; }

signals:
    void Chosen(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Choose(QTreeWidgetItem* item);

    QTreeWidget* tree;
};
