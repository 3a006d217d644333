#include "editor/drop_place.h"

#include "editor/component.h"

#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

namespace {

constexpr int Width = 2;

} // namespace

long DropPlace::At(QPoint point) const
{
    return text.Send(Sci::SCI_POSITIONFROMPOINT, point.x(), long(point.y()));
}

void DropPlace::Show(QPoint point)
{
    if (!bar) {
        bar = new QWidget(text.Widget()->viewport());
        bar->setAutoFillBackground(true);
        bar->setBackgroundRole(QPalette::Highlight);
    }
    const long position = At(point);
    bar->setGeometry(int(text.Send(Sci::SCI_POINTXFROMPOSITION, 0L, position)) - Width / 2,
                     int(text.Send(Sci::SCI_POINTYFROMPOSITION, 0L, position)), Width,
                     int(text.Send(Sci::SCI_TEXTHEIGHT, 0L)));
    bar->show();
}

void DropPlace::Hide()
{
    if (bar)
        bar->hide();
}
