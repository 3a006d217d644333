#include "windows/sets/set_filter.h"

#include "sets/set_tree.h"
#include "windows/parts/icons.h"

SetFilter::SetFilter(QAbstractItemModel& tree)
{
    setSourceModel(&tree);
    setFilterCaseSensitivity(Qt::CaseInsensitive);
    for (size_t image = 0; image < pictures.size(); ++image)
        pictures[image] = ListImage(QStringLiteral("tree"), int(image) + 1);
}

QVariant SetFilter::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DecorationRole)
        return QSortFilterProxyModel::data(index, role);
    return pictures.at(size_t(index.data(SetTree::ImageRole).toInt()) - 1);
}
