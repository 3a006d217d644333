#include "editor/pane.h"

#include <Qsci/qsciscintilla.h>
#include <algorithm>

using Sci = QsciScintillaBase;

Range ScintillaPane::GetSel(bool normalised) const
{
    const RawSelection raw = text.Selection();
    Range range;
    range.StartLine = text.LineOf(raw.Anchor);
    range.StartCol = text.ColumnOf(raw.Anchor) + raw.AnchorBlanks;
    range.EndLine = range.StartLine;
    range.EndCol = range.StartCol;
    range.ColumnSel = raw.Columns;
    if (raw.Caret != raw.Anchor || raw.Columns) {
        range.EndLine = text.LineOf(raw.Caret);
        range.EndCol = text.ColumnOf(raw.Caret) + raw.CaretBlanks;
    }
    if (!normalised)
        return range;
    const bool backward = raw.Caret < raw.Anchor;
    if (backward)
        std::swap(range.StartLine, range.EndLine);
    if (raw.Columns ? range.StartCol > range.EndCol : backward)
        std::swap(range.StartCol, range.EndCol);
    return range;
}

bool ScintillaPane::SetSel(const Range& range, bool makeVisible)
{
    if (!IsLine(range.StartLine) || !IsLine(range.EndLine))
        return false;
    const Work work(*this);
    const bool empty = range.StartLine == range.EndLine && range.StartCol == range.EndCol;
    if (range.ColumnSel)
        SelectColumns(range);
    else if (range.EndCol == LineEndColumn && !empty)
        text.Select(PositionOf(range.StartLine, range.StartCol), text.LineEnd(range.EndLine));
    else
        text.Select(PositionOf(range.StartLine, range.StartCol), PositionOf(range.EndLine, range.EndCol));
    if (makeVisible)
        ShowCaret();
    return true;
}

/// A rectangle may reach beyond the ends of its lines.
void ScintillaPane::SelectColumns(const Range& range)
{
    RawSelection corners;
    const auto corner = [this](int line, int column, qsizetype& position, int& blanks) {
        position = text.Position(line, column);
        blanks = qMax(0, column - text.ColumnOf(position));
    };
    corner(range.StartLine, range.StartCol, corners.Anchor, corners.AnchorBlanks);
    corner(range.EndLine, range.EndCol, corners.Caret, corners.CaretBlanks);
    text.SelectColumns(corners);
}

QString ScintillaPane::SelText() const
{
    QByteArray out;
    const QList<Span> pieces = text.SelectedPieces();
    for (const Span& piece : pieces) {
        if (&piece != &pieces.first())
            out += "\r\n";
        out += text.Piece(piece.Start, piece.End);
    }
    return ToText(out);
}

int ScintillaPane::SelLength() const
{
    if (text.Send(Sci::SCI_GETSELECTIONS) > 1)
        return int(SelText().size());
    const RawSelection raw = text.Selection();
    const Span now{raw.Start(), raw.End()};
    if (measured.Edits != edits || (measured.Selected.Start != now.Start && measured.Selected.End != now.End))
        measured = {{now.Start, now.Start}, edits, 0};
    const auto units = [this](qsizetype from, qsizetype to) { return UnitsOf(text.Piece(from, to)); };
    const Span before = measured.Selected;
    if (before.Start == now.Start)
        measured.Units += now.End > before.End ? units(before.End, now.End) : -units(now.End, before.End);
    else
        measured.Units += now.Start < before.Start ? units(now.Start, before.Start) : -units(before.Start, now.Start);
    measured.Selected = now;
    return int(measured.Units);
}

/// Puts bytes where the selection was; gives back where they stand.
Span ScintillaPane::WriteOverSelection(QByteArrayView bytes)
{
    const QList<Span> pieces = text.SelectedPieces();
    const qsizetype at = pieces.first().Start;
    if (pieces.size() == 1) {
        Write(at, pieces.first().End, bytes);
        return {at, at + bytes.size()};
    }
    text.Send(Sci::SCI_BEGINUNDOACTION);
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece)
        Write(piece->Start, piece->End, {});
    Write(at, at, bytes);
    text.Send(Sci::SCI_ENDUNDOACTION);
    return {at, at + bytes.size()};
}

void ScintillaPane::SetSelText(const QString& wanted)
{
    const Work work(*this);
    const Span written = WriteOverSelection(FromCaller(wanted));
    text.Select(written.Start, written.End);
    ShowCaret();
}

void ScintillaPane::ReplaceSel(const QString& wanted)
{
    const Work work(*this);
    const Span written = WriteOverSelection(FromCaller(wanted));
    text.Select(written.End, written.End);
    ShowCaret();
}

void ScintillaPane::SelectLine(int line, bool makeVisible)
{
    if (!IsLine(line))
        return;
    const Work work(*this);
    text.Select(text.LineStart(line), text.LineEnd(line));
    if (makeVisible)
        ShowCaret();
}

QString ScintillaPane::CurrentWord() const
{
    const Span word = CurrentWordSpan();
    return QString::fromUtf8(text.Piece(word.Start, word.End));
}

/// The word that the caret stands in or touches; empty if there is none.
Span ScintillaPane::CurrentWordSpan() const
{
    const qsizetype caret = Caret();
    const int line = text.LineOf(caret);
    const qsizetype start = text.LineStart(line);
    const QByteArrayView bytes = text.Piece(start, qMax(text.LineEnd(line), caret));
    qsizetype left = caret - start, right = left;
    while (left > 0 && IsWordByte(bytes[left - 1]))
        --left;
    while (right < bytes.size() && IsWordByte(bytes[right]))
        ++right;
    return {start + left, start + right};
}

void ScintillaPane::MoveCaret(qsizetype to, bool extend)
{
    text.Select(extend ? Anchor() : to, to);
    ShowCaret();
}
