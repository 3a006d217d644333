#pragma once

#include <QAbstractScrollArea>
#include <QImage>

/// `pcxContainer` with `pcxPicture` and its bars: a picture, one of its pixels to one of the screen at zoom 1. The
/// mouse drags it about.
class PictureViewer : public QAbstractScrollArea
{
    Q_OBJECT

public:
    /// `index`: 0 "Before", 1 "After". `name`: what it is called aloud.
    PictureViewer(int index, const QString& name, QWidget* parent);

    /// Scrolled to its corner. A null picture leaves the view empty.
    void ShowPicture(const QImage& picture);
    /// Another picture of the same size: the view stays where it is.
    void ReplacePicture(const QImage& picture);
    const QImage& Picture() const { return picture; }

    void SetZoom(int times); ///< what lies in the middle stays there
    /// As the game shows it: black is see-through, a checker stands behind it.
    void SetInGame(bool on);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void ZoomWanted(int steps); ///< by the wheel with Ctrl

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void FitScrollBars();
    QPoint Corner() const; ///< of the picture in the viewport

    QImage picture;
    int zoom = 1;
    bool inGame = false;
    QPoint held; ///< of the picture's corner, where the mouse holds it
    int wheelTurn = 0;
};
