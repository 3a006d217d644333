#include "windows/parts/icon_grid.h"

#include "conf/comments.h"
#include "windows/parts/dialog_help.h"
#include "windows/parts/icons.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int Columns = 25;
constexpr int Rows = 3;
constexpr int CellAt96Dpi = 18;

} // namespace

IconGrid::IconGrid(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(QStringLiteral("Goto List Icon"));
}

void IconGrid::Choose(int index)
{
    chosen = qBound(0, index, IconCount - 1);
    setAccessibleDescription(chosen == 0 ? QStringLiteral("no code") : IconCode(chosen));
    update();
}

int IconGrid::CellSize() const
{
    return Pixels(*this, CellAt96Dpi);
}

QRect IconGrid::CellOf(int index) const
{
    const int cell = CellSize();
    return {index % Columns * cell, index / Columns * cell, cell, cell};
}

int IconGrid::IndexAt(const QPoint& place) const
{
    const int column = qBound(0, place.x() / CellSize(), Columns - 1);
    const int row = qBound(0, place.y() / CellSize(), Rows - 1);
    return qMin(row * Columns + column, IconCount - 1);
}

QSize IconGrid::sizeHint() const
{
    return {Columns * CellSize() + 1, Rows * CellSize() + 1};
}

void IconGrid::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int index = 0; index < IconCount; ++index)
        ListImage(QStringLiteral("goto"), index + 1).paint(&painter, CellOf(index).adjusted(1, 1, -1, -1));
    painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::WindowText), 2));
    painter.drawRect(CellOf(chosen).adjusted(1, 1, -1, -1));
}

void IconGrid::mouseReleaseEvent(QMouseEvent* event)
{
    Choose(IndexAt(event->position().toPoint()));
}

void IconGrid::keyPressEvent(QKeyEvent* event)
{
    struct Move
    {
        int Key, Step;
    };
    static constexpr Move Moves[] = {
        {Qt::Key_Left, -1}, {Qt::Key_Right, 1}, {Qt::Key_Up, -Columns}, {Qt::Key_Down, Columns}};
    for (const Move& move : Moves) {
        if (event->key() == move.Key) {
            Choose(chosen + move.Step);
            return;
        }
    }
    QWidget::keyPressEvent(event);
}
