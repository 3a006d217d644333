#pragma once

#include "windows/parts/floating_list.h"

#include <QStringList>

class QTreeWidget;

/// "Goto Comment": the separators of the current document in the tree TreeOfComments, over the right third of the
/// pane. A pick puts the caret on the first line that equals the separator.
class CommentTree : public FloatingList
{
    Q_OBJECT

public:
    explicit CommentTree(QWidget* parent);

    QTreeWidget* Tree() const;
    /// `paneArea` in the parent's coordinates.
    void OpenOver(const QRect& paneArea);

protected:
    void Fill() override;

private:
    void Goto(int index);

    QStringList lines; ///< of the nodes
};
