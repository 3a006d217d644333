#include "windows/macro/zip_page.h"

#include "windows/parts/dialog_help.h"
#include "windows/parts/icons.h"

#include <QLineEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum ZipImage { FolderImage = 1, FileImage };

constexpr int ZipTreeWidth = 320, ZipTreeHeight = 300; ///< pixels of a 96-dpi screen

} // namespace

ZipPage::ZipPage(const QStringList& entries, QWidget* parent)
    : QWidget(parent), tree(new QTreeWidget(this)), line(new QLineEdit(this))
{
    tree->setObjectName(QStringLiteral("lstZipTree"));
    tree->setAccessibleName(QStringLiteral("Content"));
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    tree->setMinimumSize(Pixels(*this, ZipTreeWidth), Pixels(*this, ZipTreeHeight));
    line->setObjectName(QStringLiteral("txtZipFile"));
    line->setAccessibleName(QStringLiteral("Chosen"));
    line->setReadOnly(true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(tree, 1);
    column->addWidget(line);
    for (const QString& entry : entries)
        AddEntry(entry);
    if (tree->topLevelItemCount() == 1)
        tree->topLevelItem(0)->setExpanded(true);
    connect(tree, &QTreeWidget::itemSelectionChanged, this, [this] {
        QString path = Chosen().replace(u'/', u'\\');
        if (!path.isEmpty() && !path.contains(u'.'))
            path += u'\\';
        line->setText(path);
        emit Changed();
    });
    connect(tree, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem* item) {
        if (item->childCount() == 0)
            emit Activated();
    });
}

void ZipPage::AddEntry(const QString& entry)
{
    QTreeWidgetItem* above = tree->invisibleRootItem();
    QString path;
    for (const QString& piece : entry.split(u'/', Qt::SkipEmptyParts)) {
        path += path.isEmpty() ? piece : u'/' + piece;
        QTreeWidgetItem*& item = items[path];
        if (!item) {
            item = new QTreeWidgetItem(above, {piece});
            item->setIcon(0, ListImage(QStringLiteral("zip"), piece.contains(u'.') ? FileImage : FolderImage));
            item->setData(0, Qt::UserRole, path);
        }
        above = item;
    }
}

QString ZipPage::Chosen() const
{
    const QTreeWidgetItem* item = tree->selectedItems().value(0);
    return item ? item->data(0, Qt::UserRole).toString() : QString();
}
