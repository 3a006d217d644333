#include "windows/recent_popup.h"

#include "frame/frame_state.h"
#include "platform/paths.h"
#include "windows/dialog_help.h"
#include "windows/help_subject.h"
#include "windows/icons.h"

#include <QKeyEvent>
#include <QTreeWidget>
#include <QVBoxLayout>

RecentPopup::RecentPopup(QWidget* parent) : QFrame(parent), tree(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("RecentBack"));
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    SetHelpSubject(this, RecentSubject);
    tree->setObjectName(QStringLiteral("RecentList"));
    tree->setAccessibleName(QStringLiteral("Recent files"));
    tree->setHeaderHidden(true);
    tree->setRootIsDecorated(false);
    tree->setUniformRowHeights(true);
    tree->installEventFilter(this);
    const int margin = Pixels(*this, 7);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(tree);
    connect(tree, &QTreeWidget::itemClicked, this, &RecentPopup::Choose);
    hide();
}

void RecentPopup::Fill()
{
    tree->clear();
    for (const RecentEntry& entry : Frame.Recent) {
        auto* item = new QTreeWidgetItem(tree, {entry.Text});
        item->setIcon(0, ListImage(QStringLiteral("recent"), entry.Icon));
        item->setToolTip(0, paths::Native(entry.Path));
    }
    tree->setCurrentItem(tree->topLevelItem(0));
}

void RecentPopup::Open(const QRect& paneArea)
{
    Fill();
    const int inset = Pixels(*this, 5);
    setGeometry(paneArea.x() + inset, paneArea.y(), paneArea.width() / 2, paneArea.height());
    show();
    raise();
    tree->setFocus(Qt::PopupFocusReason);
}

void RecentPopup::Choose(QTreeWidgetItem* item)
{
    const int index = tree->indexOfTopLevelItem(item);
    if (index >= 0)
        emit Chosen(index);
}

bool RecentPopup::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut) {
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
    return QFrame::eventFilter(watched, event);
}
