#pragma once

#include <QTreeWidget>

/// extraDir: the folders of one volume. A folder is read when it is first opened out. Hidden folders stand behind the
/// others, since games keep their files in one.
class FolderTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit FolderTree(QWidget* parent);

    /// Shows the tree below `root` with `folder` selected and in view; both end with "/". Tells nothing.
    void ShowFolder(const QString& root, const QString& folder);
    void Refresh(); ///< reads the folders that are open anew

signals:
    void Picked(const QString& folder); ///< by the user; "/" at its end

protected:
    QSize sizeHint() const override { return {100, 100}; }
    void mousePressEvent(QMouseEvent* event) override;

private:
    void ReadInto(QTreeWidgetItem* item);
    void RefreshBelow(QTreeWidgetItem* item);

    bool byCode = false;
};
