#pragma once

#include "level/level_box.h"
#include "level/level_palette.h"

#include <QAbstractScrollArea>
#include <optional>
#include <set>

/// A level's map at some pixels a cell. The mouse drags it about, or draws a rectangle of cells where one is wanted.
/// Cells of marked elements stay bright while the others fade.
class MapView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit MapView(QWidget* parent);

    void ShowMap(const LevelMap& map);    ///< fitted into the view
    void ReplaceMap(const LevelMap& map); ///< as it is now; one of the same size is seen as before
    void ShowReason(const QString& why);  ///< in place of a map
    void SetPainter(const MapPainter& painter);
    void Mark(const std::set<int>& elements); ///< none: all are bright
    void SetDrawsBox(bool on);
    std::optional<LevelBox> Box() const { return box; } ///< sorted, inside the map

    int Side() const { return side; } ///< pixels a cell
    void Zoom(int steps);             ///< what lies in the middle stays there
    void Fit();
    void ShowCells() { SetSide(PaletteCell, viewport()->rect().center()); } ///< at their own size

    QSize sizeHint() const override;

signals:
    void CellUnderMouse(int x, int y); ///< -1, -1 outside the map
    void BoxChanged();
    void SideChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    enum class Hold { Nothing, Map, Box };

    void SetSide(int wanted, const QPoint& fixed);
    void FitScrollBars();
    QPoint Corner() const; ///< of the map in the viewport
    QPoint CellAt(const QPoint& place) const;
    QRect RectOf(const LevelBox& cells) const;
    void TellCell();
    void DrawMarks(QPainter& painter) const;
    void DragBox(const QPoint& place);
    void TakeBox(const LevelBox& cells);
    bool MoveBox(const QKeyEvent& event);

    LevelMap map;
    MapPainter painter;
    QImage picture; ///< at `side`
    QString reason;
    std::set<int> marked;
    int side = PaletteCell;
    bool fitted = true, drawsBox = false;
    std::optional<LevelBox> box;
    QPoint boxStart;
    Hold held = Hold::Nothing;
    QPoint heldAt;                 ///< of the map's corner, where the mouse holds it
    std::optional<QPoint> mouseAt; ///< in the viewport, while it is over it
    int wheelTurn = 0;
};
