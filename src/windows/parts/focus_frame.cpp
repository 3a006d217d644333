#include "windows/parts/focus_frame.h"

#include <QFrame>

void MarkFocus(QFrame& frame, bool has)
{
    QPalette colours = frame.palette();
    colours.setBrush(QPalette::WindowText, has ? colours.highlight() : colours.mid());
    frame.setPalette(colours);
}
