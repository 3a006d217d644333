#include "windows/parts/floating_list.h"

#include "windows/parts/dialog_help.h"
#include "windows/parts/help_subject.h"

#include <QKeyEvent>
#include <QTreeView>
#include <QVBoxLayout>

FloatingList::FloatingList(QWidget* parent, QTreeView* list, const QString& name, const QString& helpSubject)
    : QFrame(parent), view(list), subject(helpSubject)
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    SetHelpSubject(this, subject);
    view->setObjectName(name);
    view->setHeaderHidden(true);
    view->setRootIsDecorated(false);
    view->setUniformRowHeights(true);
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    const int margin = Pixels(*this, 7);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(view);
    connect(view, &QTreeView::clicked, this, &FloatingList::Choose);
    hide();
}

int FloatingList::Inset() const
{
    return Pixels(*this, 5);
}

void FloatingList::Open(const QRect& place)
{
    mouseWasHere = false;
    Fill();
    setGeometry(place);
    show();
    raise();
    view->setFocus(Qt::PopupFocusReason);
}

bool FloatingList::LeftFor(const QString& helpId)
{
    if (!isVisible())
        return false;
    if (helpId == subject)
        mouseWasHere = true;
    return mouseWasHere && helpId != subject;
}

void FloatingList::Choose(const QModelIndex& index)
{
    if (index.isValid())
        emit Chosen(index.row());
}

bool FloatingList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut && watched == view) {
        const Qt::FocusReason why = static_cast<QFocusEvent*>(event)->reason();
        // Another window in front keeps the list; a click or Tab into another part of this one does not.
        if (why != Qt::ActiveWindowFocusReason && why != Qt::PopupFocusReason)
            hide();
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Choose(view->currentIndex());
            return true;
        }
    }
    if (event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        emit Dismissed();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}
