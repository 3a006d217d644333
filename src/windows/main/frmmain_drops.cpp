#include "windows/main/frmmain.h"

#include "frame/documents/documents.h"
#include "windows/main/dropped_files.h"
#include "windows/media/media_tabs.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QTimer>

// What is dropped on the window beside its panes.

void frmmain::dragEnterEvent(QDragEnterEvent* event)
{
    TakeDrag(*event);
}

void frmmain::dragMoveEvent(QDragMoveEvent* event)
{
    TakeDrag(*event);
}

/// What comes from a list of our own is for the text alone: a hand that slips on the list drops nothing.
void frmmain::TakeDrag(QDropEvent& event) const
{
    if (ssML->isAncestorOf(qobject_cast<QWidget*>(event.source())) || LocalFiles(*event.mimeData()).isEmpty())
        event.ignore();
    else
        AcceptAsCopy(event);
}

void frmmain::dropEvent(QDropEvent* event)
{
    const QStringList files = LocalFiles(*event->mimeData());
    AcceptAsCopy(*event);
    QTimer::singleShot(0, this, [files] { DropIntoText(files, CurrentPane().GetSel(true)); });
}
