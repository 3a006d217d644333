#pragma once

#include <QWidget>

/// The 63 pictures of the comment tree, 25 a row; one is chosen by a click or the arrow keys.
class IconGrid : public QWidget
{
    Q_OBJECT

public:
    explicit IconGrid(QWidget* parent = nullptr);

    int Chosen() const { return chosen; } ///< grid index from 0
    void Choose(int index);

    /// Grid index under a place, in cells of 18 pixels at 96 dpi; places outside count as the nearest cell.
    int IndexAt(const QPoint& place) const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int CellSize() const;
    QRect CellOf(int index) const;

    int chosen = 0;
};
