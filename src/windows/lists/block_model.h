#pragma once

#include "conf/block_outline.h"

#include <QAbstractListModel>

/// The element blocks of a text, filtered by words that a key or its image must hold, letter case ignored.
class BlockModel : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void Show(std::vector<OutlineBlock> blocks);
    void Filter(const QString& words);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    bool IsEmpty() const { return all.empty(); }
    int LineOf(int row) const;
    /// The row of the last block shown that begins at or above a line; 0 if none does.
    int RowAbove(int line) const;

private:
    bool Fits(const OutlineBlock& block) const;

    std::vector<OutlineBlock> all;
    std::vector<size_t> shown;
    QStringList wanted;
};
