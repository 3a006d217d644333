#include "text/line_text.h"

bool LineText::DeleteLeft(const QVariant&)
{
    if (HasSelection())
        return DeleteRight({});
    const Place start = Before(caret);
    Edit({start, caret}, {});
    Select(start, start);
    return true;
}

/// What is left of columns is a rectangle without width.
bool LineText::DeleteRight(const QVariant&)
{
    if (!HasSelection()) {
        const Place place = caret;
        Edit({place, Behind(place)}, {});
        Select(place, place);
        return true;
    }
    const QList<Stretch> pieces = SelectedPieces();
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece)
        Edit(*piece, {});
    if (columns) {
        anchor.Column = caret.Column = qMin(anchor.Column, caret.Column);
        emptied = true;
        goal = -1;
    } else {
        Select(pieces.first().Start, pieces.first().Start);
    }
    return true;
}

bool LineText::DeleteToLineStart(const QVariant&)
{
    const Place start{caret.Line, 0}, end = Clamped(caret.Line, caret.Column);
    Edit({start, end}, {});
    MoveTo(start, false);
    return end > start;
}

bool LineText::DeleteToLineEnd(const QVariant&)
{
    const Place start = Clamped(caret.Line, caret.Column), end{caret.Line, GetLineLength(caret.Line)};
    Edit({start, end}, {});
    MoveTo(start, false);
    return end > start;
}

/// The text's last line stays, empty.
bool LineText::DeleteCaretLine(const QVariant&)
{
    const Place start{caret.Line, 0};
    const Place end = caret.Line == LastLine() ? EndPlace() : Place{caret.Line + 1, 0};
    Edit({start, end}, {});
    MoveTo(start, false);
    return end > start;
}

bool LineText::OpenLineBelow(const QVariant&)
{
    const Place end{caret.Line, GetLineLength(caret.Line)};
    MoveTo(Edit({end, end}, u"\n"), false);
    return true;
}

bool LineText::OpenLineAbove(const QVariant&)
{
    const Place start{caret.Line, 0};
    Edit({start, start}, u"\n");
    MoveTo(start, false);
    return true;
}

bool LineText::BreakLine(const QVariant&)
{
    ReplaceSel(QStringLiteral("\n"));
    return true;
}

/// The two characters around the caret change places, at a line's end its last two.
bool LineText::SwapChars(const QVariant&)
{
    const Place here = Clamped(caret.Line, caret.Column);
    const int length = GetLineLength(here.Line);
    const bool atEnd = here.Column >= length;
    const Place middle = atEnd ? Before(here) : here;
    if (middle.Line != here.Line || middle.Column == 0)
        return false;
    const Place left = Before(middle), right = Behind(middle);
    if (right.Line != middle.Line)
        return false;
    const QString swapped = TextOf({middle, right}, {}) + TextOf({left, middle}, {});
    Edit({left, right}, swapped);
    MoveTo(atEnd ? right : Place{left.Line, left.Column + right.Column - middle.Column}, false);
    return true;
}

/// The word at the caret and the next of its line change places; the caret goes with the word.
bool LineText::SwapWords(const QVariant&)
{
    const Stretch word = WordAt(caret);
    Place next = word.End;
    const int length = GetLineLength(word.End.Line);
    while (next.Column < length && WordAt({next.Line, next.Column + 1}).Start.Column > next.Column)
        ++next.Column;
    const Stretch other = WordAt({next.Line, qMin(next.Column + 1, length)});
    if (word.Start == word.End || next.Column >= length || other.Start.Column < word.End.Column)
        return false;
    const QString swapped = TextOf(other, {}) + TextOf({word.End, other.Start}, {}) + TextOf(word, {});
    Edit({word.Start, other.End}, swapped);
    MoveTo(other.End, false);
    return true;
}

bool LineText::Copy(const QVariant&)
{
    if (!HasSelection())
        return false;
    const QString text = SelText();
    clipboard.SetText(text);
    columnsCopied = columns ? text : QString();
    return true;
}

bool LineText::Cut(const QVariant& none)
{
    return Copy(none) && DeleteRight(none);
}

bool LineText::CutAppend(const QVariant&)
{
    if (!HasSelection())
        return false;
    clipboard.SetText(clipboard.Text() + SelText());
    columnsCopied.clear();
    ReplaceSel({});
    return true;
}

bool LineText::CutLine(const QVariant& none)
{
    clipboard.SetText(GetLine(caret.Line) + QStringLiteral("\r\n"));
    columnsCopied.clear();
    DeleteCaretLine(none);
    return true;
}

bool LineText::Paste(const QVariant& none)
{
    const QString pasted = clipboard.Text();
    const bool asColumns = !columnsCopied.isEmpty() && pasted == columnsCopied;
    if (HasSelection())
        DeleteRight(none);
    if (asColumns)
        PasteColumns(pasted);
    else
        ReplaceSel(pasted);
    return true;
}

/// Line by line below each other at the caret's column, with blanks where a line is too short.
void LineText::PasteColumns(const QString& pasted)
{
    const Place start = SelectedPieces().first().Start;
    const int column = ShownColumn(start);
    int line = start.Line;
    QStringList pieces = pasted.split(QLatin1String("\r\n"));
    while (!pieces.isEmpty() && pieces.last().isEmpty())
        pieces.removeLast();
    for (const QString& piece : std::as_const(pieces)) {
        if (line > LastLine())
            Edit({EndPlace(), EndPlace()}, u"\n");
        const Place place = PlaceAt(line, column);
        const int missing = column - ShownColumn(place);
        const QString padded = QString(qMax(missing, 0), u' ') + piece;
        Edit({place, place}, padded);
        ++line;
    }
    Select(start, start);
}

bool LineText::OpenGroup(const QVariant&)
{
    ++groups;
    return true;
}

bool LineText::CloseGroup(const QVariant&)
{
    if (groups == 0)
        return false;
    --groups;
    return true;
}
