#include "windows/lists/recent_popup.h"

#include "frame/frame_state.h"
#include "platform/files/paths.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QTreeWidget>

RecentPopup::RecentPopup(QWidget* parent)
    : FloatingList(parent, new QTreeWidget, QStringLiteral("RecentList"), RecentSubject)
{
    setObjectName(QStringLiteral("RecentBack"));
    Tree()->setAccessibleName(QStringLiteral("Recent files"));
}

QTreeWidget* RecentPopup::Tree() const
{
    return static_cast<QTreeWidget*>(View());
}

void RecentPopup::Fill()
{
    Tree()->clear();
    for (const RecentEntry& entry : Frame.Recent) {
        auto* item = new QTreeWidgetItem(Tree(), {entry.Text});
        item->setIcon(0, ListImage(QStringLiteral("recent"), entry.Icon));
        item->setToolTip(0, paths::Native(entry.Path));
    }
    Tree()->setCurrentItem(Tree()->topLevelItem(0));
}

void RecentPopup::OpenOver(const QRect& paneArea)
{
    Open({paneArea.x() + Inset(), paneArea.y(), paneArea.width() / 2, paneArea.height()});
}
