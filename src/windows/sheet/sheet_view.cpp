#include "windows/sheet/sheet_view.h"

#include "graphics/sheet.h"
#include "windows/parts/focus_frame.h"
#include "windows/parts/icons.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

namespace {

constexpr QSize ViewSize{770, 521};
constexpr QRect CurrentSquare{9, 9, 14, 14}; // inside its tile
constexpr int MarkPictures = 10;             // of each mark
constexpr int LargestZoom = 4;
constexpr QPoint NoPlace{-1, -1};

} // namespace

SheetView::SheetView(QWidget* parent) : QAbstractScrollArea(parent)
{
    setObjectName(QStringLiteral("picScroll"));
    setAccessibleName(QStringLiteral("Sheet"));
    setFocusPolicy(Qt::StrongFocus);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    MarkFocus(*this, false);
    viewport()->setBackgroundRole(QPalette::Window); // that of texts is the colour of a white ground
    viewport()->setMouseTracking(true);
    for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
        bar->setSingleStep(TileSize);
    // Bars that come and go would take their room from the sheet.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    horizontalScrollBar()->setObjectName(QStringLiteral("HScroll"));
    verticalScrollBar()->setObjectName(QStringLiteral("VScroll"));
}

QSize SheetView::sizeHint() const
{
    const int frame = 2 * frameWidth();
    const QSize bars(verticalScrollBar()->sizeHint().width(), horizontalScrollBar()->sizeHint().height());
    return ViewSize + bars + QSize(frame, frame);
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
    TellPixel();
}

void SheetView::SetZoom(int times, std::optional<QPoint> held)
{
    const auto& start = shownMarks[StartMark];
    const QPoint middle = viewport()->rect().center();
    QPoint place = held.value_or(middle);
    const QPoint from = place - Origin();
    QPoint pixel(from.x() / zoom, from.y() / zoom); // QPoint's own division rounds
    if (!held && start) {
        pixel = *start * TileSize + QPoint(TileSize, TileSize) / 2;
        const QPoint before = PlaceOf(*start).center();
        place = viewport()->rect().contains(before) ? before : middle;
    }
    zoom = times;
    FitScrollBars();
    ScrollTo(pixel, place);
    if (!held && start)
        Uncover(*start);
    viewport()->update();
    TellPixel();
}

void SheetView::ScrollTo(QPoint pixel, QPoint place)
{
    horizontalScrollBar()->setValue(pixel.x() * zoom - place.x());
    verticalScrollBar()->setValue(pixel.y() * zoom - place.y());
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

void SheetView::Centre(QPoint tile)
{
    if (!viewport()->rect().contains(PlaceOf(tile)))
        ScrollTo(tile * TileSize + QPoint(TileSize, TileSize) / 2, viewport()->rect().center());
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
    return QPoint(from.x() / zoom, from.y() / zoom);
}

std::optional<QPoint> SheetView::TileAt(QPoint place) const
{
    const auto pixel = PixelAt(place);
    const QRect whole(0, 0, picture.width() / TileSize, picture.height() / TileSize);
    const QPoint tile = pixel ? QPoint(pixel->x() / TileSize, pixel->y() / TileSize) : NoPlace;
    return whole.contains(tile) ? std::optional(tile) : std::nullopt;
}

void SheetView::DrawGround(QPainter& painter, const QRect& area) const
{
    painter.setBrushOrigin(Origin());
    painter.fillRect(area, GroundBrush(ground));
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

void SheetView::DrawTilesInUse(QPainter& painter, const QRect& area) const
{
    painter.setPen(QPen(QColor(255, 200, 0, 150), 1, Qt::DotLine));
    for (const QPoint& tile : inUse)
        if (const QRect place = PlaceOf(tile); place.intersects(area))
            painter.drawRect(place.adjusted(1, 1, -2, -2));
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
    DrawTilesInUse(painter, area);
    DrawMarks(painter);
}

void SheetView::focusInEvent(QFocusEvent*)
{
    MarkFocus(*this, true);
}

void SheetView::focusOutEvent(QFocusEvent*)
{
    MarkFocus(*this, false);
}

void SheetView::resizeEvent(QResizeEvent*)
{
    FitScrollBars();
}

void SheetView::scrollContentsBy(int, int)
{
    viewport()->update();
    TellPixel();
}

void SheetView::TellPixel()
{
    emit PixelHovered(viewport()->rect().contains(mouse) ? PixelAt(mouse).value_or(NoPlace) : NoPlace);
}

void SheetView::mousePressEvent(QMouseEvent* event)
{
    const auto tile = TileAt(event->pos());
    if (tile && pickable)
        emit TilePressed(*tile, event->button());
}

void SheetView::mouseMoveEvent(QMouseEvent* event)
{
    mouse = event->pos();
    TellPixel();
}

bool SheetView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Leave) {
        mouse = NoPlace;
        TellPixel();
    }
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
    wheelTurn += event->angleDelta().y();
    if (qAbs(wheelTurn) < QWheelEvent::DefaultDeltasPerStep)
        return;
    const int wanted = wheelTurn > 0 ? zoom * 2 : zoom / 2;
    wheelTurn = 0;
    if (wanted >= 1 && wanted <= LargestZoom)
        emit ZoomWanted(wanted, event->position().toPoint());
}
