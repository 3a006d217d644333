#include "windows/sheet/sheet_ground.h"

#include <QPainter>
#include <QPixmap>

namespace {

constexpr int CheckSize = 8;

QPixmap CheckerTile()
{
    QPixmap tile(2 * CheckSize, 2 * CheckSize);
    tile.fill(QColor(0x66, 0x66, 0x66));
    QPainter painter(&tile);
    for (const QPoint corner : {QPoint(0, 0), QPoint(CheckSize, CheckSize)})
        painter.fillRect(QRect(corner, QSize(CheckSize, CheckSize)), QColor(0x99, 0x99, 0x99));
    return tile;
}

} // namespace

QBrush GroundBrush(SheetGround kind)
{
    static const QBrush checker(CheckerTile());
    const QBrush brushes[] = {checker, Qt::black, Qt::white};
    return brushes[int(kind)];
}
