#include "mapglass/element_list.h"

#include "level/element_names.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <map>

namespace {

enum ElementColumn { NameColumn, NumberColumn, CountColumn, SetColumn };

/// A row that sorts numbers by their value.
class ElementRow : public QTreeWidgetItem
{
public:
    using QTreeWidgetItem::QTreeWidgetItem;

    bool operator<(const QTreeWidgetItem& other) const override
    {
        const int column = treeWidget()->sortColumn();
        if (column == NumberColumn || column == CountColumn)
            return text(column).toInt() < other.text(column).toInt();
        return text(column).localeAwareCompare(other.text(column)) < 0;
    }
};

int NumberOf(const QTreeWidgetItem& row)
{
    return row.text(NumberColumn).toInt();
}

} // namespace

ElementList::ElementList(QWidget* parent) : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("elements"));
    setAccessibleName(QStringLiteral("Elements used"));
    setHeaderLabels({QStringLiteral("Element"), QStringLiteral("No."), QStringLiteral("Count"), QStringLiteral("Set")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setTextElideMode(Qt::ElideMiddle); // names of a family differ at their ends
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setSortingEnabled(true);
    sortByColumn(CountColumn, Qt::DescendingOrder);
    setIconSize({PaletteCell, PaletteCell});
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    headerItem()->setToolTip(SetColumn, QStringLiteral("Does the set draw it?"));
    setColumnHidden(SetColumn, true);
    connect(header(), &QHeaderView::sortIndicatorChanged, this, &ElementList::FitColumns);
    connect(this, &QTreeWidget::itemSelectionChanged, this, &ElementList::MarksChanged);
}

void ElementList::ShowElements(const LevelMap& map, const MapPainter& painter)
{
    std::map<int, int> counts;
    for (const qint32 cell : map.Cells())
        ++counts[cell];
    const std::set<int> selected = Selected();
    const QSignalBlocker quiet(this);
    clear();
    setSortingEnabled(false);
    for (const auto& [element, count] : counts) {
        const QString name = NamesOfElements().Name(element);
        auto* row = new ElementRow(this, {name.isEmpty() ? QStringLiteral("(unknown)") : name, QString::number(element),
                                          QString::number(count), QString()});
        row->setToolTip(NameColumn, QStringLiteral("%1, %2").arg(row->text(NameColumn), row->text(NumberColumn)));
        row->setIcon(NameColumn, QPixmap::fromImage(painter.Cell(element)));
        for (const int column : {NumberColumn, CountColumn})
            row->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        row->setSelected(selected.contains(element));
    }
    setSortingEnabled(true);
    TellDrawn();
}

/// Names need the room: the other columns are as wide as what stands in them, with the arrow only where it shows, and
/// numbers, which the tips tell too, give way to names.
void ElementList::FitColumns()
{
    const QFontMetrics letters = fontMetrics();
    const int margins = 2 * (style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header()) + 1);
    const int arrow = style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, header()) + margins / 2;
    const std::pair<int, const char*> columns[] = {{NumberColumn, "00000"}, {CountColumn, "00000"}, {SetColumn, "yes"}};
    int left = viewport()->width();
    for (const auto& [column, widest] : columns) {
        const int texts = qMax(letters.horizontalAdvance(QLatin1StringView(widest)),
                               letters.horizontalAdvance(headerItem()->text(column)));
        const int width = texts + margins + (column == sortColumn() ? arrow : 0);
        header()->setSectionResizeMode(column, QHeaderView::Fixed);
        header()->resizeSection(column, width);
        left -= column == SetColumn && !drawn ? 0 : width;
    }
    constexpr int NameLetters = 18;
    setColumnHidden(NumberColumn, left < iconSize().width() + letters.averageCharWidth() * NameLetters);
}

void ElementList::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    FitColumns();
}

void ElementList::SetDrawn(const std::optional<std::set<int>>& elements)
{
    drawn = elements;
    TellDrawn();
}

void ElementList::TellDrawn()
{
    undrawn = 0;
    setColumnHidden(SetColumn, !drawn);
    FitColumns();
    for (int i = 0; drawn && i < topLevelItemCount(); ++i) {
        const bool own = drawn->contains(NumberOf(*topLevelItem(i)));
        undrawn += !own;
        topLevelItem(i)->setText(SetColumn, own ? QStringLiteral("yes") : QStringLiteral("no"));
    }
}

void ElementList::SelectUndrawn()
{
    {
        const QSignalBlocker quiet(this);
        clearSelection();
        for (int i = 0; drawn && i < topLevelItemCount(); ++i)
            topLevelItem(i)->setSelected(!drawn->contains(NumberOf(*topLevelItem(i))));
    }
    emit MarksChanged();
}

std::set<int> ElementList::Selected() const
{
    std::set<int> selected;
    for (const QTreeWidgetItem* row : selectedItems())
        selected.insert(NumberOf(*row));
    return selected;
}

// Pages lead to the next level, whatever has the keyboard.
void ElementList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_PageDown || event->key() == Qt::Key_PageUp)
        event->ignore();
    else
        QTreeWidget::keyPressEvent(event);
}
