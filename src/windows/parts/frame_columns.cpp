#include "windows/parts/frame_columns.h"

#include <QWidget>
#include <algorithm>

FrameColumns::FrameColumns(QWidget* parent) : QLayout(parent) {}

FrameColumns::~FrameColumns() = default;

void FrameColumns::addItem(QLayoutItem* item)
{
    items.emplace_back(item);
}

QLayoutItem* FrameColumns::itemAt(int index) const
{
    return index >= 0 && index < count() ? items[size_t(index)].get() : nullptr;
}

QLayoutItem* FrameColumns::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem* taken = items[size_t(index)].release();
    items.erase(items.begin() + index);
    return taken;
}

int FrameColumns::Gap() const
{
    return std::max(0, spacing());
}

int FrameColumns::WidestItem() const
{
    int widest = 0;
    for (const auto& item : items)
        widest = std::max(widest, item->sizeHint().width());
    return widest;
}

int FrameColumns::HeightOf(int item, int width) const
{
    const auto& part = *items[size_t(item)];
    return part.hasHeightForWidth() ? part.heightForWidth(width) : part.sizeHint().height();
}

/// The lowest height at which the items, in their order, need no more than so many columns.
FrameColumns::Plan FrameColumns::PlanWith(int columns, int columnWidth) const
{
    std::vector<int> heights;
    int all = 0, highest = 0;
    for (int item = 0; item < count(); ++item) {
        heights.push_back(HeightOf(item, columnWidth));
        all += heights.back() + Gap();
        highest = std::max(highest, heights.back());
    }
    const auto fill = [&](int limit) {
        Plan plan{{}, columnWidth, 0};
        int at = limit + 1;
        for (int item = 0; item < count(); ++item) {
            if (at + heights[size_t(item)] > limit) {
                plan.FirstOfColumn.push_back(item);
                at = 0;
            }
            at += heights[size_t(item)];
            plan.Height = std::max(plan.Height, at);
            at += Gap();
        }
        return plan;
    };
    int low = highest, high = std::max(all, highest);
    while (low < high) {
        const int middle = (low + high) / 2;
        if (int(fill(middle).FirstOfColumn.size()) <= columns)
            high = middle;
        else
            low = middle + 1;
    }
    return fill(low);
}

FrameColumns::Plan FrameColumns::PlanFor(int width) const
{
    const int columns = std::clamp((width + Gap()) / std::max(1, WidestItem() + Gap()), 1, std::max(1, count()));
    return PlanWith(columns, (width - (columns - 1) * Gap()) / columns);
}

QSize FrameColumns::sizeHint() const
{
    const int columns = std::clamp(WishedColumns, 1, std::max(1, count()));
    const QMargins around = contentsMargins();
    const Plan plan = PlanWith(columns, WidestItem());
    const QSize inner(columns * plan.ColumnWidth + (columns - 1) * Gap(), plan.Height);
    return inner.grownBy(around);
}

QSize FrameColumns::minimumSize() const
{
    return QSize(WidestItem(), 0).grownBy(contentsMargins());
}

int FrameColumns::heightForWidth(int width) const
{
    const QMargins around = contentsMargins();
    return PlanFor(width - around.left() - around.right()).Height + around.top() + around.bottom();
}

void FrameColumns::setGeometry(const QRect& place)
{
    QLayout::setGeometry(place);
    const QRect room = place.marginsRemoved(contentsMargins());
    const Plan plan = PlanFor(room.width());
    int column = -1, top = 0;
    for (int item = 0; item < count(); ++item) {
        if (column + 1 < int(plan.FirstOfColumn.size()) && plan.FirstOfColumn[size_t(column) + 1] == item) {
            ++column;
            top = room.top();
        }
        const int height = HeightOf(item, plan.ColumnWidth);
        const int left = room.left() + column * (plan.ColumnWidth + Gap());
        items[size_t(item)]->setGeometry(QRect(left, top, plan.ColumnWidth, height));
        top += height + Gap();
    }
}
