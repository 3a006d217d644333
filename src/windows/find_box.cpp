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
    lineEdit()->installEventFilter(this);
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

bool FindBox::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        Refill();
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            SearchFor(currentText());
            return true;
        }
    }
    return QComboBox::eventFilter(watched, event);
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
