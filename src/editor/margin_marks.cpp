#include "editor/margin_marks.h"

#include <QPainter>
#include <Qsci/qsciscintilla.h>
#include <algorithm>

using Sci = QsciScintillaBase;

namespace {

constexpr int Margin = 3, BarWidth = 3, MarkWidth = 11; // pixels at 96 dpi, as the component counts them
const QColor Strong(0xD0, 0x20, 0x20), Faint(0xC0, 0x8A, 0x00);

} // namespace

MarginMarks::MarginMarks(Component& component) : QWidget(component.Widget()), text(component)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    text.Send(Sci::SCI_SETMARGINTYPEN, Margin, Sci::SC_MARGIN_BACK);
    text.Send(Sci::SCI_SETMARGINMASKN, Margin, 0L);
    FitWidth();
}

void MarginMarks::FitWidth()
{
    text.Send(Sci::SCI_SETMARGINWIDTHN, Margin, long(linesShown ? BarWidth + MarkWidth : BarWidth));
}

void MarginMarks::SetBlock(int first, int last, QColor colour)
{
    if (first == blockFirst && last == blockLast && colour == blockColour)
        return;
    blockFirst = first;
    blockLast = last;
    blockColour = colour;
    update();
}

void MarginMarks::SetLines(std::vector<LineMark> wanted)
{
    if (wanted == marks)
        return;
    marks = std::move(wanted);
    update();
}

void MarginMarks::ShowLines(bool on)
{
    if (on == linesShown)
        return;
    linesShown = on;
    marks.clear();
    FitWidth();
    update();
}

QString MarginMarks::MessagesOf(int line) const
{
    QStringList messages;
    for (const LineMark& mark : marks)
        if (mark.Line == line)
            messages << mark.Message;
    return messages.join(QLatin1Char('\n'));
}

void MarginMarks::BeforeEdit(qsizetype position)
{
    blockFirst = blockLast = -1;
    const int line = text.LineOf(position);
    if (editedLine < 0)
        linesBefore = text.Lines();
    editedLine = editedLine < 0 ? line : qMin(line, editedLine);
}

void MarginMarks::AfterEdit()
{
    if (editedLine < 0)
        return;
    const int moved = text.Lines() - linesBefore;
    for (LineMark& mark : marks)
        if (mark.Line > editedLine)
            mark.Line = qMax(editedLine, mark.Line + moved);
    editedLine = -1;
    update();
}

void MarginMarks::Follow()
{
    int left = 0;
    for (int margin = 0; margin < Margin; ++margin)
        left += int(text.Send(Sci::SCI_GETMARGINWIDTHN, margin));
    const QWidget* viewport = text.Widget()->viewport();
    const QRect place(viewport->x() + left, viewport->y(), int(text.Send(Sci::SCI_GETMARGINWIDTHN, Margin)),
                      viewport->height());
    if (place != geometry()) {
        setGeometry(place);
        raise();
    }
    const int first = int(text.Send(Sci::SCI_GETFIRSTVISIBLELINE));
    if (std::exchange(firstShown, first) != first)
        update();
}

QRect MarginMarks::PlaceOf(int line) const
{
    const int height = int(text.Send(Sci::SCI_TEXTHEIGHT, 0L));
    return {0, (line - int(text.Send(Sci::SCI_GETFIRSTVISIBLELINE))) * height, width(), height};
}

void MarginMarks::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (blockFirst >= 0) {
        QRect bar = PlaceOf(blockFirst) | PlaceOf(blockLast);
        bar.setLeft(bar.right() - BarWidth + 1);
        painter.fillRect(bar & rect(), blockColour);
    }
    painter.setPen(Qt::NoPen);
    // The strong one of a line is drawn last.
    for (const bool strong : {false, true}) {
        painter.setBrush(strong ? Strong : Faint);
        for (const LineMark& mark : marks) {
            if (mark.Strong != strong)
                continue;
            const QRectF place = QRectF(PlaceOf(mark.Line)).adjusted(0, 0, -BarWidth, 0);
            const double radius = strong ? 4 : 3;
            painter.drawEllipse(place.center(), radius, radius);
        }
    }
}
