#pragma once

#include <QRect>
#include <Qt>

class QWidget;

/// Section `Window Positions`, in pixels.
struct WindowPosition
{
    QRect Place;
    Qt::WindowState State = Qt::WindowNoState;
};
WindowPosition StoredPosition();
/// Writes where the window is; of a maximised one the place that it goes back to.
void StorePosition(const QWidget& window);

/// `place`, not below `least`, moved and cut so that it lies on a screen that is there now.
QRect OnScreen(const QRect& place, const QSize& least);
/// Gives a window that does not show yet a size, cut to the room on its screen.
void ResizeOnScreen(QWidget& window, const QSize& size);
