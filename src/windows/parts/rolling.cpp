#include "windows/parts/rolling.h"

#include <QScrollBar>

namespace {

constexpr int LeastRollingHeight = 60;

} // namespace

Rolling::Rolling(QWidget* inside, QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidget(inside);
}

QSize Rolling::minimumSizeHint() const
{
    const int bar = verticalScrollBar()->sizeHint().width();
    return {widget()->minimumSizeHint().width() + bar, LeastRollingHeight};
}
