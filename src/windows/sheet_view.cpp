#include "windows/sheet_view.h"

#include "graphics/sheet.h"
#include "windows/icons.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

namespace {

constexpr QSize ViewSize{770, 521};
constexpr QRect CurrentSquare{9, 9, 14, 14}; // inside its tile
constexpr int MarkPictures = 10;             // of each mark
constexpr int CheckSize = 8;
constexpr int LargestZoom = 4;

QPixmap CheckerTile()
{
    QPixmap tile(2 * CheckSize, 2 * CheckSize);
    tile.fill(QColor(0x66, 0x66, 0x66));
    QPainter painter(&tile);
    for (const QPoint corner : {QPoint(0, 0), QPoint(CheckSize, CheckSize)})
        painter.fillRect(QRect(corner, QSize(CheckSize, CheckSize)), QColor(0x99, 0x99, 0x99));
    return tile;
}

} // namespace

SheetView::SheetView(QWidget* parent) : QAbstractScrollArea(parent)
{
    setObjectName(QStringLiteral("picScroll"));
    setAccessibleName(QStringLiteral("Sheet"));
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        bar->setSingleStep(TileSize);
    horizontalScrollBar()->setObjectName(QStringLiteral("HScroll"));
    verticalScrollBar()->setObjectName(QStringLiteral("VScroll"));
}

QSize SheetView::sizeHint() const
{
    const int frame = 2 * frameWidth();
    return ViewSize + QSize(frame, frame);
}

void SheetView::ShowPicture()
{
    picture = QPixmap::fromImage(Sheet.Picture);
    FitScrollBars();
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
    viewport()->update();
}

void SheetView::PictureChanged()
{
    picture = QPixmap::fromImage(Sheet.Picture);
    FitScrollBars();
    viewport()->update();
}

void SheetView::SetZoom(int times)
{
    const QPoint middle = viewport()->rect().center();
    const QPoint held = (middle - Origin()) / zoom;
    zoom = times;
    FitScrollBars();
    horizontalScrollBar()->setValue(held.x() * zoom - middle.x());
    verticalScrollBar()->setValue(held.y() * zoom - middle.y());
    viewport()->update();
}

void SheetView::SetGrid(bool on)
{
    grid = on;
    viewport()->update();
}

void SheetView::SetGround(SheetGround kind)
{
    ground = kind;
    viewport()->update();
}

void SheetView::SetTilesInUse(QList<QPoint> tiles)
{
    inUse = std::move(tiles);
    viewport()->update();
}

void SheetView::SetPickable(bool on)
{
    pickable = on;
}

void SheetView::SetMarkPhase(int newPhase)
{
    phase = newPhase;
    for (const auto& tile : shownMarks)
        UpdateTile(tile);
}

void SheetView::MarksMoved()
{
    for (const auto& tile : shownMarks)
        UpdateTile(tile);
    shownMarks = {Sheet.Start, Sheet.End, Sheet.InStart};
    for (const auto& tile : shownMarks)
        UpdateTile(tile);
}

void SheetView::SetCurrentTile(std::optional<QPoint> tile)
{
    UpdateTile(current);
    current = tile;
    UpdateTile(current);
}

void SheetView::Uncover(QPoint tile)
{
    const QRect place = PlaceOf(tile), seen = viewport()->rect();
    const auto shift = [](QScrollBar* bar, int before, int behind) {
        bar->setValue(bar->value() + qMin(0, before) + qMax(0, behind));
    };
    shift(horizontalScrollBar(), place.left(), place.right() - seen.right());
    shift(verticalScrollBar(), place.top(), place.bottom() - seen.bottom());
}

void SheetView::FitScrollBars()
{
    const QSize whole = picture.size() * zoom, seen = viewport()->size();
    const auto fit = [](QScrollBar* bar, int all, int page) {
        bar->setRange(0, qMax(0, all - page));
        bar->setPageStep(TileSize);
    };
    fit(horizontalScrollBar(), whole.width(), seen.width());
    fit(verticalScrollBar(), whole.height(), seen.height());
}

void SheetView::UpdateTile(std::optional<QPoint> tile)
{
    if (tile)
        viewport()->update(PlaceOf(*tile));
}

QPoint SheetView::Origin() const
{
    return {-horizontalScrollBar()->value(), -verticalScrollBar()->value()};
}

QRect SheetView::PlaceOf(const QPoint& tile) const
{
    const int side = TileSize * zoom;
    return {Origin() + tile * side, QSize(side, side)};
}

std::optional<QPoint> SheetView::PixelAt(QPoint place) const
{
    const QPoint from = place - Origin();
    if (!QRect(QPoint(), picture.size() * zoom).contains(from))
        return std::nullopt;
    return QPoint(from.x() / zoom, from.y() / zoom); // QPoint's own division rounds
}

std::optional<QPoint> SheetView::TileAt(QPoint place) const
{
    const auto pixel = PixelAt(place);
    return pixel ? std::optional(QPoint(pixel->x() / TileSize, pixel->y() / TileSize)) : std::nullopt;
}

void SheetView::DrawGround(QPainter& painter, const QRect& area) const
{
    static const QBrush checker(CheckerTile());
    const QBrush brushes[] = {checker, Qt::black, Qt::white};
    painter.setBrushOrigin(Origin());
    painter.fillRect(area, brushes[int(ground)]);
}

void SheetView::DrawGrid(QPainter& painter, const QRect& area) const
{
    painter.setPen(QColor(255, 255, 255, 70));
    const int side = TileSize * zoom;
    const auto first = [side](int from, int origin) { return origin + (from - origin) / side * side; };
    for (int x = first(area.left(), Origin().x()); x <= area.right(); x += side)
        painter.drawLine(x, area.top(), x, area.bottom());
    for (int y = first(area.top(), Origin().y()); y <= area.bottom(); y += side)
        painter.drawLine(area.left(), y, area.right(), y);
}

void SheetView::DrawTilesInUse(QPainter& painter) const
{
    painter.setPen(QPen(QColor(255, 200, 0, 150), 1, Qt::DotLine));
    for (const QPoint& tile : inUse)
        painter.drawRect(PlaceOf(tile).adjusted(1, 1, -2, -2));
}

void SheetView::DrawMarks(QPainter& painter) const
{
    for (int mark = 0; mark < MarkCount; ++mark)
        if (shownMarks[mark])
            ListImage(QStringLiteral("mark"), mark * MarkPictures + phase).paint(&painter, PlaceOf(*shownMarks[mark]));
    if (current) {
        const QRect square(CurrentSquare.topLeft() * zoom, CurrentSquare.size() * zoom);
        painter.setPen(Qt::black);
        painter.drawRect(square.translated(PlaceOf(*current).topLeft()).adjusted(0, 0, -1, -1));
        painter.setPen(Qt::white);
        painter.drawRect(square.translated(PlaceOf(*current).topLeft()).adjusted(1, 1, -2, -2));
    }
}

void SheetView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    const QRect area = event->rect() & QRect(Origin(), picture.size() * zoom);
    if (area.isEmpty())
        return;
    DrawGround(painter, area);
    // Whole pixels of the picture, so that a zoomed part lies where the whole would.
    const QRect source(QPoint((area.left() - Origin().x()) / zoom, (area.top() - Origin().y()) / zoom),
                       QPoint((area.right() - Origin().x()) / zoom, (area.bottom() - Origin().y()) / zoom));
    painter.drawPixmap(QRect(Origin() + source.topLeft() * zoom, source.size() * zoom), picture, source);
    if (grid)
        DrawGrid(painter, area);
    DrawTilesInUse(painter);
    DrawMarks(painter);
}

void SheetView::resizeEvent(QResizeEvent*)
{
    FitScrollBars();
}

void SheetView::scrollContentsBy(int, int)
{
    viewport()->update();
}

void SheetView::mousePressEvent(QMouseEvent* event)
{
    const auto tile = TileAt(event->pos());
    if (tile && pickable)
        emit TilePressed(*tile, event->button());
}

void SheetView::mouseMoveEvent(QMouseEvent* event)
{
    emit PixelHovered(PixelAt(event->pos()).value_or(QPoint(-1, -1)));
}

bool SheetView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Leave)
        emit PixelHovered({-1, -1});
    return QAbstractScrollArea::viewportEvent(event);
}

void SheetView::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
}

void SheetView::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    const int wanted = event->angleDelta().y() > 0 ? zoom * 2 : zoom / 2;
    if (wanted >= 1 && wanted <= LargestZoom)
        emit ZoomWanted(wanted);
}
