#include "windows/find_box.h"

#include "frame/frame_state.h"
#include "windows/pane_commands.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

FindBox::FindBox(QWidget* parent) : QComboBox(parent)
{
    setObjectName(QStringLiteral("cmbFind"));
    setAccessibleName(QStringLiteral("Find"));
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    // A completed text would search for more than was typed.
    setCompleter(nullptr);
    lineEdit()->setPlaceholderText(QStringLiteral("Find"));
    lineEdit()->setAccessibleName(accessibleName());
    connect(this, &QComboBox::textActivated, this, SearchFor);
}

QSize FindBox::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 26, QComboBox::sizeHint().height()};
}

QSize FindBox::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 12, QComboBox::minimumSizeHint().height()};
}

void FindBox::focusInEvent(QFocusEvent* event)
{
    // The list has just closed over a choice that is still to be told.
    if (event->reason() != Qt::PopupFocusReason)
        Refill();
    QComboBox::focusInEvent(event);
}

void FindBox::focusOutEvent(QFocusEvent* event)
{
    // The component counts leaving as a pick if the typed text stands in the list.
    const QSignalBlocker quiet(this);
    QComboBox::focusOutEvent(event);
}

void FindBox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        SearchFor(currentText());
    else if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up)
        showPopup(); // the component would search for each item on the way
    else
        QComboBox::keyPressEvent(event);
}

void FindBox::Refill()
{
    const QSignalBlocker quiet(this);
    const QString typed = currentText();
    clear();
    if (!Frame.Globals.FindMRUList.isEmpty())
        addItems(Frame.Globals.FindMRUList.split(u'\n').mid(0, Frame.Settings.FindHistoryLimit));
    setCurrentIndex(-1);
    setEditText(typed);
}
