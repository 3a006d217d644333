#include "editor/block_mark.h"

#include <Qsci/qsciscintilla.h>
#include <utility>

using Sci = QsciScintillaBase;

namespace {
constexpr int Marker = 20, Margin = 3, Width = 3;
}

BlockMark::BlockMark(Component& component) : text(component)
{
    text.Send(Sci::SCI_SETMARGINTYPEN, Margin, Sci::SC_MARGIN_BACK);
    text.Send(Sci::SCI_SETMARGINMASKN, Margin, 1L << Marker);
    text.Send(Sci::SCI_SETMARGINWIDTHN, Margin, long(Width));
    text.Send(Sci::SCI_MARKERDEFINE, Marker, Sci::SC_MARK_FULLRECT);
}

void BlockMark::Set(int first, int last, int bgr)
{
    text.Send(Sci::SCI_MARKERSETBACK, Marker, long(bgr));
    if (first == marked && last == markedLast)
        return;
    Clear();
    if (first < 0)
        return;
    marked = first;
    markedLast = last;
    for (int line = first; line <= last; ++line)
        text.Send(Sci::SCI_MARKERADD, line, long(Marker));
}

void BlockMark::Clear()
{
    const int first = std::exchange(marked, -1), last = std::exchange(markedLast, -1);
    for (int line = first; line >= 0 && line <= last; ++line)
        text.Send(Sci::SCI_MARKERDELETE, line, long(Marker));
}
