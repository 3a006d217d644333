#pragma once

#include "graphics/animation.h"

#include <QElapsedTimer>
#include <QFrame>
#include <QImage>
#include <QTimer>

/// Plays the tiles of a sheet from the first to the last and over again, twice as large, as the game will: 50 ticks a
/// second, black see-through. A click or Space holds it.
class TilePlayer : public QFrame
{
    Q_OBJECT

public:
    explicit TilePlayer(QWidget* parent);

    /// From the first tile on; no tiles: nothing is shown.
    void Play(const QImage& sheet, int tiles);
    void SetDelay(int ticks); ///< that a tile stays
    int Tile() const { return tile; }
    QSize sizeHint() const override;

signals:
    void TileShown(int tile, int tiles);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void Start();
    void Step();
    void Hold();
    int Side() const;

    QImage sheet;
    int tiles = 0, tile = 0, delay = 1;
    bool held = false;
    QTimer timer;
    QElapsedTimer clock;
    TickClock ticks;
};
