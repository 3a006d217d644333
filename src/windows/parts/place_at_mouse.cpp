#include "windows/parts/place_at_mouse.h"

#include "windows/parts/dialog_help.h"
#include "windows/parts/window_position.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

QPoint PlaceAtMouse(QPoint mouse, QSize window, QPoint offset, const QRect& screen)
{
    const int left = mouse.x() - window.width() / 2 + offset.x();
    const int top = mouse.y() - window.height() / 2 + offset.y();
    return {qMax(screen.left(), qMin(left, screen.right() + 1 - window.width())),
            qMax(screen.top(), qMin(top, screen.bottom() + 1 - window.height()))};
}

void MoveToMouse(QWidget& window, QPoint offset)
{
    const QPoint mouse = QCursor::pos();
    const QScreen* screen = QGuiApplication::screenAt(mouse);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    // The system adds a title above the size.
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    QRect wished(QPoint(), window.sizeHint());
    wished.moveCenter(mouse);
    window.resize(OnScreen(wished, window.minimumSizeHint()).size());
    const QSize size = window.size() + QSize(0, title);
    window.move(PlaceAtMouse(mouse, size, {Pixels(window, offset.x()), Pixels(window, offset.y())},
                             screen->availableGeometry()));
}
