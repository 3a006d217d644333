#include "editor/pane.h"

#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

QString ScintillaPane::Text() const
{
    return ToText(text.All());
}

void ScintillaPane::SetText(const QString& wanted)
{
    const Work work(*this);
    Write(0, text.Length(), FromCaller(wanted));
    blank = wanted.isEmpty();
    text.Select(0, 0);
    ShowCaret();
}

int ScintillaPane::LineCount() const
{
    return blank ? 0 : text.Lines();
}

QString ScintillaPane::GetLine(int line) const
{
    return IsLine(line) ? QString::fromUtf8(text.Line(line)) : QString();
}

int ScintillaPane::GetLineLength(int line) const
{
    return IsLine(line) ? int(UnitsOf(text.Line(line))) : 0;
}

qsizetype ScintillaPane::LineStart(int line) const
{
    return text.LineStart(qMax(line, 0));
}

/// A position for callers that may be out of range: the nearest there is.
qsizetype ScintillaPane::PositionOf(int line, int column) const
{
    if (line < 0)
        return 0;
    return IsLine(line) ? text.Position(line, column) : text.Length();
}

void ScintillaPane::Write(qsizetype start, qsizetype end, QByteArrayView bytes)
{
    text.Replace(start, end, bytes);
    colouring.AfterEdit();
    blank = false;
}

QByteArrayView ScintillaPane::Bytes(int first, int last) const
{
    return IsLine(first) && first <= last ? text.Piece(text.LineStart(first), text.LineStart(last + 1))
                                          : QByteArrayView();
}

void ScintillaPane::ReplaceLines(int first, int last, QByteArrayView bytes)
{
    if (!IsLine(first) || last < first)
        return;
    const Work work(*this);
    Write(text.LineStart(first), text.LineEnd(qMin(last, text.Lines() - 1)), bytes);
}

void ScintillaPane::InsertText(const QString& wanted, const Range& at)
{
    const Work work(*this);
    const qsizetype start = PositionOf(at.StartLine, at.StartCol);
    Write(start, start, FromCaller(wanted));
}

void ScintillaPane::AddText(const QString& wanted)
{
    const Work work(*this);
    Write(text.Length(), text.Length(), FromCaller(wanted));
}

void ScintillaPane::InsertLine(int line, const QString& wanted)
{
    if (line < 0)
        return;
    const Work work(*this);
    const QByteArray lineBreak = BytesOf(lineEnd).toByteArray();
    QByteArray bytes = FromCaller(wanted);
    const qsizetype at = text.LineStart(line);
    if (blank)
        Write(0, 0, bytes);
    else if (IsLine(line))
        Write(at, at, bytes.append(lineBreak));
    else
        Write(at, at, bytes.prepend(lineBreak));
}

/// The last line goes with the line end in front of it.
void ScintillaPane::DeleteLine(int line)
{
    if (!IsLine(line))
        return;
    const Work work(*this);
    const bool last = line + 1 == text.Lines();
    Write(last && line > 0 ? text.LineEnd(line - 1) : text.LineStart(line), text.LineStart(line + 1), {});
}
