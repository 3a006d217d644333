#include "windows/floating_list.h"

#include "windows/dialog_help.h"
#include "windows/help_subject.h"

#include <QKeyEvent>
#include <QTreeWidget>
#include <QVBoxLayout>

FloatingList::FloatingList(QWidget* parent, const QString& name, const QString& helpSubject)
    : QFrame(parent), tree(new QTreeWidget(this)), subject(helpSubject)
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    SetHelpSubject(this, subject);
    tree->setObjectName(name);
    tree->setHeaderHidden(true);
    tree->setRootIsDecorated(false);
    tree->setUniformRowHeights(true);
    tree->installEventFilter(this);
    tree->viewport()->installEventFilter(this);
    const int margin = Pixels(*this, 7);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(tree);
    connect(tree, &QTreeWidget::itemClicked, this, &FloatingList::Choose);
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
    tree->setFocus(Qt::PopupFocusReason);
}

bool FloatingList::LeftFor(const QString& helpId)
{
    if (!isVisible())
        return false;
    if (helpId == subject)
        mouseWasHere = true;
    return mouseWasHere && helpId != subject;
}

void FloatingList::Choose(QTreeWidgetItem* item)
{
    const int index = tree->indexOfTopLevelItem(item);
    if (index >= 0)
        emit Chosen(index);
}

bool FloatingList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut && watched == tree) {
        const Qt::FocusReason why = static_cast<QFocusEvent*>(event)->reason();
        // Another window in front keeps the list; a click or Tab into another part of this one does not.
        if (why != Qt::ActiveWindowFocusReason && why != Qt::PopupFocusReason)
            hide();
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Choose(tree->currentItem());
            return true;
        }
    }
    if (event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(event)->button() == Qt::RightButton) {
        emit Dismissed();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}
