#pragma once

#include "windows/parts/floating_list.h"

class QTreeWidget;

/// The recent list: the tree RecentList in its frame RecentBack, over the left half of the pane.
class RecentPopup : public FloatingList
{
    Q_OBJECT

public:
    explicit RecentPopup(QWidget* parent);

    void Fill() override; ///< from Frame.Recent
    QTreeWidget* Tree() const;
    /// `paneArea` in the parent's coordinates.
    void OpenOver(const QRect& paneArea);
};
