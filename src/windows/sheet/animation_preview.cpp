#include "windows/sheet/animation_preview.h"

#include "graphics/sheet.h"
#include "windows/parts/focus_frame.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QRandomGenerator>
#include <QtMath>
#include <chrono>
#include <optional>

namespace {

constexpr QSize HintSize{136, 96};
constexpr int Around = 4;             // pixels at each side of a zoomed tile
constexpr int MostTicksAtOnce = 1000; // after a sleep of the machine the run just goes on

int AnyTile(int frames)
{
    return frames > 0 ? QRandomGenerator::global()->bounded(frames) : 0;
}

} // namespace

AnimationPreview::AnimationPreview(QWidget* parent) : QFrame(parent), picPreview(new QLabel(this))
{
    setObjectName(QStringLiteral("Picture1"));
    setAccessibleName(QStringLiteral("Preview of the animation"));
    setToolTip(QStringLiteral("Click, Enter or Space: start over"));
    setFrameStyle(QFrame::Box | QFrame::Plain);
    MarkFocus(*this, false);
    setFocusPolicy(Qt::TabFocus);
    picPreview->setObjectName(QStringLiteral("picPreview"));
    setMinimumHeight(TileSize * 3 / 2);
    tmrAnimation.setSingleShot(true);
    tmrAnimation.setTimerType(Qt::PreciseTimer);
    connect(&tmrAnimation, &QTimer::timeout, this, &AnimationPreview::Tick);
    clock.start();
}

QSize AnimationPreview::sizeHint() const
{
    return HintSize.expandedTo(QSize(1, 1) * (TileSize * zoom + 2 * Around));
}

void AnimationPreview::Start()
{
    interval = StartAnimation(AnyTile);
    ShowBegin();
    Arm();
}

void AnimationPreview::Restart()
{
    restartAnimation();
    ShowBegin();
}

void AnimationPreview::ShowBegin()
{
    held = false;
    if (BeginsAtOnce())
        ShowFrame(Animation.CurrentFrame);
    else if (paused)
        StepOnce(); // no tick would show the first tile
}

void AnimationPreview::Arm()
{
    tmrAnimation.stop();
    if (interval == 0 || paused)
        return;
    ticks.Start(clock.elapsed(), interval);
    tmrAnimation.start(interval);
}

void AnimationPreview::Stop()
{
    interval = 0;
    tmrAnimation.stop();
}

void AnimationPreview::Tick()
{
    std::optional<int> tile;
    for (int due = qMin(ticks.TicksDue(clock.elapsed()), MostTicksAtOnce); due > 0; --due) {
        held = !StepAnimation(AnyTile);
        if (!held)
            tile = Animation.CurrentFrame;
    }
    if (tile)
        ShowFrame(*tile);
    tmrAnimation.start(std::chrono::milliseconds(qMax<qint64>(0, ticks.NextTick() - clock.elapsed())));
}

void AnimationPreview::ShowFrame(int tile)
{
    drawn = tile;
    const int row = Sheet.SheetColumns > 0 ? tile / Sheet.SheetColumns : 0;
    const int column = tile - row * Sheet.SheetColumns;
    const QPoint place(qMax(0, column), qMax(0, row));
    const QSize size(TileSize * Scale(), TileSize * Scale());
    QPixmap shown(size);
    QPainter painter(&shown);
    painter.fillRect(shown.rect(), GroundBrush(ground));
    painter.drawImage(shown.rect(), Sheet.AsShown, QRect(place * TileSize, QSize(TileSize, TileSize)));
    painter.end();
    shown.setDevicePixelRatio(devicePixelRatioF());
    picPreview->setPixmap(shown);
    PlacePicture();
    emit FrameShown(place);
}

void AnimationPreview::Redraw()
{
    ShowFrame(held ? drawn : qMax(0, Animation.CurrentFrame));
}

void AnimationPreview::SetGround(SheetGround kind)
{
    ground = kind;
    if (!picPreview->pixmap().isNull())
        Redraw();
}

void AnimationPreview::SetZoom(int times)
{
    zoom = times;
    setMinimumHeight(qMax(TileSize * 3 / 2, TileSize * zoom + 2 * frameWidth()));
    updateGeometry();
    if (!picPreview->pixmap().isNull())
        Redraw();
}

int AnimationPreview::Scale() const
{
    return qMax(1, qRound(zoom * devicePixelRatioF()));
}

void AnimationPreview::SetPaused(bool on)
{
    paused = on;
    Arm();
}

void AnimationPreview::StepOnce()
{
    held = !StepAnimation(AnyTile);
    if (!held)
        ShowFrame(Animation.CurrentFrame);
}

void AnimationPreview::mousePressEvent(QMouseEvent*)
{
    Start();
}

void AnimationPreview::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Start();
    else
        QFrame::keyPressEvent(event);
}

void AnimationPreview::focusInEvent(QFocusEvent*)
{
    MarkFocus(*this, true);
}

void AnimationPreview::focusOutEvent(QFocusEvent*)
{
    MarkFocus(*this, false);
}

void AnimationPreview::resizeEvent(QResizeEvent*)
{
    PlacePicture();
}

void AnimationPreview::PlacePicture()
{
    const int side = qCeil(TileSize * Scale() / devicePixelRatioF());
    picPreview->setGeometry((width() - side) / 2, (height() - side) / 2, side, side);
}
