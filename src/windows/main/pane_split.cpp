#include "windows/main/pane_split.h"

#include "frame/frame_state.h"

#include <QMouseEvent>
#include <algorithm>

namespace {

// In twips.
constexpr int Edge = 75, Top = 40, MediaWidth = 2500, BesideMedia = 150, SplitWidth = 200;
constexpr int DraggedWidth = 100, BeforeSplit = 60, BehindMedia = 140;
constexpr int LeastMedia = 350, LeastText = 4995;
constexpr int TwipsAnInch = 1440, TickMs = 1;

} // namespace

PaneSplit::PaneSplit(QWidget* text) : textSide(text), picSplit(new QWidget(this))
{
    textSide->setParent(this);
    picSplit->setObjectName(QStringLiteral("picSplit"));
    picSplit->setCursor(Qt::SplitHCursor);
    picSplit->installEventFilter(this);
    picSplit->lower();
    picSplit->hide();
    tmrResize.setSingleShot(true);
    tmrResize.setInterval(TickMs);
    connect(&tmrResize, &QTimer::timeout, this, &PaneSplit::LayoutMainWindow);
}

void PaneSplit::SetMedia(QWidget* lists)
{
    ssML = lists;
    ssML->setParent(this);
    ssML->show();
    picSplit->show();
    LayoutMainWindow();
}

int PaneSplit::Pixel(int twips) const
{
    return qRound(double(twips) * logicalDpiX() / TwipsAnInch);
}

int PaneSplit::Twips(int pixels) const
{
    return qRound(double(pixels) * TwipsAnInch / logicalDpiX());
}

void PaneSplit::LayoutMainWindow()
{
    if (window()->isMinimized())
        return;
    const int mediaLeft = width() - Pixel(MediaWidth);
    const int top = Pixel(Top), left = Pixel(Edge);
    const int high = height() - 2 * top;
    textSide->setGeometry(left, top, ssML ? mediaLeft - Pixel(BesideMedia) : width() - 2 * left, high);
    if (ssML) {
        ssML->setGeometry(mediaLeft, top, width() - mediaLeft - Pixel(BehindMedia), high);
        picSplit->setGeometry(mediaLeft - Pixel(SplitWidth) / 2, 0, Pixel(SplitWidth), height());
    }
    emit LaidOut();
}

int PaneSplit::SplitFor(int wanted, int width)
{
    return std::max({std::min(wanted, width - LeastMedia), width / 2, LeastText});
}

void PaneSplit::DragTo(int x)
{
    const int split = Pixel(SplitFor(Twips(picSplit->x() + x), Twips(width())));
    picSplit->setGeometry(split, 0, Pixel(DraggedWidth), height());
    textSide->setGeometry(textSide->x(), textSide->y(), split - Pixel(BeforeSplit), textSide->height());
    const int mediaLeft = split + Pixel(DraggedWidth);
    ssML->setGeometry(mediaLeft, ssML->y(), width() - mediaLeft - Pixel(BehindMedia), ssML->height());
    emit Dragged();
}

// A maximise and the restore behind it come in the middle of the window manager's own work: they lay out a tick later.
void PaneSplit::resizeEvent(QResizeEvent*)
{
    const bool maximised = window()->isMaximized();
    if (maximised || resizePending) {
        resizePending = maximised;
        tmrResize.start();
    } else if (!Frame.StartingUp) {
        LayoutMainWindow();
    }
}

bool PaneSplit::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != picSplit || event->type() != QEvent::MouseMove)
        return QWidget::eventFilter(watched, event);
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (ssML && mouse->buttons().testFlag(Qt::LeftButton))
        DragTo(mouse->position().toPoint().x());
    return false;
}
