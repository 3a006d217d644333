#pragma once

#include <QRect>
#include <Qt>

/// Section `Window Positions`, in pixels.
struct WindowPosition
{
    QRect Place;
    Qt::WindowState State = Qt::WindowNoState;
};
WindowPosition StoredPosition();

/// `place`, not below `least`, moved and cut so that it lies on a screen that is there now.
QRect OnScreen(const QRect& place, const QSize& least);
