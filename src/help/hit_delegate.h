#pragma once

#include <QStyledItemDelegate>

/// Draws a search hit in two lines: its title in bold, below it, fainter, where it stands.
class HitDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    static constexpr int SecondLineRole = Qt::UserRole + 16;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
