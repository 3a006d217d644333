#include "windows/lists/block_model.h"

#include <algorithm>

void BlockModel::Show(std::vector<OutlineBlock> blocks)
{
    all = std::move(blocks);
    Filter({});
}

void BlockModel::Filter(const QString& words)
{
    beginResetModel();
    wanted = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    shown.clear();
    for (size_t block = 0; block < all.size(); ++block)
        if (Fits(all[block]))
            shown.push_back(block);
    endResetModel();
}

bool BlockModel::Fits(const OutlineBlock& block) const
{
    return std::all_of(wanted.begin(), wanted.end(), [&](const QString& word) {
        return block.Key.contains(word, Qt::CaseInsensitive) || block.Image.contains(word, Qt::CaseInsensitive);
    });
}

int BlockModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(shown.size());
}

QVariant BlockModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= int(shown.size()))
        return {};
    const OutlineBlock& block = all.at(shown.at(size_t(index.row())));
    if (role == Qt::DisplayRole)
        return block.Key;
    if (role == Qt::ToolTipRole)
        return QStringLiteral("%1, line %2").arg(block.Image).arg(block.Line + 1);
    return {};
}

int BlockModel::LineOf(int row) const
{
    return all.at(shown.at(size_t(row))).Line;
}

int BlockModel::RowAbove(int line) const
{
    const auto behind = std::upper_bound(shown.begin(), shown.end(), line,
                                         [this](int value, size_t block) { return value < all[block].Line; });
    return qMax(0, int(behind - shown.begin()) - 1);
}
