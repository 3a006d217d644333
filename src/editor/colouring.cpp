#include "editor/colouring.h"

#include "frame/frame_state.h"

#include <Qsci/qsciscintilla.h>
#include <algorithm>

using Sci = QsciScintillaBase;

namespace {

constexpr qsizetype LongestColoured = qsizetype(32) * 1024; // of one line; what stands behind is plain

} // namespace

void Colouring::SetLanguage(const QString& name)
{
    if (name == language && generation == Frame.Globals.Generation())
        return;
    language = name;
    generation = -1;
    text.Widget()->viewport()->update();
}

void Colouring::SetOn(bool wanted)
{
    on = wanted;
    done.Clear();
    text.Widget()->viewport()->update();
}

void Colouring::Reset()
{
    done.Clear();
    printed = false;
}

void Colouring::BeforeEdit(qsizetype start, qsizetype removed, qsizetype added)
{
    if (done.Spans().empty())
        return;
    const Span lines{text.LineStart(text.LineOf(start)), text.LineStart(text.LineOf(start + removed) + 1)};
    done.Edited(lines, added - removed);
}

/// Languages may be registered after a pane chose one, and anew.
void Colouring::TakeLanguage()
{
    if (generation == Frame.Globals.Generation())
        return;
    generation = Frame.Globals.Generation();
    const LanguageObject* found = Frame.Globals.FindLanguage(language);
    colours = found ? LineColours(*found) : LineColours();
    done.Clear();
}

void Colouring::ColourView()
{
    TakeLanguage();
    const int first = int(text.Send(Sci::SCI_GETFIRSTVISIBLELINE));
    const int last = first + int(text.Send(Sci::SCI_LINESONSCREEN)) + 1;
    const Span view{text.LineStart(first), text.LineStart(std::min(last, text.Lines() - 1) + 1)};
    for (const Span& span : done.Missing(view))
        ColourSpan(span);
    done.Add(view);
    if (text.Send(Sci::SCI_GETENDSTYLED) != text.Length())
        text.Send(Sci::SCI_STARTSTYLING, text.Length()); // else the component asks for the rest at each paint
}

void Colouring::ColourSpan(Span span)
{
    QByteArray styles(span.End - span.Start, StyleNormal);
    for (qsizetype at = span.Start; on && at < span.End;) {
        const int line = text.LineOf(at);
        const qsizetype end = std::min(text.LineEnd(line), at + LongestColoured);
        const QByteArrayView bytes = text.Piece(at, end);
        colours.Colour({bytes.data(), size_t(bytes.size())}, styles.data() + (at - span.Start));
        at = text.LineStart(line + 1);
    }
    for (qsizetype at = span.Start; printed && at < span.End; ++at) {
        const long style = text.Send(Sci::SCI_GETSTYLEAT, at) & 0xFF;
        if (style >= StyleFirstPrint)
            styles[at - span.Start] = char(style);
    }
    text.Send(Sci::SCI_STARTSTYLING, span.Start);
    text.Send(Sci::SCI_SETSTYLINGEX, styles.size(), styles.constData());
}

void Colouring::Print(Span bytes, char style)
{
    printed = true;
    text.Send(Sci::SCI_STARTSTYLING, bytes.Start);
    text.Send(Sci::SCI_SETSTYLING, bytes.End - bytes.Start, long(uchar(style)));
}
