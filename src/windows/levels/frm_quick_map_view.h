#pragma once

#include <QDialog>
#include <QImage>

class QLabel;

/// The open level's map over the whole screen, 16 by 16 pixels a cell. A key, a press beside the map and a left press
/// on it close the window; any other button drags the map.
class frmQuickMapView : public QDialog
{
    Q_OBJECT

public:
    /// Shows the map until it is closed. `palette` is a palette's file name; where there is none of that name it is the
    /// default one.
    static void Run(const QString& caption, const QString& palette, QWidget* owner);

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    frmQuickMapView(const QString& caption, const QImage& palette, QWidget* owner);

    void PressMap(const QMouseEvent& event);
    void DragMap(const QMouseEvent& event);

    QLabel *picMap, *lblCaption;
    QPoint pressedAt; ///< on the map
    bool dragging = false;
};
