#pragma once

#include <QIcon>
#include <QSortFilterProxyModel>
#include <array>

/// The games whose text holds what is typed, with their pictures.
class SetFilter : public QSortFilterProxyModel
{
public:
    explicit SetFilter(QAbstractItemModel& tree);

    QVariant data(const QModelIndex& index, int role) const override;

    int NodeOf(const QModelIndex& index) const { return mapToSource(index).row(); } ///< -1 for none
    QModelIndex IndexOf(int node) const { return mapFromSource(sourceModel()->index(node, 0)); }

private:
    std::array<QIcon, 3> pictures;
};
