#include "windows/media/folder_tree.h"

#include "frame/media/media_lists.h"

#include <QFile>
#include <QMouseEvent>
#include <QSet>
#include <algorithm>
#include <filesystem>
#include <sys/stat.h>

namespace {

constexpr int FolderRole = Qt::UserRole, ReadRole = Qt::UserRole + 1;
constexpr nlink_t LinksOfALeaf = 2; // of a folder without folders, where the file system counts them
constexpr int Indent = 10;

QString FolderOf(const QTreeWidgetItem* item)
{
    return item->data(0, FolderRole).toString();
}

QStringList FoldersIn(const QString& folder)
{
    QStringList names;
    std::error_code error, unknown;
    std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), error);
    for (const std::filesystem::directory_iterator end; !error && entry != end; entry.increment(error))
        if (entry->is_directory(unknown))
            names << QFile::decodeName(entry->path().filename().c_str());
    std::ranges::sort(names, [](const QString& a, const QString& b) {
        const bool hidden = a.startsWith(u'.'), otherHidden = b.startsWith(u'.');
        return hidden != otherHidden ? otherHidden : NaturallyBefore(a, b);
    });
    return names;
}

bool MayHoldFolders(const QString& folder)
{
    struct stat facts = {};
    return stat(QFile::encodeName(folder).constData(), &facts) == 0 && facts.st_nlink != LinksOfALeaf;
}

QTreeWidgetItem* MakeItem(const QString& name, const QString& folder)
{
    auto* item = new QTreeWidgetItem({name});
    item->setData(0, FolderRole, folder);
    item->setChildIndicatorPolicy(MayHoldFolders(folder) ? QTreeWidgetItem::ShowIndicator
                                                         : QTreeWidgetItem::DontShowIndicatorWhenChildless);
    return item;
}

QTreeWidgetItem* ChildNamed(const QTreeWidgetItem* item, const QString& name)
{
    for (int i = 0; i < item->childCount(); ++i)
        if (item->child(i)->text(0) == name)
            return item->child(i);
    return nullptr;
}

} // namespace

FolderTree::FolderTree(QWidget* parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setIndentation(Indent);
    setFocusPolicy(Qt::TabFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QTreeWidget::itemExpanded, this, &FolderTree::ReadInto);
    connect(this, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item && !byCode)
            emit Picked(FolderOf(item));
    });
}

// A press beside the folders would leave none selected.
void FolderTree::mousePressEvent(QMouseEvent* event)
{
    if (itemAt(event->position().toPoint()))
        QTreeWidget::mousePressEvent(event);
}

void FolderTree::ReadInto(QTreeWidgetItem* item)
{
    if (item->data(0, ReadRole).toBool())
        return;
    item->setData(0, ReadRole, true);
    const QString folder = FolderOf(item);
    QList<QTreeWidgetItem*> children;
    for (const QString& name : FoldersIn(folder))
        children << MakeItem(name, folder + name + u'/');
    item->addChildren(children);
    item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

void FolderTree::ShowFolder(const QString& root, const QString& folder)
{
    byCode = true;
    if (!topLevelItem(0) || FolderOf(topLevelItem(0)) != root) {
        clear();
        addTopLevelItem(MakeItem(root, root));
    }
    QTreeWidgetItem* item = topLevelItem(0);
    item->setExpanded(true);
    for (const QString& name : folder.mid(root.size()).split(u'/', Qt::SkipEmptyParts)) {
        ReadInto(item);
        item->setExpanded(true);
        QTreeWidgetItem* child = ChildNamed(item, name);
        if (!child)
            break;
        item = child;
    }
    setCurrentItem(item);
    scrollToItem(item, PositionAtCenter);
    byCode = false;
}

void FolderTree::Refresh()
{
    if (!topLevelItem(0))
        return;
    const QString before = currentItem() ? FolderOf(currentItem()) : QString();
    byCode = true;
    RefreshBelow(topLevelItem(0));
    byCode = false;
    if (currentItem() && FolderOf(currentItem()) != before)
        emit Picked(FolderOf(currentItem())); // the folder has gone
}

void FolderTree::RefreshBelow(QTreeWidgetItem* item)
{
    if (!item->data(0, ReadRole).toBool())
        return;
    const QString folder = FolderOf(item);
    const QStringList now = FoldersIn(folder);
    const QSet<QString> standing(now.begin(), now.end());
    for (int i = item->childCount() - 1; i >= 0; --i)
        if (!standing.contains(item->child(i)->text(0)))
            delete item->takeChild(i);
    for (int i = 0; i < int(now.size()); ++i)
        if (!item->child(i) || item->child(i)->text(0) != now[i])
            item->insertChild(i, MakeItem(now[i], folder + now[i] + u'/'));
    for (int i = 0; i < item->childCount(); ++i)
        RefreshBelow(item->child(i));
}
