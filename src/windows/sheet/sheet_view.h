#pragma once

#include "graphics/sheet.h"
#include "graphics/tiles_in_use.h"
#include "windows/sheet/sheet_ground.h"

#include <QAbstractScrollArea>
#include <QPixmap>
#include <array>

class QHelpEvent;

/// `picScroll`: the sheet on show, one of its pixels to one of the screen at zoom 1, with the marks laid over it.
class SheetView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit SheetView(QWidget* parent = nullptr);

    /// Takes the picture of the sheet on show; scrolled to its corner.
    void ShowPicture();
    /// The picture was painted anew outside; the view stays where it is.
    void PictureChanged();
    /// 1, 2 or 4. What lies at `held`, a place of the viewport, stays there; without one the first tile if it is
    /// marked, else what lies in the middle.
    void SetZoom(int times, std::optional<QPoint> held = std::nullopt);
    int Zoom() const { return zoom; }
    void SetGrid(bool on);
    void SetGround(SheetGround kind);
    /// Tiles that other blocks of the text use: dotted, unless the dots are off.
    void SetTilesInUse(std::vector<UsedTile> tiles);
    void SetDots(bool on);
    /// Presses are taken.
    void SetPickable(bool on);

    void SetMarkPhase(int phase); ///< 1 to 10: which picture of each mark shows
    void MarksMoved();
    /// The tile that the preview shows; nothing: no square.
    void SetCurrentTile(std::optional<QPoint> tile);
    void Uncover(QPoint tile); ///< scrolls until the tile is in view
    void Centre(QPoint tile);  ///< as Uncover, but a tile out of view comes into the middle

    /// Tile under a place of the viewport; nothing outside the whole tiles of the picture.
    std::optional<QPoint> TileAt(QPoint place) const;
    QSize sizeHint() const override;

signals:
    void TilePressed(QPoint tile, Qt::MouseButton button);
    /// The left button, held since it went down on `from`, has come to another tile.
    void TilesDragged(QPoint from, QPoint to);
    /// The blocks that use a dotted tile are wanted.
    void UsersWanted(const std::vector<TileUser>& users);
    /// Pixel of the picture under the mouse; (-1, -1) when it has left.
    void PixelHovered(QPoint pixel);
    /// By the wheel at `place` of the viewport.
    void ZoomWanted(int times, QPoint place);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override; ///< left to the window: the arrow keys move marks
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;

private:
    enum Mark { StartMark, EndMark, InStartMark, MarkCount };

    void FitScrollBars();
    void ScrollTo(QPoint pixel, QPoint place); ///< brings a pixel of the picture to a place of the viewport
    void TellPixel();
    void Drag(QPoint place);
    void ShowUsers(const QHelpEvent& event) const;
    const UsedTile* UsedTileAt(QPoint place) const; ///< null where none is dotted
    void UpdateTile(std::optional<QPoint> tile);
    QPoint Origin() const;                   ///< where the picture's corner lies in the viewport
    QRect PlaceOf(const QPoint& tile) const; ///< of a tile in the viewport
    std::optional<QPoint> PixelAt(QPoint place) const;
    std::array<std::optional<QPoint>, MarkCount> MarkTiles() const;
    void DrawGround(QPainter& painter, const QRect& area) const;
    void DrawGrid(QPainter& painter, const QRect& area) const;
    void DrawRun(QPainter& painter) const;
    void DrawTilesInUse(QPainter& painter, const QRect& area) const;
    void DrawMarks(QPainter& painter) const;

    QPixmap picture;
    int zoom = 1, phase = 1;
    bool grid = false, pickable = true, dots = true;
    SheetGround ground = SheetGround::Checker;
    std::vector<UsedTile> inUse;
    std::optional<TileRun> run;
    struct Press
    {
        QPoint Place, Tile;
        QPoint Reached; ///< tile that the run was told of last
    };
    std::optional<Press> dragged; ///< while the left button is held
    std::array<std::optional<QPoint>, MarkCount> shownMarks;
    std::optional<QPoint> current;
    QPoint mouse{-1, -1}; ///< in the viewport, outside if it has left
    int wheelTurn = 0;    ///< what is left over of less than a step
};
