#include "windows/media/macro_tree.h"

#include "frame/frame_state.h"
#include "frame/media/media_lists.h"
#include "windows/media/media_style.h"
#include "windows/parts/icons.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int TagRole = Qt::UserRole; // the file's name
enum MacroImage { PlainMacro = 1, HotKeyMacro };

/// `file` without its folder and ending, as the tree shows it.
QString Shown(const QString& file)
{
    const QString name = file.section(u'.', 0, -2).toLower();
    return name.startsWith(u'$') ? QStringLiteral("(Alt+") + name.mid(1, 1) + QStringLiteral(") - ") + name.mid(2)
                                 : name;
}

} // namespace

MacroTree::MacroTree(QWidget* parent) : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("TreeMacro"));
    setAccessibleName(QStringLiteral("Macros"));
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setFocusPolicy(Qt::TabFocus);
}

void MacroTree::BuildMacroTree()
{
    const QString before = currentItem() && SelectedRow() >= 0 ? currentItem()->data(0, TagRole).toString() : QString();
    clear();
    const MediaListModel& files = Lists().Macros;
    for (int row = 0; row < files.rowCount(); ++row) {
        const QString file = files.Name(row);
        auto* node = new QTreeWidgetItem(this, {Shown(file)});
        node->setIcon(0, ListImage(QStringLiteral("macro"), file.startsWith(u'$') ? HotKeyMacro : PlainMacro));
        node->setData(0, TagRole, file);
        if (file == before)
            setCurrentItem(node);
    }
}

void MacroTree::SetStyle()
{
    GiveMediaStyle(*this);
}

int MacroTree::SelectedRow() const
{
    const QList<QTreeWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? -1 : indexOfTopLevelItem(selected.constFirst());
}

void MacroTree::SelectRow(int row)
{
    if (QTreeWidgetItem* node = topLevelItem(row))
        setCurrentItem(node);
}

QString MacroTree::SelectedPath() const
{
    const QTreeWidgetItem* node = topLevelItem(SelectedRow());
    const QString tag = node ? node->data(0, TagRole).toString() : QString();
    return tag.isEmpty() ? QString() : Frame.MacrosFolder + tag;
}

void MacroTree::StartSelected()
{
    if (const QString path = SelectedPath(); !path.isEmpty())
        emit Started(path);
}

void MacroTree::mousePressEvent(QMouseEvent* event)
{
    setCurrentItem(itemAt(event->position().toPoint()));
    event->accept();
    emit Pressed();
    if (const QString path = SelectedPath(); event->button() == Qt::RightButton && !path.isEmpty())
        emit Opened(path);
}

void MacroTree::mouseDoubleClickEvent(QMouseEvent* event)
{
    setCurrentItem(itemAt(event->position().toPoint()));
    if (event->button() == Qt::LeftButton)
        StartSelected();
}

void MacroTree::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        StartSelected();
    else
        QTreeWidget::keyPressEvent(event);
}

void MacroTree::paintEvent(QPaintEvent* event)
{
    QTreeWidget::paintEvent(event);
    if (topLevelItemCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(6, 6, -6, -6), Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     QStringLiteral("No macros yet"));
}
