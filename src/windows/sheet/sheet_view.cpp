#include "windows/sheet/sheet_view.h"

#include "windows/parts/focus_frame.h"
#include "windows/parts/icons.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

namespace {

constexpr QSize ViewSize{770, 521};
constexpr QRect CurrentSquare{9, 9, 14, 14}; // inside its tile
constexpr int MarkPictures = 10;             // of each mark
constexpr int LargestZoom = 4;
constexpr size_t MostUsersTold = 12;
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
    picture = QPixmap::fromImage(Sheet.AsShown);
    FitScrollBars();
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
    viewport()->update();
}

void SheetView::PictureChanged()
{
    picture = QPixmap::fromImage(Sheet.AsShown);
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

void SheetView::SetTilesInUse(std::vector<UsedTile> tiles)
{
    inUse = std::move(tiles);
    viewport()->update();
}

void SheetView::SetDots(bool on)
{
    dots = on;
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
    if (run != MarkedRun())
        viewport()->update();
    run = MarkedRun();
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

/// A faint band over the tiles of the run, a piece a row.
void SheetView::DrawRun(QPainter& painter) const
{
    const int columns = Sheet.SheetColumns;
    if (!run || columns < 1)
        return;
    painter.setPen(QColor(90, 170, 255, 200));
    painter.setBrush(QColor(90, 170, 255, 70));
    for (int tile = run->First; tile < run->First + run->Count; tile += columns - tile % columns) {
        const int row = tile / columns, behind = qMin(run->First + run->Count, (row + 1) * columns);
        const QRect first = PlaceOf({tile % columns, row}), last = PlaceOf({(behind - 1) % columns, row});
        painter.drawRect((first | last).adjusted(0, 0, -1, -1));
    }
}

void SheetView::DrawTilesInUse(QPainter& painter, const QRect& area) const
{
    painter.setPen(QPen(QColor(255, 200, 0, 220), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    for (const UsedTile& used : inUse)
        if (const QRect place = PlaceOf(used.Tile); place.intersects(area))
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
    DrawRun(painter);
    if (dots)
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
    if (!tile || !pickable)
        return;
    const UsedTile* used = UsedTileAt(event->pos());
    if (used && event->button() == Qt::LeftButton && event->modifiers() == Qt::ControlModifier) {
        emit UsersWanted(used->Users);
        return;
    }
    if (event->button() == Qt::LeftButton)
        dragged = Press{event->pos(), *tile, *tile};
    emit TilePressed(*tile, event->button());
}

void SheetView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        dragged.reset();
}

/// Outside the view the nearest tile of the sheet counts, which is scrolled into it.
void SheetView::Drag(QPoint place)
{
    if ((place - dragged->Place).manhattanLength() < QApplication::startDragDistance())
        return; // the hand shook on the edge of a tile
    const QPoint from = place - Origin();
    const int side = TileSize * zoom;
    const auto within = [side](int at, int count) { return at < 0 ? 0 : qMin(at / side, count - 1); };
    const QPoint tile(within(from.x(), Sheet.SheetColumns), within(from.y(), Sheet.SheetRows));
    if (tile == dragged->Reached)
        return;
    dragged->Reached = tile;
    emit TilesDragged(dragged->Tile, tile);
    Uncover(tile);
}

const UsedTile* SheetView::UsedTileAt(QPoint place) const
{
    const auto tile = TileAt(place);
    const auto found =
        std::find_if(inUse.begin(), inUse.end(), [&](const UsedTile& used) { return used.Tile == tile; });
    return dots && tile && found != inUse.end() ? &*found : nullptr;
}

void SheetView::ShowUsers(const QHelpEvent& event) const
{
    const UsedTile* used = UsedTileAt(event.pos());
    if (!used) {
        QToolTip::hideText();
        return;
    }
    QStringList lines;
    for (const TileUser& user : used->Users)
        if (size_t(lines.size()) < MostUsersTold)
            lines << QStringLiteral("%1 (line %2)").arg(user.Key).arg(user.Line + 1);
    if (used->Users.size() > MostUsersTold)
        lines << QStringLiteral("and %1 more").arg(used->Users.size() - MostUsersTold);
    lines << QStringLiteral("Ctrl + left button goes there");
    QToolTip::showText(event.globalPos(),
                       lines.join(QLatin1Char('\n')).toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")), viewport(),
                       PlaceOf(used->Tile));
}

void SheetView::mouseMoveEvent(QMouseEvent* event)
{
    mouse = event->pos();
    TellPixel();
    if (dragged && event->buttons() & Qt::LeftButton)
        Drag(mouse);
}

bool SheetView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Leave) {
        mouse = NoPlace;
        TellPixel();
    }
    if (event->type() == QEvent::ToolTip) {
        ShowUsers(static_cast<const QHelpEvent&>(*event));
        return true;
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
