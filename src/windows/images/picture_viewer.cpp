#include "windows/images/picture_viewer.h"

#include "graphics/see_through.h"
#include "windows/parts/focus_frame.h"
#include "windows/sheet/sheet_ground.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

namespace {

constexpr QSize ViewerSize{385, 491};
constexpr QSize LeastViewer{120, 120};
constexpr int ScrollStep = 100;
constexpr int WheelStep = 120;

QString Indexed(const char* name, int index)
{
    return QString::fromLatin1(name) + QString::number(index);
}

} // namespace

PictureViewer::PictureViewer(int index, const QString& name, QWidget* parent) : QAbstractScrollArea(parent)
{
    setObjectName(Indexed("pcxContainer", index));
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    MarkFocus(*this, false);
    viewport()->setObjectName(Indexed("pcxPicture", index));
    viewport()->setBackgroundRole(QPalette::Window);
    horizontalScrollBar()->setObjectName(Indexed("PCXScrollH", index));
    verticalScrollBar()->setObjectName(Indexed("PCXScrollV", index));
    // Bars that come and go would take their room from the picture.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    FitScrollBars();
}

QSize PictureViewer::sizeHint() const
{
    const int frame = 2 * frameWidth();
    const QSize bars(verticalScrollBar()->sizeHint().width(), horizontalScrollBar()->sizeHint().height());
    return ViewerSize + bars + QSize(frame, frame);
}

QSize PictureViewer::minimumSizeHint() const
{
    return LeastViewer;
}

void PictureViewer::ShowPicture(const QImage& shown)
{
    ReplacePicture(shown);
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
}

void PictureViewer::ReplacePicture(const QImage& shown)
{
    picture = shown;
    FitScrollBars();
    viewport()->update();
}

void PictureViewer::SetZoom(int times)
{
    QScrollBar* const bars[] = {horizontalScrollBar(), verticalScrollBar()};
    const int rooms[] = {viewport()->width(), viewport()->height()};
    int kept[2];
    for (int i = 0; i < 2; ++i)
        kept[i] = (bars[i]->value() + rooms[i] / 2) / zoom;
    zoom = times;
    FitScrollBars();
    for (int i = 0; i < 2; ++i)
        bars[i]->setValue(kept[i] * zoom - rooms[i] / 2);
    viewport()->update();
}

void PictureViewer::SetInGame(bool on)
{
    inGame = on;
    viewport()->update();
}

void PictureViewer::FitScrollBars()
{
    const auto fit = [](QScrollBar& bar, int size, int room) {
        bar.setRange(0, qMax(0, size - room));
        bar.setSingleStep(ScrollStep);
        bar.setPageStep(ScrollStep);
    };
    fit(*horizontalScrollBar(), picture.width() * zoom, viewport()->width());
    fit(*verticalScrollBar(), picture.height() * zoom, viewport()->height());
}

QPoint PictureViewer::Corner() const
{
    return -QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
}

/// Only what shows is made ready: a picture may be far larger than the view.
void PictureViewer::paintEvent(QPaintEvent* event)
{
    if (picture.isNull())
        return;
    QPainter painter(viewport());
    const QRect area = event->rect().translated(-Corner());
    const QRect part =
        QRect(QPoint(area.left() / zoom, area.top() / zoom), QPoint(area.right() / zoom, area.bottom() / zoom))
            .intersected(picture.rect());
    const QRect place(part.topLeft() * zoom + Corner(), part.size() * zoom);
    const QImage shown = picture.copy(part);
    if (inGame) {
        painter.setBrushOrigin(Corner());
        painter.fillRect(place, GroundBrush(SheetGround::Checker));
    }
    painter.drawImage(place, inGame ? AsInGame(shown) : shown);
}

void PictureViewer::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    FitScrollBars();
}

void PictureViewer::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    MarkFocus(*this, true);
}

void PictureViewer::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    MarkFocus(*this, false);
}

void PictureViewer::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) {
        const auto end =
            event->key() == Qt::Key_End ? QAbstractSlider::SliderToMaximum : QAbstractSlider::SliderToMinimum;
        horizontalScrollBar()->triggerAction(end);
        verticalScrollBar()->triggerAction(end);
        return;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

void PictureViewer::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    held = event->position().toPoint() - Corner();
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void PictureViewer::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & Qt::LeftButton))
        return;
    const QPoint to = held - event->position().toPoint();
    horizontalScrollBar()->setValue(to.x());
    verticalScrollBar()->setValue(to.y());
}

void PictureViewer::mouseReleaseEvent(QMouseEvent*)
{
    viewport()->unsetCursor();
}

void PictureViewer::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    wheelTurn += event->angleDelta().y();
    if (const int steps = wheelTurn / WheelStep) {
        wheelTurn %= WheelStep;
        emit ZoomWanted(steps);
    }
}
