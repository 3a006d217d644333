#pragma once

#include <QPoint>
#include <QRect>

class QWidget;

/// Top left of a window whose centre stands `offset` from the mouse, brought back so that it lies on the screen.
QPoint PlaceAtMouse(QPoint mouse, QSize window, QPoint offset, const QRect& screen);

/// Moves a window that is not shown yet to the mouse, on the screen where the mouse is. `offset` in pixels of a 96-dpi
/// screen.
void MoveToMouse(QWidget& window, QPoint offset);
