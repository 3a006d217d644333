#include "help/hit_delegate.h"

#include <QApplication>
#include <QPainter>

namespace {

constexpr int Margin = 4;

} // namespace

void HitDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QString title = item.text;
    item.text.clear();
    const QStyle* style = item.widget ? item.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

    const QPalette::ColorGroup group =
        item.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const bool selected = item.state.testFlag(QStyle::State_Selected);
    QColor colour = item.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    const QRect inside = item.rect.adjusted(Margin, Margin, -Margin, -Margin);
    const auto line = [&](const QString& text, const QFont& font, Qt::Alignment side) {
        painter->setFont(font);
        painter->setPen(colour);
        painter->drawText(inside, int(side | Qt::AlignLeft),
                          QFontMetrics(font).elidedText(text, Qt::ElideRight, inside.width()));
    };
    painter->save();
    QFont bold = item.font;
    bold.setBold(true);
    line(title, bold, Qt::AlignTop);
    if (!selected)
        colour.setAlphaF(0.75F);
    line(index.data(SecondLineRole).toString(), item.font, Qt::AlignBottom);
    painter->restore();
}

QSize HitDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    return {option.fontMetrics.averageCharWidth() * 10, 2 * option.fontMetrics.height() + 2 * Margin + 2};
}
