#include "editor/pane.h"

namespace {

enum class Class { Blank, Word, Sign };

Class ClassOf(char byte)
{
    if (uchar(byte) <= ' ')
        return Class::Blank;
    return IsWordByte(byte) ? Class::Word : Class::Sign;
}

} // namespace

/// Where the next word of the line begins, its end, or from there the next line's start.
qsizetype ScintillaPane::NextWord(qsizetype from) const
{
    const int line = text.LineOf(from);
    const QByteArrayView rest = text.Piece(from, text.LineEnd(line));
    if (rest.isEmpty())
        return text.LineStart(line + 1);
    const Class first = ClassOf(rest[0]);
    qsizetype at = 0;
    while (at < rest.size() && ClassOf(rest[at]) == first)
        ++at;
    while (at < rest.size() && ClassOf(rest[at]) == Class::Blank)
        ++at;
    return from + at;
}

/// Where the word in front begins; from a line's start the end of the line above.
qsizetype ScintillaPane::PreviousWord(qsizetype from) const
{
    const int line = text.LineOf(from);
    const qsizetype start = text.LineStart(line);
    if (from == start)
        return line > 0 ? text.LineEnd(line - 1) : 0;
    const QByteArrayView front = text.Piece(start, from);
    qsizetype at = front.size();
    while (at > 0 && ClassOf(front[at - 1]) == Class::Blank)
        --at;
    if (at == 0)
        return start;
    const Class last = ClassOf(front[at - 1]);
    while (at > 0 && ClassOf(front[at - 1]) == last)
        --at;
    return start + at;
}

bool ScintillaPane::WordRight(const QVariant&)
{
    MoveCaret(NextWord(Caret()), false);
    return true;
}

bool ScintillaPane::WordRightExtend(const QVariant&)
{
    MoveCaret(NextWord(Caret()), true);
    return true;
}

bool ScintillaPane::WordLeft(const QVariant&)
{
    MoveCaret(PreviousWord(Caret()), false);
    return true;
}

bool ScintillaPane::WordLeftExtend(const QVariant&)
{
    MoveCaret(PreviousWord(Caret()), true);
    return true;
}

/// The word at the caret and the next of its line change places; the caret goes with the word.
bool ScintillaPane::SwapWords(const QVariant&)
{
    const Span word = CurrentWordSpan();
    const qsizetype end = text.LineEnd(text.LineOf(word.Start));
    const QByteArrayView rest = text.Piece(word.End, end);
    qsizetype next = 0;
    while (next < rest.size() && !IsWordByte(rest[next]))
        ++next;
    qsizetype behind = next;
    while (behind < rest.size() && IsWordByte(rest[behind]))
        ++behind;
    if (word.Start == word.End || next == behind)
        return false;
    QByteArray swapped = rest.sliced(next, behind - next).toByteArray();
    swapped += rest.first(next);
    swapped += text.Piece(word.Start, word.End);
    Write(word.Start, word.End + behind, swapped);
    MoveCaret(word.End + behind, false);
    return true;
}

bool ScintillaPane::DeleteWordLeft(const QVariant&)
{
    const RawSelection selected = text.Selection();
    const bool empty = selected.Start() == selected.End();
    text.Select(empty ? PreviousWord(selected.Caret) : selected.Start(), selected.End());
    ReplaceSel({});
    return true;
}

bool ScintillaPane::DeleteWordRight(const QVariant&)
{
    const RawSelection selected = text.Selection();
    const bool empty = selected.Start() == selected.End();
    text.Select(selected.Start(), empty ? NextWord(selected.Caret) : selected.End());
    ReplaceSel({});
    return true;
}
