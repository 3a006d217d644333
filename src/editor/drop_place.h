#pragma once

#include <QPoint>

class Component;
class QWidget;

/// The bar between two characters that shows where dropped names will land.
class DropPlace
{
public:
    explicit DropPlace(Component& component) : text(component) {}

    /// Position in the text for a point of the view.
    long At(QPoint point) const;
    void Show(QPoint point);
    void Hide();

private:
    Component& text;
    QWidget* bar = nullptr; ///< the view's
};
