#include "windows/lists/block_list.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "windows/parts/help_subject.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeView>

namespace {

/// Keys that move in the list; all others go to the filter.
bool IsListKey(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    default:
        return false;
    }
}

} // namespace

BlockList::BlockList(QWidget* parent)
    : FloatingList(parent, new QTreeView, QStringLiteral("ListOfBlocks"), BlockSubject), filter(new QLineEdit(this))
{
    setObjectName(QStringLiteral("BlockListBorder"));
    View()->setAccessibleName(QStringLiteral("Element blocks"));
    View()->setModel(&model);
    // The list keeps the keyboard and passes on what is typed.
    filter->setFocusPolicy(Qt::NoFocus);
    filter->setPlaceholderText(QStringLiteral("Type to narrow the list"));
    filter->setClearButtonEnabled(true);
    static_cast<QBoxLayout*>(layout())->insertWidget(0, filter);
    connect(filter, &QLineEdit::textChanged, this, &BlockList::Narrow);
    connect(this, &FloatingList::Chosen, this, &BlockList::Goto);
    connect(this, &FloatingList::Dismissed, this, [] { Tools().CloseLists(); });
}

void BlockList::OpenOver(const QRect& paneArea)
{
    model.Show(FindBlocks(CurrentPane().Bytes(), Frame.Settings.SheetKinds));
    if (model.IsEmpty()) {
        ShowNotice(QStringLiteral("There are no element blocks in this text."));
        return;
    }
    const int width = paneArea.width() / 3;
    Open({paneArea.right() + 1 - width + Inset(), paneArea.y(), width - Inset(), paneArea.height()});
}

void BlockList::Fill()
{
    filter->clear();
    Narrow({});
}

/// The current block stays in view where it is shown.
void BlockList::Narrow(const QString& words)
{
    model.Filter(words);
    const QModelIndex index = model.index(words.isEmpty() ? model.RowAbove(CurrentPane().GetSel(true).StartLine) : 0);
    View()->setCurrentIndex(index);
    View()->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

void BlockList::Goto(int row)
{
    CurrentPane().ExecuteCmd(CmdGotoLine, model.LineOf(row));
    Tools().CloseLists();
}

bool BlockList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == View() && event->type() == QEvent::KeyPress && !IsListKey(*static_cast<QKeyEvent*>(event))) {
        QCoreApplication::sendEvent(filter, event);
        return true;
    }
    return FloatingList::eventFilter(watched, event);
}
