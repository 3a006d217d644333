#include "editor/pane.h"

#include <QHelpEvent>
#include <QToolTip>
#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

// What is told of the text under the mouse, and the bar beside a block.

namespace {
constexpr int WindowSlot = 0, NormalSlot = 4;

/// A quarter of the text's colour on the window's.
int Faint(int text, int window)
{
    const auto channel = [&](int shift) {
        const int from = (window >> shift) & 0xFF, to = (text >> shift) & 0xFF;
        return (from + (to - from) / 4) << shift;
    };
    return channel(0) | channel(8) | channel(16);
}
} // namespace

bool ScintillaPane::ShowHover(const QHelpEvent& event)
{
    QWidget* viewport = text.Widget()->viewport();
    const long position = text.Send(Sci::SCI_POSITIONFROMPOINTCLOSE, event.pos().x(), long(event.pos().y()));
    const int line = position < 0 ? -1 : text.LineOf(position);
    const QString summary = HoverText && line >= 0 ? HoverText(*this, line, text.ColumnOf(position)) : QString();
    if (summary.isEmpty()) {
        QToolTip::hideText();
        return true;
    }
    const int top = int(text.Send(Sci::SCI_POINTYFROMPOSITION, 0, position));
    const int height = int(text.Send(Sci::SCI_TEXTHEIGHT, line));
    // The text is a conf's: never taken for markup, never wrapped.
    const QString plain = QStringLiteral("<p style='white-space:pre'>") + summary.toHtmlEscaped() + QStringLiteral("</p>");
    QToolTip::showText(event.globalPos(), plain, viewport, QRect(0, top, viewport->width(), height));
    return true;
}

void ScintillaPane::MarkBlock(int first, int last)
{
    blockMark.Set(first, last, Faint(looks.GetColor(NormalSlot), looks.GetColor(WindowSlot)));
}
