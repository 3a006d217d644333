#include "windows/options/setting_finder.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <algorithm>

namespace {

constexpr int NumberRole = Qt::UserRole, WordsRole = Qt::UserRole + 1;
constexpr int RowsShown = 14;

} // namespace

/// The entries that hold all wanted words, wherever and in whatever case.
class FoundSettings : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void Want(const QString& text)
    {
        wanted = text.split(u' ', Qt::SkipEmptyParts);
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override
    {
        const QString words = sourceModel()->index(row, 0, parent).data(WordsRole).toString();
        return !wanted.isEmpty() && std::ranges::all_of(wanted, [&](const QString& word) {
            return words.contains(word, Qt::CaseInsensitive);
        });
    }

private:
    QStringList wanted;
};

SettingFinder::SettingFinder(QWidget* parent)
    : QLineEdit(parent), all(new QStandardItemModel(this)), found(new FoundSettings(this)), list(new QCompleter(this))
{
    setObjectName(QStringLiteral("txtFindSetting"));
    setAccessibleName(QStringLiteral("Find a setting"));
    setPlaceholderText(QStringLiteral("Find a setting (Ctrl+F)"));
    setClearButtonEnabled(true);
    found->setSourceModel(all);
    list->setModel(found);
    list->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    list->setMaxVisibleItems(RowsShown);
    list->popup()->setObjectName(QStringLiteral("lstFoundSettings"));
    connect(this, &QLineEdit::textEdited, found, &FoundSettings::Want); // before the list of them opens
    setCompleter(list);
    // A line edit that loses the keyboard cuts all ties from its completer to itself.
    connect(list, qOverload<const QModelIndex&>(&QCompleter::activated), found,
            [this](const QModelIndex& index) { Choose(index.data(NumberRole).toInt()); });
    connect(this, &QLineEdit::returnPressed, this, &SettingFinder::ChooseFirst);
}

void SettingFinder::Add(const QString& shown, const QString& words)
{
    auto* item = new QStandardItem(shown);
    item->setData(all->rowCount(), NumberRole);
    item->setData(QString(shown + u' ' + words), WordsRole);
    all->appendRow(item);
}

QStringList SettingFinder::Found() const
{
    QStringList shown;
    for (int row = 0; row < found->rowCount(); ++row)
        shown << found->index(row, 0).data().toString();
    return shown;
}

/// Once the list has closed and written what it holds into the line.
void SettingFinder::Choose(int number)
{
    QMetaObject::invokeMethod(
        this,
        [this, number] {
            clear();
            found->Want({});
            emit Chosen(number);
        },
        Qt::QueuedConnection);
}

/// Enter without an entry picked takes the first one.
void SettingFinder::ChooseFirst()
{
    const bool picked = list->popup()->isVisible() && list->popup()->currentIndex().isValid();
    if (picked || found->rowCount() == 0)
        return;
    Choose(found->index(0, 0).data(NumberRole).toInt());
}
