#include "text/command_numbers.h"
#include "text/line_text.h"

#include <array>

namespace {

enum class UnitClass { Blank, Word, Sign };

bool IsWordUnit(QChar unit)
{
    const char16_t code = unit.unicode();
    return code >= 0x80 || code == u'_' || (code >= u'0' && code <= u'9') ||
           ((code | 0x20) >= u'a' && (code | 0x20) <= u'z');
}

UnitClass ClassOf(QChar unit)
{
    if (unit.unicode() <= u' ')
        return UnitClass::Blank;
    return IsWordUnit(unit) ? UnitClass::Word : UnitClass::Sign;
}

} // namespace

LineText::Place LineText::Before(Place place) const
{
    if (place.Column > 0)
        return Clamped(place.Line, place.Column - 1);
    return place.Line > 0 ? Place{place.Line - 1, GetLineLength(place.Line - 1)} : place;
}

LineText::Place LineText::Behind(Place place) const
{
    const QString& line = lines.Text(place.Line);
    if (place.Column >= line.size())
        return place.Line < LastLine() ? Place{place.Line + 1, 0} : place;
    const bool wide = line[place.Column].isHighSurrogate() && place.Column + 1 < line.size();
    return {place.Line, place.Column + 1 + wide};
}

/// Where the next word of the line begins, its end, or from there the next line's start.
LineText::Place LineText::NextWord(Place from) const
{
    const QString& line = lines.Text(from.Line);
    qsizetype at = from.Column;
    if (at >= line.size())
        return from.Line < LastLine() ? Place{from.Line + 1, 0} : from;
    const UnitClass first = ClassOf(line[at]);
    while (at < line.size() && ClassOf(line[at]) == first)
        ++at;
    while (at < line.size() && ClassOf(line[at]) == UnitClass::Blank)
        ++at;
    return {from.Line, int(at)};
}

/// Where the word in front begins; from a line's start the end of the line above.
LineText::Place LineText::PreviousWord(Place from) const
{
    if (from.Column == 0)
        return Before(from);
    const QString& line = lines.Text(from.Line);
    qsizetype at = qMin<qsizetype>(from.Column, line.size());
    while (at > 0 && ClassOf(line[at - 1]) == UnitClass::Blank)
        --at;
    if (at == 0)
        return {from.Line, 0};
    const UnitClass last = ClassOf(line[at - 1]);
    while (at > 0 && ClassOf(line[at - 1]) == last)
        --at;
    return {from.Line, int(at)};
}

/// The word that a place stands in or touches; empty if there is none.
LineText::Stretch LineText::WordAt(Place place) const
{
    const QString& line = lines.Text(place.Line);
    qsizetype left = qMin<qsizetype>(place.Column, line.size()), right = left;
    while (left > 0 && IsWordUnit(line[left - 1]))
        --left;
    while (right < line.size() && IsWordUnit(line[right]))
        ++right;
    return {{place.Line, int(left)}, {place.Line, int(right)}};
}

int LineText::ShownColumn(Place place) const
{
    const QString& line = lines.Text(place.Line);
    int shown = 0;
    for (qsizetype at = 0; at < place.Column; ++at) {
        if (at < line.size() && line[at] == u'\t')
            shown += tabSize - shown % tabSize;
        else
            shown += at >= line.size() || !line[at].isLowSurrogate();
    }
    return shown;
}

/// The place of a line that is nearest to a shown column.
LineText::Place LineText::PlaceAt(int line, int shownColumn) const
{
    const QString& text = lines.Text(line);
    int shown = 0;
    qsizetype at = 0;
    while (at < text.size()) {
        const int width = text[at] == u'\t' ? tabSize - shown % tabSize : 1;
        if (shown + width > shownColumn)
            return {line, int(at + (width > 1 && 2 * (shownColumn - shown) > width))};
        shown += width;
        at += 1 + (text[at].isHighSurrogate() && at + 1 < text.size());
    }
    return {line, int(at)};
}

/// So many lines down, or up; beyond the text's end its end, beyond its start its first line.
LineText::Place LineText::Vertical(int distance)
{
    if (goal < 0)
        goal = ShownColumn(caret);
    const int line = caret.Line + distance;
    if (line > LastLine())
        return EndPlace();
    return PlaceAt(qMax(line, 0), goal);
}

template <bool Extend>
bool LineText::CharRight(const QVariant&)
{
    MoveTo(!Extend && HasSelection() ? SelectedPieces().last().End : Behind(caret), Extend);
    return true;
}

template <bool Extend>
bool LineText::CharLeft(const QVariant&)
{
    MoveTo(!Extend && HasSelection() ? SelectedPieces().first().Start : Before(caret), Extend);
    return true;
}

template <bool Extend>
bool LineText::WordRight(const QVariant&)
{
    MoveTo(NextWord(caret), Extend);
    return true;
}

template <bool Extend>
bool LineText::WordLeft(const QVariant&)
{
    MoveTo(PreviousWord(caret), Extend);
    return true;
}

template <bool Extend>
bool LineText::LineUp(const QVariant&)
{
    const Place place = caret.Line == 0 ? Place{} : Vertical(-1);
    const int aim = goal;
    MoveTo(place, Extend);
    goal = aim;
    return true;
}

template <bool Extend>
bool LineText::LineDown(const QVariant&)
{
    const Place place = Vertical(1);
    const int aim = goal;
    MoveTo(place, Extend);
    goal = aim;
    return true;
}

template <bool Extend>
bool LineText::PageUp(const QVariant&)
{
    const Place place = Vertical(-pageLines);
    const int aim = goal;
    MoveTo(place, Extend);
    goal = aim;
    return true;
}

template <bool Extend>
bool LineText::PageDown(const QVariant&)
{
    const Place place = Vertical(pageLines);
    const int aim = goal;
    MoveTo(place, Extend);
    goal = aim;
    return true;
}

template <bool Extend>
bool LineText::ToLineStart(const QVariant&)
{
    MoveTo({caret.Line, 0}, Extend);
    return true;
}

template <bool Extend>
bool LineText::ToLineEnd(const QVariant&)
{
    MoveTo({caret.Line, GetLineLength(caret.Line)}, Extend);
    return true;
}

template <bool Extend>
bool LineText::ToDocumentStart(const QVariant&)
{
    MoveTo({}, Extend);
    return true;
}

template <bool Extend>
bool LineText::ToDocumentEnd(const QVariant&)
{
    MoveTo(EndPlace(), Extend);
    return true;
}

bool LineText::IsWhite(int line) const
{
    const QString& text = lines.Text(line);
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c == u' ' || c == u'\t'; });
}

bool LineText::ParagraphUp(const QVariant&)
{
    int line = caret.Line - 1;
    while (line >= 0 && IsWhite(line))
        --line;
    while (line >= 0 && !IsWhite(line))
        --line;
    MoveTo({line + 1, 0}, false);
    return true;
}

bool LineText::ParagraphDown(const QVariant&)
{
    int line = caret.Line;
    while (line <= LastLine() && !IsWhite(line))
        ++line;
    while (line <= LastLine() && IsWhite(line))
        ++line;
    MoveTo(line <= LastLine() ? Place{line, 0} : EndPlace(), false);
    return true;
}

bool LineText::GotoLine(const QVariant& argument)
{
    const int line = argument.isValid() ? argument.toInt() : -1;
    if (line >= 0)
        MoveTo({qMin(line, LastLine()), 0}, false);
    return line >= -1;
}

/// Handlers by their numbers.
struct LineText::CommandTable
{
    static constexpr size_t Size = 256;

    constexpr CommandTable()
    {
        constexpr std::pair<int, Command> Rows[] = {
            {CmdSwapWords, &LineText::SwapWords},
            {CmdWordRightExtend, &LineText::WordRight<true>},
            {CmdWordRight, &LineText::WordRight<false>},
            {CmdWordLeftExtend, &LineText::WordLeft<true>},
            {CmdWordLeft, &LineText::WordLeft<false>},
            {CmdSelectLine, &LineText::SelectCaretLine},
            {CmdSelectAll, &LineText::SelectAll},
            {CmdPaste, &LineText::Paste},
            {CmdParagraphUp, &LineText::ParagraphUp},
            {CmdParagraphDown, &LineText::ParagraphDown},
            {CmdPageUpExtend, &LineText::PageUp<true>},
            {CmdPageUp, &LineText::PageUp<false>},
            {CmdPageDownExtend, &LineText::PageDown<true>},
            {CmdPageDown, &LineText::PageDown<false>},
            {CmdLineUpExtend, &LineText::LineUp<true>},
            {CmdLineUp, &LineText::LineUp<false>},
            {CmdOpenLineBelow, &LineText::OpenLineBelow},
            {CmdOpenLineAbove, &LineText::OpenLineAbove},
            {CmdLineEndExtend, &LineText::ToLineEnd<true>},
            {CmdLineEnd, &LineText::ToLineEnd<false>},
            {CmdLineDownExtend, &LineText::LineDown<true>},
            {CmdLineDown, &LineText::LineDown<false>},
            {CmdDeleteToLineStart, &LineText::DeleteToLineStart},
            {CmdDeleteToLineEnd, &LineText::DeleteToLineEnd},
            {CmdDeleteLine, &LineText::DeleteCaretLine},
            {CmdCutLine, &LineText::CutLine},
            {CmdLineStartExtend, &LineText::ToLineStart<true>},
            {CmdLineStart, &LineText::ToLineStart<false>},
            {CmdGotoLine, &LineText::GotoLine},
            {CmdReplaceAll, &LineText::ReplaceAllInDocument},
            {CmdReplaceAllInSelection, &LineText::ReplaceAllInSelection},
            {CmdFindPrevious, &LineText::FindPrevious},
            {CmdFindNext, &LineText::FindNext},
            {CmdSetFindText, &LineText::TakeFindText},
            {CmdSetReplaceText, &LineText::TakeReplaceText},
            {CmdBehindSelText, &LineText::BehindSelection},
            {CmdDocumentStartExtend, &LineText::ToDocumentStart<true>},
            {CmdDocumentStart, &LineText::ToDocumentStart<false>},
            {CmdDocumentEndExtend, &LineText::ToDocumentEnd<true>},
            {CmdDocumentEnd, &LineText::ToDocumentEnd<false>},
            {CmdDeleteLeft, &LineText::DeleteLeft},
            {CmdDeleteRight, &LineText::DeleteRight},
            {CmdCut, &LineText::Cut},
            {CmdCopy, &LineText::Copy},
            {CmdSwapChars, &LineText::SwapChars},
            {CmdCharRightExtend, &LineText::CharRight<true>},
            {CmdCharRight, &LineText::CharRight<false>},
            {CmdCharLeftExtend, &LineText::CharLeft<true>},
            {CmdCharLeft, &LineText::CharLeft<false>},
            {CmdCutAppend, &LineText::CutAppend},
            {CmdBreakLine, &LineText::BreakLine},
            {CmdOpenUndoGroup, &LineText::OpenGroup},
            {CmdCloseUndoGroup, &LineText::CloseGroup},
            {CmdClearSelection, &LineText::ClearSelection},
        };
        for (const auto& [number, command] : Rows)
            ByNumber[size_t(number)] = command;
    }
    Command Find(int number) const { return number >= 0 && size_t(number) < Size ? ByNumber[size_t(number)] : nullptr; }

    std::array<Command, Size> ByNumber{};
};

constexpr LineText::CommandTable LineText::Commands;

bool LineText::ExecuteCmd(int number, const QVariant& argument)
{
    const Command command = Commands.Find(number);
    if (!command)
        return false;
    const bool done = (this->*command)(argument);
    Told();
    return done;
}

int LineText::Repeat(int number, int count)
{
    const Command command = Commands.Find(number);
    if (!command)
        return 0;
    const QVariant none;
    int went = 0;
    for (; went < count; ++went) {
        const Place anchorBefore = anchor, caretBefore = caret;
        const quint64 editsBefore = edits;
        if (!(this->*command)(none) || (edits == editsBefore && anchor == anchorBefore && caret == caretBefore))
            break;
    }
    Told();
    return went;
}
