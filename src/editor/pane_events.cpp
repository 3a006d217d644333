#include "editor/pane.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QPaintEvent>
#include <QUrl>
#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

namespace {

QStringList LocalFiles(const QMimeData* data)
{
    QStringList paths;
    const QList<QUrl> urls = data->urls();
    for (const QUrl& url : urls)
        if (url.isLocalFile())
            paths << url.toLocalFile();
    return paths;
}

} // namespace

bool ScintillaPane::eventFilter(QObject* watched, QEvent* event)
{
    if (!text.Widget())
        return false;
    return watched == text.Widget() ? WidgetEvent(event) : ViewportEvent(event);
}

bool ScintillaPane::WidgetEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        return ClaimKey(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyPress:
        return KeyPressed(*static_cast<QKeyEvent*>(event));
    case QEvent::FocusIn:
        emit FocusGained();
        return false;
    case QEvent::ContextMenu:
        return ContextMenu(event);
    case QEvent::InputMethod:
        SettleSoon();
        return false;
    case QEvent::EnabledChange:
        return true; // the component would take the desktop's colours, and keep them when it is enabled again
    case QEvent::FocusOut:
    case QEvent::Hide:
        codeList.Close();
        return false;
    default:
        return false;
    }
}

bool ScintillaPane::ViewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Paint:
        BeforePaint(static_cast<QPaintEvent*>(event)->region());
        return false;
    case QEvent::Resize:
        codeList.Close();
        return false;
    case QEvent::MouseButtonPress:
        codeList.Close();
        return MousePress(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove:
        SettleSoon();
        emit MouseMoved();
        return false;
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        SettleSoon();
        return false;
    case QEvent::ContextMenu:
        return ContextMenu(event);
    case QEvent::ToolTip:
        return ShowHover(*static_cast<QHelpEvent*>(event));
    case QEvent::DragLeave:
        dropPlace.Hide();
        return false;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return TakeFiles(*static_cast<QDropEvent*>(event));
    default:
        return false;
    }
}

/// New colours ask for a paint of their lines; where the whole view is about to be painted that would be a second one.
void ScintillaPane::BeforePaint(const QRegion& region)
{
    QWidget* viewport = text.Widget()->viewport();
    const bool whole = QRegion(viewport->rect()).subtracted(region).isEmpty();
    const bool locked = viewport->testAttribute(Qt::WA_UpdatesDisabled);
    viewport->setAttribute(Qt::WA_UpdatesDisabled, whole || locked);
    colouring.ColourView();
    viewport->setAttribute(Qt::WA_UpdatesDisabled, locked);
    marks->Follow();
    if (const LineSpan lines = VisibleLines(); std::exchange(shownLines, lines) != lines)
        QMetaObject::invokeMethod(this, &EditorPane::ViewMoved, Qt::QueuedConnection); // not inside a paint
}

/// The menu is the window's; the menu key counts as a press of the right button.
bool ScintillaPane::ContextMenu(QEvent* event)
{
    if (static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard)
        emit MousePressed(Qt::RightButton, Qt::NoModifier);
    event->accept();
    return true;
}

/// In the margins, where somebody listens.
bool ScintillaPane::PressBesideText(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton || !marks->TakesPress(event.position().toPoint()))
        return false;
    const int height = int(text.Send(Sci::SCI_TEXTHEIGHT, 0L));
    const int line = int(text.Send(Sci::SCI_GETFIRSTVISIBLELINE)) + int(event.position().y()) / height;
    if (IsLine(line))
        emit MarginPressed(line);
    return true;
}

bool ScintillaPane::MousePress(QMouseEvent& event)
{
    if (PressBesideText(event)) {
        event.accept();
        return true;
    }
    const Qt::MouseButton button = event.button();
    const Qt::KeyboardModifiers keys = event.modifiers();
    const bool alt = keys & Qt::AltModifier;
    const bool shortcut = alt && !(keys & Qt::ShiftModifier);
    if (button == Qt::RightButton || shortcut) { // the component would go on selecting up to the release
        PutCaretAt(event.position().toPoint(), shortcut);
        event.accept();
        emit MousePressed(button, keys);
        return true;
    }
    SettleSoon();
    // The component moves the caret first: who listens works on what stands there.
    QMetaObject::invokeMethod(
        this, [=, this] { emit MousePressed(button, keys); }, Qt::QueuedConnection);
    return false;
}

/// Into the clicked place; not `always`: unless that is selected.
void ScintillaPane::PutCaretAt(QPoint place, bool always)
{
    const Work work(*this);
    const qsizetype position = text.Send(Sci::SCI_POSITIONFROMPOINT, place.x(), long(place.y()));
    const RawSelection selected = text.Selection();
    if (always || position < selected.Start() || position > selected.End() || selected.Start() == selected.End())
        text.Select(position, position);
}

/// Files are told, never inserted; everything else that is dropped is the component's.
bool ScintillaPane::TakeFiles(QDropEvent& event)
{
    const QStringList files = LocalFiles(event.mimeData());
    if (files.isEmpty()) {
        SettleSoon();
        return false;
    }
    event.setDropAction(Qt::CopyAction);
    event.accept();
    const QPoint point = event.position().toPoint();
    if (event.type() == QEvent::Drop) {
        const qsizetype position = dropPlace.At(point);
        const int line = text.LineOf(position), column = text.ColumnOf(position);
        dropPlace.Hide();
        emit FilesDropped(files, {line, column, line, column});
    } else if (LeaveNames && LeaveNames(files)) {
        dropPlace.Show(point);
    }
    return true;
}
