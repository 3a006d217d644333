#include "windows/find/find_box.h"

#include "frame/frame_state.h"
#include "windows/parts/pane_commands.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalBlocker>
#include <QWheelEvent>

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
    DimPlaceholder();
    connect(this, &QComboBox::textActivated, this, SearchFor);
}

/// Files are the window's, which opens them; a dropped text is taken.
bool FindBox::eventFilter(QObject* watched, QEvent* event)
{
    const bool arrives = event->type() == QEvent::DragEnter || event->type() == QEvent::DragMove;
    if (!arrives || !static_cast<QDropEvent*>(event)->mimeData()->hasUrls())
        return QComboBox::eventFilter(watched, event);
    event->ignore();
    return true;
}

QSize FindBox::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 26, QComboBox::sizeHint().height()};
}

QSize FindBox::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 12, QComboBox::minimumSizeHint().height()};
}

/// Half of the text's colour; the toolkit's own is black whatever the palette.
void FindBox::DimPlaceholder()
{
    QPalette colours = lineEdit()->palette();
    QColor dim = palette().color(QPalette::Text);
    dim.setAlpha(128);
    if (colours.color(QPalette::PlaceholderText) == dim)
        return;
    colours.setColor(QPalette::PlaceholderText, dim);
    lineEdit()->setPalette(colours);
}

void FindBox::changeEvent(QEvent* event)
{
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && lineEdit())
        DimPlaceholder();
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

/// The component would search for each entry that the wheel passes.
void FindBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
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
