#include "windows/media/media_view.h"

#include "frame/media/media_lists.h"
#include "windows/media/media_style.h"
#include "windows/media/media_tip.h"
#include "windows/media/thumbnails.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QToolTip>
#include <QUrl>
#include <algorithm>

MediaView::MediaView(MediaSource list, const char* name, QWidget* parent)
    : QListView(parent), source(list), filter(new QLineEdit(this)), thumbnails(new Thumbnails(*this))
{
    setObjectName(QString::fromLatin1(name));
    setUniformItemSizes(true);
    setFocusPolicy(Qt::TabFocus);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setTextElideMode(Qt::ElideMiddle);
    shown.setFilterCaseSensitivity(Qt::CaseInsensitive);
    filter->setObjectName(objectName() + QStringLiteral("Filter"));
    filter->setAccessibleName(QStringLiteral("Filter"));
    filter->setPlaceholderText(QStringLiteral("Filter"));
    filter->setClearButtonEnabled(true);
    filter->hide();
    setItemDelegate(thumbnails);
    filter->installEventFilter(this);
    connect(filter, &QLineEdit::textChanged, this, &MediaView::Narrow);
}

MediaListModel& MediaView::List() const
{
    return Lists().List(source);
}

void MediaView::Attach()
{
    if (model())
        return;
    shown.setSourceModel(&List());
    setModel(&shown);
}

void MediaView::showEvent(QShowEvent* event)
{
    Attach();
    QListView::showEvent(event);
}

// Where the keyboard comes in there is something to move from.
void MediaView::focusInEvent(QFocusEvent* event)
{
    QListView::focusInEvent(event);
    if (SelectedRow() < 0 && shown.rowCount() > 0)
        setCurrentIndex(shown.index(0, 0));
}

MediaHit MediaView::Entry() const
{
    return {source, SelectedRow(), Selected()};
}

QString MediaView::Selected() const
{
    return List().Name(SelectedRow());
}

int MediaView::SelectedRow() const
{
    const QModelIndexList selected = model() ? selectionModel()->selectedIndexes() : QModelIndexList();
    return selected.isEmpty() ? -1 : shown.mapToSource(selected.first()).row();
}

void MediaView::SelectRow(int row)
{
    if (!model() && row < 0)
        return;
    Attach();
    const QModelIndex index = shown.mapFromSource(List().index(row));
    if (!index.isValid()) {
        selectionModel()->clear();
        return;
    }
    setCurrentIndex(index);
    scrollTo(index, PositionAtCenter);
}

QString MediaView::Path() const
{
    const QString name = Selected();
    return name.isEmpty() ? QString() : List().Folder() + name;
}

QString MediaView::PathOf(const QModelIndex& index) const
{
    return List().Folder() + index.data().toString();
}

void MediaView::Narrow(const QString& text)
{
    shown.setFilterFixedString(text);
    if (filter->text() != text)
        filter->setText(text);
    filter->setVisible(!text.isEmpty() || filter->hasFocus());
    PlaceFilter();
    if (!text.isEmpty() && SelectedRow() < 0 && shown.rowCount() > 0)
        setCurrentIndex(shown.index(0, 0));
    else if (SelectedRow() >= 0)
        scrollTo(currentIndex());
}

void MediaView::OpenFilter(const QString& text)
{
    filter->show();
    filter->setFocus(Qt::ShortcutFocusReason);
    if (!text.isEmpty())
        filter->setText(text);
    PlaceFilter();
}

void MediaView::EndFilter()
{
    if (filter->hasFocus())
        setFocus(Qt::OtherFocusReason);
    Narrow({});
}

bool MediaView::HasKeyboard() const
{
    return hasFocus() || filter->hasFocus();
}

void MediaView::SetStyle()
{
    GiveMediaStyle(*this);
    scheduleDelayedItemsLayout(); // rows have another height with pictures
}

void MediaView::LookAtPictures()
{
    thumbnails->LookAgain();
}

void MediaView::Follow(const QString& text)
{
    if (folder != List().Folder())
        EndFilter();
    folder = List().Folder();
    note = text;
    viewport()->update();
}

/// The line has a row of its own at the list's foot.
void MediaView::PlaceFilter()
{
    const int high = filter->isVisibleTo(this) ? filter->sizeHint().height() : 0;
    setViewportMargins(0, 0, 0, high);
    const QRect inside = contentsRect();
    filter->setGeometry(inside.x(), inside.bottom() + 1 - high, inside.width(), high);
}

void MediaView::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    const QRect inside = contentsRect();
    filter->setGeometry(inside.x(), inside.bottom() + 1 - filter->height(), inside.width(), filter->height());
}

// The component's own press would take back the selection with Ctrl held.
void MediaView::PressAt(QMouseEvent& event)
{
    const QModelIndex index = indexAt(event.position().toPoint());
    if (index.isValid())
        setCurrentIndex(index);
    pressedAt = event.position().toPoint();
    mayDrag = index.isValid() && event.button() == Qt::LeftButton;
    event.accept();
    emit Pressed(mayDrag && event.modifiers().testFlag(Qt::ControlModifier));
}

void MediaView::mousePressEvent(QMouseEvent* event)
{
    PressAt(*event);
}

void MediaView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint way = event->position().toPoint() - pressedAt;
    if (mayDrag && event->buttons() == Qt::LeftButton && way.manhattanLength() >= QApplication::startDragDistance())
        DragEntry();
}

void MediaView::mouseReleaseEvent(QMouseEvent*)
{
    mayDrag = false;
}

// With Ctrl held every press inserts, however fast.
void MediaView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || event->modifiers().testFlag(Qt::ControlModifier))
        PressAt(*event);
    else if (const QModelIndex index = indexAt(event->position().toPoint()); index.isValid()) {
        setCurrentIndex(index);
        emit Opened();
    }
}

void MediaView::DragEntry()
{
    mayDrag = false;
    if (Selected().isEmpty())
        return;
    auto* dragged = new QMimeData;
    dragged->setText(Selected());
    dragged->setUrls({QUrl::fromLocalFile(Path())});
    auto* drag = new QDrag(this);
    drag->setMimeData(dragged);
    drag->exec(Qt::CopyAction);
}

void MediaView::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const QString typed = event->text();
    const Qt::KeyboardModifiers keys = event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (enter && keys == Qt::ControlModifier)
        emit Inserted();
    else if (enter && !Selected().isEmpty())
        emit Opened();
    else if (!enter && keys == Qt::NoModifier && !typed.isEmpty() && typed[0].isPrint())
        OpenFilter(filter->text() + typed);
    else
        QListView::keyPressEvent(event);
}

void MediaView::contextMenuEvent(QContextMenuEvent* event)
{
    const QPoint entry = visualRect(currentIndex()).center();
    emit MenuWanted(event->reason() == QContextMenuEvent::Keyboard ? viewport()->mapToGlobal(entry)
                                                                   : event->globalPos());
    event->accept();
}

void MediaView::paintEvent(QPaintEvent* event)
{
    QListView::paintEvent(event);
    const QString text = filter->text().isEmpty() ? note : QStringLiteral("Nothing fits the filter");
    if (text.isEmpty() || shown.rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const QRect room = viewport()->rect().adjusted(6, 6, -6, -6);
    painter.drawText(room, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, text);
}

bool MediaView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QListView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    if (index.isValid())
        QToolTip::showText(help->globalPos(), MediaTip(PathOf(index)), viewport(), visualRect(index));
    else
        QToolTip::hideText();
    return true;
}

bool MediaView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == filter && event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        constexpr Qt::Key Moves[] = {Qt::Key_Up,       Qt::Key_Down,   Qt::Key_PageUp,
                                     Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter};
        if (std::ranges::find(Moves, key.key()) != std::end(Moves)) {
            keyPressEvent(static_cast<QKeyEvent*>(event));
            return true;
        }
    }
    if (watched == filter && event->type() == QEvent::FocusOut && filter->text().isEmpty() &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::ActiveWindowFocusReason) {
        filter->hide();
        PlaceFilter();
    }
    return QListView::eventFilter(watched, event);
}
