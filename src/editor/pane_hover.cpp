#include "editor/pane.h"

#include <QBuffer>
#include <QHelpEvent>
#include <QImage>
#include <QToolTip>
#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

// What is told of the text under the mouse, and the bar beside a block.

namespace {
constexpr int HoverWindowSlot = 0, HoverTextSlot = 4;

/// A quarter of the text's colour on the window's.
int FaintColour(int text, int window)
{
    const auto channel = [&](int shift) {
        const int from = (window >> shift) & 0xFF, to = (text >> shift) & 0xFF;
        return (from + (to - from) / 4) << shift;
    };
    return channel(0) | channel(8) | channel(16);
}

/// A picture for a tool tip, which takes text alone.
QString MarkupOf(const QImage& picture)
{
    if (picture.isNull())
        return {};
    QByteArray file;
    QBuffer to(&file);
    picture.save(&to, "PNG");
    return QStringLiteral("<img src='data:image/png;base64,%1'>").arg(QLatin1StringView(file.toBase64()));
}
} // namespace

bool ScintillaPane::ShowHover(const QHelpEvent& event)
{
    QWidget* viewport = text.Widget()->viewport();
    const int height = int(text.Send(Sci::SCI_TEXTHEIGHT, 0L)), row = event.pos().y() / height;
    const int line = int(text.Send(Sci::SCI_GETFIRSTVISIBLELINE)) + row;
    QString summary = IsLine(line) ? marks->MessagesOf(line) : QString();
    QImage picture;
    const long position = text.Send(Sci::SCI_POSITIONFROMPOINTCLOSE, event.pos().x(), long(event.pos().y()));
    if (summary.isEmpty() && HoverText && position >= 0 && !marks->Covers(event.pos())) {
        summary = HoverText(*this, line, text.ColumnOf(position));
        if (HoverPicture && !summary.isEmpty())
            picture = HoverPicture(*this, line, text.ColumnOf(position));
    }
    if (summary.isEmpty()) {
        QToolTip::hideText();
        return true;
    }
    const int top = row * height;
    // The text is a conf's: never taken for markup, never wrapped.
    const QString plain = MarkupOf(picture) + QStringLiteral("<p style='white-space:pre'>") + summary.toHtmlEscaped() +
                          QStringLiteral("</p>");
    QToolTip::showText(event.globalPos(), plain, viewport, QRect(0, top, viewport->width(), height));
    return true;
}

void ScintillaPane::MarkBlock(int first, int last)
{
    const int bgr = FaintColour(looks.GetColor(HoverTextSlot), looks.GetColor(HoverWindowSlot));
    marks->SetBlock(first, last, QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF));
}

void ScintillaPane::ShowLineMarks(bool on)
{
    marks->ShowLines(on);
}

void ScintillaPane::SetLineMarks(std::vector<LineMark> wanted)
{
    marks->SetLines(std::move(wanted));
}

void ScintillaPane::SetStops(std::vector<LineMark> wanted)
{
    marks->SetStops(std::move(wanted));
}

std::vector<LineMark> ScintillaPane::Stops() const
{
    return marks->Stops();
}

void ScintillaPane::SetReadOnly(bool on)
{
    text.Send(Sci::SCI_SETREADONLY, on);
}

LineSpan ScintillaPane::VisibleLines() const
{
    const int first = int(text.Send(Sci::SCI_GETFIRSTVISIBLELINE));
    return {first, qMin(first + int(text.Send(Sci::SCI_LINESONSCREEN)), text.Lines() - 1)};
}
