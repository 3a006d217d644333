#pragma once

#include "graphics/animation.h"
#include "windows/sheet/sheet_ground.h"

#include <QElapsedTimer>
#include <QFrame>
#include <QTimer>

class QLabel;

/// `Picture1` with `picPreview`: plays the marked tiles of the sheet on show. A click starts the run over.
class AnimationPreview : public QFrame
{
    Q_OBJECT

public:
    explicit AnimationPreview(QWidget* parent = nullptr);

    void Start();   ///< StartAnimation: from the run's begin, in the time of the delay
    void Restart(); ///< restartAnimation: from the run's begin, the pace stays
    void Stop();    ///< no more ticks
    void ShowFrame(int tile);
    void Redraw(); ///< what is due now, from a picture painted anew
    void SetGround(SheetGround kind);
    void SetZoom(int times);
    void SetPaused(bool on);
    bool Paused() const { return paused; }
    void StepOnce(); ///< one tick, while paused
    QSize sizeHint() const override;

signals:
    /// The tile (column, row) that the preview shows now.
    void FrameShown(QPoint tile);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Tick();
    void Arm();
    void PlacePicture();
    int Scale() const; ///< pixels of the screen for one of the sheet: whole ones, so that a tile stays crisp
    void ShowBegin();

    QLabel* picPreview;
    QTimer tmrAnimation;
    QElapsedTimer clock;
    TickClock ticks;
    int interval = 0;
    int drawn = 0;     ///< the tile on show
    bool held = false; ///< it stays there for a tick that turned outside the run
    bool paused = false;
    int zoom = 1;
    SheetGround ground = SheetGround::Checker;
};
