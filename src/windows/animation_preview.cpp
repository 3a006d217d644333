#include "windows/animation_preview.h"

#include "graphics/sheet.h"

#include <QLabel>
#include <QPainter>
#include <QRandomGenerator>
#include <chrono>

namespace {

constexpr QSize HintSize{120, 126};
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
    setToolTip(QStringLiteral("Click to start over"));
    setFrameShape(QFrame::StyledPanel);
    picPreview->setObjectName(QStringLiteral("picPreview"));
    picPreview->setFixedSize(TileSize, TileSize);
    setMinimumHeight(TileSize * 3 / 2);
    tmrAnimation.setSingleShot(true);
    tmrAnimation.setTimerType(Qt::PreciseTimer);
    connect(&tmrAnimation, &QTimer::timeout, this, &AnimationPreview::Tick);
    clock.start();
}

QSize AnimationPreview::sizeHint() const
{
    return HintSize;
}

void AnimationPreview::Start()
{
    interval = StartAnimation(AnyTile);
    if (interval == 0)
        ShowFrame(Animation.CurrentFrame);
    Arm();
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
    bool draws = false;
    for (int due = qMin(ticks.TicksDue(clock.elapsed()), MostTicksAtOnce); due > 0; --due)
        draws |= StepAnimation(AnyTile);
    if (draws)
        ShowFrame(Animation.CurrentFrame);
    tmrAnimation.start(std::chrono::milliseconds(qMax<qint64>(0, ticks.NextTick() - clock.elapsed())));
}

void AnimationPreview::ShowFrame(int tile)
{
    const int row = Sheet.SheetColumns > 0 ? tile / Sheet.SheetColumns : 0;
    const int column = tile - row * Sheet.SheetColumns;
    const QPoint place(qMax(0, column), qMax(0, row));
    QPixmap shown(TileSize, TileSize);
    QPainter painter(&shown);
    painter.fillRect(shown.rect(), GroundBrush(ground));
    painter.drawImage(QPoint(), Sheet.Picture, QRect(place * TileSize, shown.size()));
    painter.end();
    picPreview->setPixmap(shown);
    emit FrameShown(place);
}

void AnimationPreview::Redraw()
{
    ShowFrame(qMax(0, Animation.CurrentFrame));
}

void AnimationPreview::SetGround(SheetGround kind)
{
    ground = kind;
    if (!picPreview->pixmap().isNull())
        Redraw();
}

void AnimationPreview::SetPaused(bool on)
{
    paused = on;
    Arm();
}

void AnimationPreview::StepOnce()
{
    if (StepAnimation(AnyTile))
        ShowFrame(Animation.CurrentFrame);
}

void AnimationPreview::mousePressEvent(QMouseEvent*)
{
    Start();
}

void AnimationPreview::resizeEvent(QResizeEvent*)
{
    picPreview->move((width() - TileSize) / 2, (height() - TileSize) / 2);
}
