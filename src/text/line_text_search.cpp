#include "text/line_text.h"

#include <algorithm>

/// Some lines side by side, to search in.
struct LineText::Window
{
    QByteArray Joined; ///< what Bytes shows, if the lines do not lie side by side by themselves
    QByteArrayView Bytes;
    int First = 0;
    std::vector<qsizetype> Starts; ///< of each line in Bytes

    Place PlaceOf(qsizetype offset) const
    {
        const auto behind = std::upper_bound(Starts.begin(), Starts.end(), offset) - 1;
        const QByteArrayView front = Bytes.sliced(*behind, offset - *behind);
        return {First + int(behind - Starts.begin()), int(UnitsOf(front))};
    }
    qsizetype OffsetOf(Place place) const
    {
        const qsizetype start = Starts[size_t(place.Line - First)];
        return start + OffsetOfColumn(Bytes.sliced(start), place.Column);
    }
};

namespace {

constexpr int FirstStretch = 32, LargestStretch = 1 << 16; ///< lines looked at in one go

int BreaksIn(const QString& text)
{
    return int(text.count(u'\n') + text.count(u'\r'));
}

} // namespace

LineText::Window LineText::Look(int first, int last) const
{
    Window window;
    window.First = first;
    window.Bytes = lines.Bytes(first, last, true, window.Joined);
    window.Starts.reserve(size_t(last - first) + 1);
    qsizetype at = 0;
    for (int line = first; line <= last; ++line) {
        window.Starts.push_back(at);
        const qsizetype stop = FindBreak(window.Bytes, at);
        at = stop + BytesOf(lines.EndOf(line)).size();
    }
    return window;
}

/// The first hit at or behind a place. A hit may reach so many lines further as the text has line ends.
std::optional<LineText::Stretch> LineText::Ahead(const Search& search, Place from) const
{
    const int more = BreaksIn(findText);
    int count = FirstStretch;
    for (int line = from.Line; line <= LastLine(); line += count, count = qMin(count * 4, LargestStretch)) {
        const Window window = Look(line, qMin(line + count - 1 + more, LastLine()));
        const qsizetype start = line == from.Line ? window.OffsetOf(from) : 0;
        const auto hit = search.Next(window.Bytes, {start, window.Bytes.size()});
        if (!hit)
            continue;
        const Stretch found{window.PlaceOf(hit->At.Start), window.PlaceOf(hit->At.End)};
        if (found.Start.Line < line + count)
            return found;
    }
    return std::nullopt;
}

/// The last hit that ends in front of a place.
std::optional<LineText::Stretch> LineText::Back(const Search& search, Place before) const
{
    const int more = BreaksIn(findText);
    int count = FirstStretch;
    for (int last = before.Line; last >= 0; last -= count, count = qMin(count * 4, LargestStretch)) {
        const int first = qMax(last - count + 1, 0);
        const Window window = Look(first, qMin(last + more, before.Line));
        const bool holdsEnd = last + more >= before.Line;
        const qsizetype end = holdsEnd ? window.OffsetOf(before) : window.Bytes.size();
        if (const auto hit = search.Previous(window.Bytes, {0, end}))
            return Stretch{window.PlaceOf(hit->At.Start), window.PlaceOf(hit->At.End)};
    }
    return std::nullopt;
}

Search LineText::StartSearch()
{
    Search search(findText, findOptions, lineEnd);
    findError = search.Error();
    return search;
}

/// Selects the hit in front of or behind the selection; without one nothing moves.
bool LineText::FindFrom(const Search& search, bool forward, bool wrap)
{
    if (!search.CanRun())
        return false;
    const QList<Stretch> pieces = SelectedPieces();
    std::optional<Stretch> found = forward ? Ahead(search, pieces.last().End) : Back(search, pieces.first().Start);
    if (!found && wrap)
        found = forward ? Ahead(search, {}) : Back(search, EndPlace());
    if (!found)
        return false;
    Select(found->Start, found->End);
    return true;
}

bool LineText::FindNext(const QVariant&)
{
    return FindFrom(StartSearch(), true, findOptions.Wrap);
}

bool LineText::FindPrevious(const QVariant&)
{
    return FindFrom(StartSearch(), false, findOptions.Wrap);
}

bool LineText::FindPlain(const QString& wanted, bool forward)
{
    const QString kept = std::exchange(findText, wanted);
    const bool found = FindFrom(Search(wanted, {}, lineEnd), forward, false);
    findText = kept;
    Told();
    return found;
}

bool LineText::TakeFindText(const QVariant& argument)
{
    findText = argument.toString();
    return true;
}

bool LineText::TakeReplaceText(const QVariant& argument)
{
    replaceText = argument.toString();
    return true;
}

bool LineText::ReplaceFound()
{
    const Search search = StartSearch();
    replaceCount = 0;
    const Stretch selected = Selected();
    const Window window = Look(selected.Start.Line, selected.End.Line);
    const Span at{window.OffsetOf(selected.Start), window.OffsetOf(selected.End)};
    if (const auto hit = search.CanRun() ? search.Exactly(window.Bytes, at) : std::nullopt) {
        const Place end = Edit(selected, QString::fromUtf8(search.Replacement(*hit, replaceText)));
        Select(end, end);
        replaceCount = 1;
    }
    const bool found = FindFrom(search, true, findOptions.Wrap) || replaceCount > 0;
    Told();
    return found;
}

bool LineText::ReplaceAllInDocument(const QVariant&)
{
    const Search search = StartSearch();
    const Range kept = GetSel(false);
    const QByteArrayView bytes = Bytes();
    const Replaced replaced = search.CanRun() ? search.ReplaceAll(bytes, {0, bytes.size()}, replaceText) : Replaced{};
    replaceCount = replaced.Count;
    if (replaceCount > 0) {
        LoadWhole(replaced.Bytes);
        blank = false;
        modified = true;
    }
    SetSel(
        {qMin(kept.StartLine, LastLine()), kept.StartCol, qMin(kept.EndLine, LastLine()), kept.EndCol, kept.ColumnSel},
        false);
    return replaceCount > 0;
}

bool LineText::ReplaceAllInSelection(const QVariant&)
{
    const Search search = StartSearch();
    replaceCount = 0;
    const Range kept = GetSel(false);
    const bool backward = caret < anchor;
    const QList<Stretch> pieces = SelectedPieces();
    Place end = pieces.last().End;
    for (auto piece = pieces.rbegin(); search.CanRun() && piece != pieces.rend(); ++piece) {
        const Window window = Look(piece->Start.Line, piece->End.Line);
        const Replaced replaced =
            search.ReplaceAll(window.Bytes, {window.OffsetOf(piece->Start), window.OffsetOf(piece->End)}, replaceText);
        replaceCount += replaced.Count;
        if (replaced.Count > 0)
            end = Edit(*piece, QString::fromUtf8(replaced.Bytes));
    }
    if (kept.ColumnSel)
        SetSel(kept, false);
    else
        Select(backward ? end : pieces.first().Start, backward ? pieces.first().Start : end);
    return replaceCount > 0;
}
