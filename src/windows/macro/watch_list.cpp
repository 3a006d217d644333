#include "windows/macro/watch_list.h"

#include <QLineEdit>
#include <QStyledItemDelegate>

namespace {

const QString Between = QStringLiteral(" = ");

/// Edits what stands behind the sign.
class ValueEditor : public QStyledItemDelegate
{
public:
    explicit ValueEditor(WatchList* list) : QStyledItemDelegate(list), owner(list) {}

    void setEditorData(QWidget* editor, const QModelIndex& index) const override
    {
        const QString line = index.data().toString();
        auto* value = static_cast<QLineEdit*>(editor);
        value->setText(line.mid(line.indexOf(Between) + Between.size()));
        value->selectAll();
    }
    void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const override
    {
        emit owner->ValueSet(index.row(), static_cast<QLineEdit*>(editor)->text());
    }

private:
    WatchList* owner;
};

} // namespace

WatchList::WatchList(QWidget* parent) : QListWidget(parent)
{
    setUniformItemSizes(true);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setItemDelegate(new ValueEditor(this));
    setToolTip(QStringLiteral("While a run stands still, F2 or a double click changes a variable"));
}

void WatchList::ShowLines(const QStringList& lines)
{
    const int kept = qMin(count(), int(lines.size()));
    for (int row = 0; row < kept; ++row)
        if (item(row)->text() != lines.at(row))
            item(row)->setText(lines.at(row));
    if (count() > kept)
        model()->removeRows(kept, count() - kept);
    else if (lines.size() > kept) {
        addItems(lines.mid(kept));
        for (int row = kept; row < count(); ++row)
            LetChangeItem(row);
    }
}

void WatchList::LetChange(int lines)
{
    const int last = qMin(count(), qMax(lines, std::exchange(changeable, lines)));
    for (int row = 0; row < last; ++row)
        LetChangeItem(row);
}

void WatchList::FinishChange()
{
    if (state() == EditingState)
        setFocus();
}

void WatchList::LetChangeItem(int row)
{
    const Qt::ItemFlags flags = item(row)->flags();
    item(row)->setFlags(row < changeable ? flags | Qt::ItemIsEditable : flags & ~Qt::ItemIsEditable);
}
