#include "windows/images/tile_player.h"

#include "graphics/film_sheet.h"
#include "graphics/see_through.h"
#include "windows/parts/focus_frame.h"
#include "windows/sheet/sheet_ground.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int TickLength = 20; ///< ms: the game's own
constexpr int Larger = 2;

} // namespace

TilePlayer::TilePlayer(QWidget* parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("picPreview"));
    setAccessibleName(QStringLiteral("Animation"));
    setToolTip(QStringLiteral("The finished animation; a click holds it"));
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    MarkFocus(*this, false);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &TilePlayer::Step);
    clock.start();
}

int TilePlayer::Side() const
{
    return TileSize * Larger;
}

QSize TilePlayer::sizeHint() const
{
    const int frame = 2 * frameWidth();
    return {Side() + frame, Side() + frame};
}

void TilePlayer::Play(const QImage& shown, int count)
{
    sheet = shown;
    tiles = sheet.isNull() ? 0 : count;
    tile = 0;
    held = false;
    Start();
    update();
    emit TileShown(tile, tiles);
}

void TilePlayer::SetDelay(int wanted)
{
    delay = qMax(1, wanted);
    Start();
}

void TilePlayer::Start()
{
    timer.stop();
    if (tiles < 2 || held)
        return;
    const int interval = delay * TickLength;
    ticks.Start(clock.elapsed(), interval);
    timer.start(interval);
}

void TilePlayer::Step()
{
    tile = (tile + ticks.TicksDue(clock.elapsed())) % tiles;
    timer.start(std::chrono::milliseconds(qMax<qint64>(0, ticks.NextTick() - clock.elapsed())));
    update();
    emit TileShown(tile, tiles);
}

void TilePlayer::Hold()
{
    held = !held;
    Start();
}

void TilePlayer::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    if (tiles == 0)
        return;
    QPainter painter(this);
    const QRect place(frameWidth(), frameWidth(), Side(), Side());
    painter.fillRect(place, GroundBrush(SheetGround::Checker));
    painter.drawImage(place, AsInGame(TileOf(sheet, tile)));
}

void TilePlayer::mousePressEvent(QMouseEvent*)
{
    Hold();
}

void TilePlayer::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space)
        Hold();
    else
        QFrame::keyPressEvent(event);
}

void TilePlayer::focusInEvent(QFocusEvent*)
{
    MarkFocus(*this, true);
}

void TilePlayer::focusOutEvent(QFocusEvent*)
{
    MarkFocus(*this, false);
}
