#include "text/line_text.h"

#include <algorithm>

LineText::Stretch LineText::Selected() const
{
    return {qMin(anchor, caret), qMax(anchor, caret)};
}

/// From top to bottom: one piece, or one a line for columns.
QList<LineText::Stretch> LineText::SelectedPieces() const
{
    if (!columns)
        return {Selected()};
    QList<Stretch> pieces;
    const auto [left, right] = std::minmax(anchor.Column, caret.Column);
    const auto [top, bottom] = std::minmax(anchor.Line, caret.Line);
    for (int line = top; line <= bottom; ++line)
        pieces.append({Clamped(line, left), Clamped(line, right)});
    return pieces;
}

Range LineText::GetSel(bool normalised) const
{
    const Place from = Clamped(anchor.Line, anchor.Column), to = Clamped(caret.Line, caret.Column);
    Range range{from.Line, from.Column, to.Line, to.Column, false};
    if (columns && !emptied)
        range = {anchor.Line, anchor.Column, caret.Line, caret.Column, true};
    if (!normalised)
        return range;
    if (to < from)
        std::swap(range.StartLine, range.EndLine);
    if (range.ColumnSel ? range.StartCol > range.EndCol : to < from)
        std::swap(range.StartCol, range.EndCol);
    return range;
}

bool LineText::SetSel(const Range& range, bool)
{
    if (!IsLine(range.StartLine) || !IsLine(range.EndLine))
        return false;
    const bool empty = range.StartLine == range.EndLine && range.StartCol == range.EndCol;
    const Place start = Clamped(range.StartLine, range.StartCol);
    if (range.ColumnSel)
        Select({range.StartLine, qMax(range.StartCol, 0)}, {range.EndLine, qMax(range.EndCol, 0)});
    else if (range.EndCol == LineEndColumn && !empty)
        Select(start, {range.EndLine, GetLineLength(range.EndLine)});
    else
        Select(start, Clamped(range.EndLine, range.EndCol));
    columns = range.ColumnSel;
    Told();
    return true;
}

void LineText::Select(Place from, Place to)
{
    anchor = from;
    caret = to;
    columns = emptied = false;
    goal = -1;
}

void LineText::MoveTo(Place place, bool extend)
{
    if (columns) { // of a rectangle both ends may have stood behind their lines
        anchor = Clamped(anchor.Line, anchor.Column);
        place = Clamped(place.Line, place.Column);
    }
    Select(extend ? anchor : place, place);
}

QString LineText::SelText() const
{
    constexpr QLatin1StringView LineBreak("\r\n");
    if (!columns)
        return TextOf(Selected(), LineBreak);
    QStringList texts;
    for (const Stretch& piece : SelectedPieces())
        texts << TextOf(piece, LineBreak);
    return texts.join(LineBreak);
}

int LineText::SelLength() const
{
    if (columns)
        return int(SelText().size());
    const auto [start, end] = Selected();
    qsizetype length = end.Column - start.Column;
    for (int line = start.Line; line < end.Line; ++line)
        length += lines.Units(line) + 2;
    return int(length);
}

/// Puts a text where the selection was; gives back where it ends, `start` where it begins.
LineText::Place LineText::WriteOverSelection(QStringView wanted, Place& start)
{
    if (!columns) {
        const Stretch selected = Selected();
        start = selected.Start;
        return Edit(selected, wanted);
    }
    const QList<Stretch> pieces = SelectedPieces();
    start = pieces.first().Start;
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece)
        Edit(*piece, {});
    return Edit({start, start}, wanted);
}

void LineText::SetSelText(const QString& wanted)
{
    Place start;
    const Place end = WriteOverSelection(wanted, start);
    Select(start, end);
    Told();
}

void LineText::ReplaceSel(const QString& wanted)
{
    Place start;
    const Place end = WriteOverSelection(wanted, start);
    Select(end, end);
    Told();
}

void LineText::SelectLine(int line, bool)
{
    if (!IsLine(line))
        return;
    Select({line, 0}, {line, GetLineLength(line)});
    Told();
}

bool LineText::SelectCaretLine(const QVariant&)
{
    SelectLine(caret.Line, true);
    return true;
}

bool LineText::SelectAll(const QVariant&)
{
    Select({}, EndPlace());
    return true;
}

bool LineText::ClearSelection(const QVariant&)
{
    const Place place = Clamped(caret.Line, caret.Column);
    Select(place, place);
    return true;
}

bool LineText::BehindSelection(const QVariant&)
{
    const Place end = qMax(Clamped(anchor.Line, anchor.Column), Clamped(caret.Line, caret.Column));
    Select(end, end);
    return true;
}

QString LineText::CurrentWord() const
{
    return TextOf(WordAt(caret), {});
}
