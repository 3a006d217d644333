#include "mapglass/map_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <array>

namespace {

/// Pixels a cell that one can zoom to.
constexpr std::array Sides = {1, 2, 3, 4, 6, 8, 12, 16, 24, 32, 48};
constexpr int WheelStep = 120;
constexpr int LargestFit = 32;

/// The nearest of Sides, and then so many steps on.
int SideBeside(int side, int steps)
{
    const auto at = std::lower_bound(Sides.begin(), Sides.end(), side);
    const auto place = std::clamp<std::ptrdiff_t>(at - Sides.begin() + steps, 0, std::ssize(Sides) - 1);
    return Sides.at(size_t(place));
}

} // namespace

MapView::MapView(QWidget* parent) : QAbstractScrollArea(parent)
{
    setObjectName(QStringLiteral("mapView"));
    setAccessibleName(QStringLiteral("The map"));
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
}

QSize MapView::sizeHint() const
{
    return {40 * PaletteCell, 32 * PaletteCell};
}

void MapView::ShowMap(const LevelMap& shown)
{
    map = shown;
    reason.clear();
    box.reset();
    held = Hold::Nothing;
    picture = {};
    Fit();
    emit BoxChanged();
}

void MapView::ReplaceMap(const LevelMap& now)
{
    if (now.Width() != map.Width() || now.Height() != map.Height()) {
        ShowMap(now);
        return;
    }
    map = now;
    picture = {};
    viewport()->update();
    TellCell();
}

void MapView::ShowReason(const QString& why)
{
    ShowMap({});
    reason = why;
}

void MapView::SetPainter(const MapPainter& with)
{
    painter = with;
    picture = {};
    viewport()->update();
}

void MapView::Mark(const std::set<int>& elements)
{
    marked = elements;
    viewport()->update();
}

void MapView::SetDrawsBox(bool on)
{
    drawsBox = on;
    viewport()->setCursor(on ? Qt::CrossCursor : Qt::ArrowCursor);
}

QPoint MapView::Corner() const
{
    const QSize room = viewport()->size() - QSize(map.Width(), map.Height()) * side;
    return {room.width() > 0 ? room.width() / 2 : -horizontalScrollBar()->value(),
            room.height() > 0 ? room.height() / 2 : -verticalScrollBar()->value()};
}

QPoint MapView::CellAt(const QPoint& place) const
{
    const QPoint inside = place - Corner();
    return {inside.x() < 0 ? -1 : inside.x() / side, inside.y() < 0 ? -1 : inside.y() / side};
}

QRect MapView::RectOf(const LevelBox& cells) const
{
    return {Corner() + QPoint(cells.X1, cells.Y1) * side, QSize(int(cells.Width()), int(cells.Height())) * side};
}

void MapView::FitScrollBars()
{
    const QSize beyond = QSize(map.Width(), map.Height()) * side - viewport()->size();
    horizontalScrollBar()->setRange(0, qMax(beyond.width(), 0));
    verticalScrollBar()->setRange(0, qMax(beyond.height(), 0));
    horizontalScrollBar()->setPageStep(viewport()->width());
    verticalScrollBar()->setPageStep(viewport()->height());
    horizontalScrollBar()->setSingleStep(side);
    verticalScrollBar()->setSingleStep(side);
}

/// `fixed`, a place of the viewport, keeps showing what it shows.
void MapView::SetSide(int wanted, const QPoint& fixed)
{
    const QPointF cell = QPointF(fixed - Corner()) / side;
    fitted = false;
    if (wanted != side)
        picture = {};
    side = wanted;
    FitScrollBars();
    const QPoint corner = (cell * side).toPoint() - fixed;
    horizontalScrollBar()->setValue(corner.x());
    verticalScrollBar()->setValue(corner.y());
    viewport()->update();
    TellCell();
    emit SideChanged();
}

void MapView::Zoom(int steps)
{
    SetSide(SideBeside(side, steps), viewport()->rect().center());
}

void MapView::Fit()
{
    const QSize room = maximumViewportSize();
    const int fits = std::min({room.width() / qMax(map.Width(), 1), room.height() / qMax(map.Height(), 1), LargestFit});
    SetSide(fits < 1 ? 1 : *std::prev(std::upper_bound(Sides.begin(), Sides.end(), fits)), {});
    fitted = true;
}

void MapView::resizeEvent(QResizeEvent*)
{
    if (fitted)
        Fit();
    else
        FitScrollBars();
}

void MapView::DrawMarks(QPainter& paint) const
{
    const QColor faded(0, 0, 0, 190);
    const QPoint corner = Corner();
    for (int y = 0; y < map.Height(); ++y)
        for (int x = 0; x < map.Width(); ++x)
            if (!marked.contains(map.At(x, y)))
                paint.fillRect(QRect(corner + QPoint(x, y) * side, QSize(side, side)), faded);
}

void MapView::paintEvent(QPaintEvent*)
{
    QPainter paint(viewport());
    paint.fillRect(viewport()->rect(), palette().color(QPalette::Dark).darker(160));
    if (!reason.isEmpty()) {
        paint.setPen(Qt::white);
        paint.drawText(viewport()->rect().adjusted(20, 20, -20, -20), Qt::AlignCenter | Qt::TextWordWrap, reason);
        return;
    }
    if (map.Width() == 0)
        return;
    if (picture.isNull())
        picture = painter.Picture(map, side);
    paint.drawImage(Corner(), picture);
    if (!marked.empty())
        DrawMarks(paint);
    if (!box)
        return;
    const QRect drawn = RectOf(*box);
    paint.setPen(QPen(Qt::black, 4));
    paint.drawRect(drawn);
    paint.setPen(QPen(Qt::yellow, 2));
    paint.drawRect(drawn);
}

void MapView::keyPressEvent(QKeyEvent* event)
{
    if (MoveBox(*event))
        return;
    // Pages belong to the window: they lead to the next level.
    if (event->key() == Qt::Key_PageDown || event->key() == Qt::Key_PageUp)
        event->ignore();
    else if (event->key() == Qt::Key_Home)
        horizontalScrollBar()->setValue(0);
    else if (event->key() == Qt::Key_End)
        horizontalScrollBar()->setValue(horizontalScrollBar()->maximum());
    else
        QAbstractScrollArea::keyPressEvent(event);
}

void MapView::DragBox(const QPoint& place)
{
    const QPoint cell = CellAt(place);
    const QPoint end(std::clamp(cell.x(), 0, map.Width() - 1), std::clamp(cell.y(), 0, map.Height() - 1));
    TakeBox(LevelBox{boxStart.x(), boxStart.y(), end.x(), end.y()}.Sorted());
}

void MapView::TakeBox(const LevelBox& cells)
{
    box = cells;
    viewport()->update();
    emit BoxChanged();
}

/// By the arrow keys: the whole rectangle, with Shift its lower right corner. The first one lays a cell into the middle
/// of what is in view. False: the key is another one.
bool MapView::MoveBox(const QKeyEvent& event)
{
    constexpr std::pair<Qt::Key, QPoint> Ways[] = {
        {Qt::Key_Left, {-1, 0}}, {Qt::Key_Right, {1, 0}}, {Qt::Key_Up, {0, -1}}, {Qt::Key_Down, {0, 1}}};
    const auto way = std::ranges::find(Ways, event.key(), &std::pair<Qt::Key, QPoint>::first);
    if (!drawsBox || way == std::end(Ways) || map.Width() == 0 || event.modifiers() & ~Qt::ShiftModifier)
        return false;
    if (!box) {
        const QPoint cell = CellAt(viewport()->rect().center());
        const int x = std::clamp(cell.x(), 0, map.Width() - 1), y = std::clamp(cell.y(), 0, map.Height() - 1);
        TakeBox({x, y, x, y});
        return true;
    }
    LevelBox moved = *box;
    moved.X2 += way->second.x();
    moved.Y2 += way->second.y();
    if (!event.modifiers().testFlag(Qt::ShiftModifier)) {
        moved.X1 += way->second.x();
        moved.Y1 += way->second.y();
    }
    if (map.Contains(moved.X1, moved.Y1) && map.Contains(moved.X2, moved.Y2) && moved == moved.Sorted())
        TakeBox(moved);
    return true;
}

void MapView::mousePressEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint(), cell = CellAt(place);
    if (map.Width() == 0)
        return;
    if (drawsBox && event->button() == Qt::LeftButton && map.Contains(cell.x(), cell.y())) {
        held = Hold::Box;
        boxStart = cell;
        DragBox(place);
        return;
    }
    held = Hold::Map;
    heldAt = place + QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void MapView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    if (held == Hold::Box)
        DragBox(place);
    if (held == Hold::Map) {
        horizontalScrollBar()->setValue(heldAt.x() - place.x());
        verticalScrollBar()->setValue(heldAt.y() - place.y());
    }
    mouseAt = place;
    TellCell();
}

/// Another map, zoom or scrolled place puts another cell under a mouse that stands still.
void MapView::TellCell()
{
    const QPoint cell = mouseAt ? CellAt(*mouseAt) : QPoint(-1, -1);
    const bool inside = map.Contains(cell.x(), cell.y());
    emit CellUnderMouse(inside ? cell.x() : -1, inside ? cell.y() : -1);
}

void MapView::scrollContentsBy(int, int)
{
    viewport()->update();
    TellCell();
}

void MapView::mouseReleaseEvent(QMouseEvent*)
{
    held = Hold::Nothing;
    SetDrawsBox(drawsBox);
}

void MapView::leaveEvent(QEvent*)
{
    mouseAt.reset();
    TellCell();
}

void MapView::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    wheelTurn += event->angleDelta().y();
    if (const int steps = wheelTurn / WheelStep) {
        wheelTurn %= WheelStep;
        SetSide(SideBeside(side, steps), event->position().toPoint());
    }
    event->accept();
}
