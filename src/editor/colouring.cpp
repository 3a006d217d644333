#include "editor/colouring.h"

#include "frame/frame_state.h"

#include <Qsci/qsciscintilla.h>
#include <algorithm>
#include <utility>

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
    printed = hides = false;
}

/// Until the tail of a very long line that comes is hidden, nothing plain is measured: it would take its time.
void Colouring::BeforeEdit(qsizetype start, qsizetype removed, qsizetype added)
{
    if (added > LongestShown) {
        ShowPlain(false);
        fresh = fresh.Start < fresh.End ? Span{std::min(fresh.Start, start), std::max(fresh.End, start) + added}
                                        : Span{start, start + added};
    }
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
    for (qsizetype at = span.Start; at < span.End;) {
        const int line = text.LineOf(at);
        const qsizetype end = text.LineEnd(line), next = text.LineStart(line + 1);
        if (end - at <= LongestShown) {
            ColourLine({at, next});
        } else {
            ColourLine({at, at + LongestShown});
            HideTail({at + LongestShown, next});
        }
        at = next;
    }
}

/// With its break, if that is shown.
void Colouring::ColourLine(Span shown)
{
    QByteArray styles(shown.End - shown.Start, StyleNormal);
    if (on) {
        const QByteArrayView bytes = text.Piece(shown.Start, std::min(shown.End, shown.Start + LongestColoured));
        const auto end = std::find_if(bytes.begin(), bytes.end(), [](char c) { return c == '\n' || c == '\r'; });
        colours.Colour({bytes.data(), size_t(end - bytes.begin())}, styles.data());
    }
    for (qsizetype at = shown.Start; printed && at < shown.End; ++at) {
        const long style = text.Send(Sci::SCI_GETSTYLEAT, at) & 0xFF;
        if (style >= StyleFirstPrint)
            styles[at - shown.Start] = char(style);
    }
    text.Send(Sci::SCI_STARTSTYLING, shown.Start);
    text.Send(Sci::SCI_SETSTYLINGEX, styles.size(), styles.constData());
}

void Colouring::HideTail(Span tail)
{
    hides = true;
    text.Send(Sci::SCI_STARTSTYLING, tail.Start);
    text.Send(Sci::SCI_SETSTYLING, tail.End - tail.Start, long(StyleUnseen));
}

void Colouring::Unlock(Span span)
{
    if (!hides || span.Start >= span.End)
        return;
    text.Send(Sci::SCI_STARTSTYLING, span.Start);
    text.Send(Sci::SCI_SETSTYLING, span.End - span.Start, long(StyleNormal));
}

void Colouring::ShowPlain(bool wanted)
{
    if (bool(text.Send(Sci::SCI_STYLEGETVISIBLE, long(StyleNormal))) != wanted)
        text.Send(Sci::SCI_STYLESETVISIBLE, long(StyleNormal), long(wanted));
}

void Colouring::AfterEdit()
{
    if (fresh.Start >= fresh.End)
        return;
    // A line as long as that cannot stand between two of these places.
    constexpr qsizetype Stride = LongestShown / 2;
    const Span came = std::exchange(fresh, {0, 0});
    bool told = false;
    for (qsizetype at = came.Start; at < std::min(came.End, text.Length()); at += Stride) {
        const int line = text.LineOf(at);
        const qsizetype start = text.LineStart(line), end = text.LineEnd(line);
        if (end - start <= LongestShown)
            continue;
        HideTail({start + LongestShown, text.LineStart(line + 1)});
        if (!std::exchange(told, true) && Cut)
            Cut(line, end - start);
        at = end;
    }
    ShowPlain(true);
}

void Colouring::Print(Span bytes, char style)
{
    printed = true;
    text.Send(Sci::SCI_STARTSTYLING, bytes.Start);
    text.Send(Sci::SCI_SETSTYLING, bytes.End - bytes.Start, long(uchar(style)));
}
