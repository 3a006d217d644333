#include "editor/margin_marks.h"

#include <QPainter>
#include <Qsci/qsciscintilla.h>
#include <algorithm>

using Sci = QsciScintillaBase;

namespace {

constexpr int Margin = 3, BarWidth = 3, MarkWidth = 11; // pixels at 96 dpi, as the component counts them
const QColor Strong(0xD0, 0x20, 0x20), Faint(0xC0, 0x8A, 0x00), Stop(0x2A, 0x6F, 0xC9);

void MoveWithLines(std::vector<LineMark>& marks, int firstMoved, int moved)
{
    for (LineMark& mark : marks)
        if (mark.Line >= firstMoved)
            mark.Line = qMax(qMax(firstMoved - 1, 0), mark.Line + moved);
}

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

void MarginMarks::SetStops(std::vector<LineMark> wanted)
{
    stopsTaken = true;
    if (wanted == stops)
        return;
    stops = std::move(wanted);
    update();
}

QString MarginMarks::MessagesOf(int line) const
{
    QStringList messages;
    for (const LineMark& stop : stops)
        if (stop.Line == line)
            messages << (stop.Message.isEmpty() ? QStringLiteral("Breakpoint")
                                                : QStringLiteral("Breakpoint if ") + stop.Message);
    for (const LineMark& mark : marks)
        if (mark.Line == line)
            messages << mark.Message;
    return messages.join(QLatin1Char('\n'));
}

void MarginMarks::BeforeEdit(qsizetype position, bool inserting)
{
    blockFirst = blockLast = -1;
    const int line = text.LineOf(position);
    const int moves = inserting && position == text.LineStart(line) ? line : line + 1;
    if (firstMoved < 0)
        linesBefore = text.Lines();
    firstMoved = firstMoved < 0 ? moves : qMin(moves, firstMoved);
}

void MarginMarks::AfterEdit()
{
    if (firstMoved < 0)
        return;
    const int moved = text.Lines() - linesBefore;
    MoveWithLines(marks, firstMoved, moved);
    MoveWithLines(stops, firstMoved, moved);
    const auto same = [](const LineMark& a, const LineMark& b) { return a.Line == b.Line; };
    stops.erase(std::unique(stops.begin(), stops.end(), same), stops.end()); // their lines have gone
    firstMoved = -1;
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
    PaintStops(painter);
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

/// One that depends on a condition is hollow.
void MarginMarks::PaintStops(QPainter& painter) const
{
    constexpr double Half = 5, Rounding = 2.5, Hole = 2;
    for (const LineMark& stop : stops) {
        const QPointF centre = QRectF(PlaceOf(stop.Line)).adjusted(0, 0, -BarWidth, 0).center();
        painter.setBrush(Stop);
        painter.drawRoundedRect(QRectF(centre - QPointF(Half, Half), centre + QPointF(Half, Half)), Rounding, Rounding);
        painter.setBrush(Qt::white);
        if (!stop.Message.isEmpty())
            painter.drawEllipse(centre, Hole, Hole);
    }
}
