#include "windows/lists/comment_tree.h"

#include "conf/comments.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "windows/parts/help_subject.h"
#include "windows/parts/icons.h"

#include <QHash>
#include <QTreeWidget>

CommentTree::CommentTree(QWidget* parent)
    : FloatingList(parent, new QTreeWidget, QStringLiteral("TreeOfComments"), CommentSubject)
{
    setObjectName(QStringLiteral("cmdTreeBorder"));
    Tree()->setAccessibleName(QStringLiteral("Comment separators"));
    connect(this, &FloatingList::Chosen, this, &CommentTree::Goto);
    connect(this, &FloatingList::Dismissed, this, [] { Tools().CloseLists(); });
}

QTreeWidget* CommentTree::Tree() const
{
    return static_cast<QTreeWidget*>(View());
}

void CommentTree::Fill()
{
    Tree()->clear();
    lines.clear();
    const auto nodes = FindSeparators(CurrentPane().Bytes(), CurrentMarks(), Frame.Settings.SortGotoList == 1);
    QHash<int, QIcon> images;
    QList<QTreeWidgetItem*> items;
    for (const SeparatorNode& node : nodes) {
        lines << node.Line;
        if (!images.contains(node.Image))
            images.insert(node.Image, ListImage(QStringLiteral("goto"), node.Image));
        items << new QTreeWidgetItem({node.Text});
        items.last()->setIcon(0, images.value(node.Image));
    }
    Tree()->addTopLevelItems(items);
    Tree()->setCurrentItem(Tree()->topLevelItem(0));
}

void CommentTree::OpenOver(const QRect& paneArea)
{
    const int width = paneArea.width() / 3;
    Open({paneArea.right() + 1 - width + Inset(), paneArea.y(), width - Inset(), paneArea.height()});
}

void CommentTree::Goto(int index)
{
    EditorPane& pane = CurrentPane();
    const int line = LineOfSeparator(pane.Bytes(), lines.at(index));
    if (line >= 0)
        pane.ExecuteCmd(CmdGotoLine, line);
}
