#include "windows/parts/word_list.h"

#include "windows/parts/dialog_help.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScopedValueRollback>
#include <QVBoxLayout>

namespace {

/// The toolkit's own wish is a list of twice the size.
class SmallList : public QListView
{
public:
    using QListView::QListView;
    QSize sizeHint() const override { return {Pixels(*this, 140), Pixels(*this, 124)}; }
};

} // namespace

WordList::WordList(const QString& name, const QString& label, const QStringList& all, QWidget* parent)
    : QWidget(parent), words(all), line(new QLineEdit(this)), list(new SmallList(this))
{
    setObjectName(name);
    auto* title = new QLabel(label, this);
    title->setBuddy(line);
    line->setAccessibleName(label);
    line->installEventFilter(this);
    list->setAccessibleName(label);
    list->setUniformItemSizes(true);
    list->setModel(&words);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    for (QWidget* part : std::initializer_list<QWidget*>{title, line, list})
        column->addWidget(part);
    connect(line, &QLineEdit::textEdited, this, &WordList::Seek);
    // Selection and not current index: the latter also changes when the list gets the focus.
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this, &WordList::Pick);
    connect(list, &QListView::clicked, this, &WordList::Pick);
}

void WordList::SetText(const QString& text)
{
    const QScopedValueRollback quiet(filling, true);
    word = text;
    line->setText(text);
    line->setCursorPosition(0);
    const qsizetype row = words.stringList().indexOf(text, 0);
    list->selectionModel()->setCurrentIndex(words.index(int(row)), QItemSelectionModel::ClearAndSelect);
    list->scrollTo(words.index(int(row)), QAbstractItemView::PositionAtCenter);
}

/// Leads to a word without picking it.
void WordList::Seek(const QString& text)
{
    const QModelIndexList found = words.match(words.index(0), Qt::DisplayRole, text, 1, Qt::MatchStartsWith);
    if (text.isEmpty() || found.isEmpty())
        return;
    list->selectionModel()->setCurrentIndex(found.constFirst(), QItemSelectionModel::NoUpdate);
    list->scrollTo(found.constFirst(), QAbstractItemView::PositionAtTop);
}

void WordList::Pick()
{
    const QModelIndexList selected = list->selectionModel()->selectedIndexes();
    const QString chosen = selected.isEmpty() ? QString() : selected.constFirst().data().toString();
    if (filling || chosen.isEmpty())
        return;
    word = chosen;
    line->setText(word);
    emit Picked(word);
}

bool WordList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != line || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        list->selectionModel()->setCurrentIndex(list->currentIndex(), QItemSelectionModel::ClearAndSelect);
        Pick();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(list, event);
        return true;
    default:
        return false;
    }
}
