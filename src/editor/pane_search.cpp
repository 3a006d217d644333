#include "editor/pane.h"
#include "frame/frame_state.h"

#include <Qsci/qsciscintilla.h>

using Sci = QsciScintillaBase;

bool ScintillaPane::TakeFindText(const QVariant& argument)
{
    findText = argument.toString();
    return true;
}

bool ScintillaPane::TakeReplaceText(const QVariant& argument)
{
    replaceText = argument.toString();
    return true;
}

Search ScintillaPane::StartSearch(bool replacing)
{
    Frame.Globals.AddFind(findText);
    if (replacing)
        Frame.Globals.AddReplace(replaceText);
    Search search(findText, findOptions, lineEnd);
    findError = search.Error();
    return search;
}

/// Selects the hit in front of or behind the selection; without one nothing moves.
bool ScintillaPane::Find(const Search& search, bool forward, bool wrap)
{
    const QByteArrayView bytes = Bytes();
    const RawSelection selected = text.Selection();
    const Span whole{0, bytes.size()};
    const auto in = [&](Span range) { return forward ? search.Next(bytes, range) : search.Previous(bytes, range); };
    std::optional<Hit> hit = in(forward ? Span{selected.End(), whole.End} : Span{0, selected.Start()});
    if (!hit && wrap)
        hit = in(whole);
    if (!hit)
        return false;
    text.Select(hit->At.Start, hit->At.End);
    ShowCaret();
    return true;
}

bool ScintillaPane::FindNext(const QVariant&)
{
    return Find(StartSearch(false), true, findOptions.Wrap);
}

bool ScintillaPane::FindPrevious(const QVariant&)
{
    return Find(StartSearch(false), false, findOptions.Wrap);
}

bool ScintillaPane::FindPlain(const QString& wanted, bool forward)
{
    const Work work(*this);
    return Find(Search(wanted, {}, lineEnd), forward, false);
}

bool ScintillaPane::ReplaceFound()
{
    const Work work(*this);
    const Search search = StartSearch(true);
    const RawSelection selected = text.Selection();
    replaceCount = 0;
    if (const auto hit = search.Exactly(Bytes(), {selected.Start(), selected.End()})) {
        const QByteArray bytes = search.Replacement(*hit, replaceText);
        Write(hit->At.Start, hit->At.End, bytes);
        text.Select(hit->At.Start + bytes.size(), hit->At.Start + bytes.size());
        replaceCount = 1;
    }
    return Find(search, true, findOptions.Wrap) || replaceCount > 0;
}

/// Replaces in one undo step; gives back the bytes that stand in the range's place.
qsizetype ScintillaPane::ReplaceIn(const Search& search, Span range)
{
    const Replaced replaced = search.ReplaceAll(Bytes(), range, replaceText);
    if (replaced.Count > 0)
        Write(range.Start, range.End, replaced.Bytes);
    replaceCount += replaced.Count;
    return replaced.Bytes.size();
}

bool ScintillaPane::ReplaceAllInDocument(const QVariant&)
{
    replaceCount = 0;
    Range kept = GetSel(false);
    ReplaceIn(StartSearch(true), {0, text.Length()});
    kept.StartLine = qMin(kept.StartLine, text.Lines() - 1);
    kept.EndLine = qMin(kept.EndLine, text.Lines() - 1);
    SetSel(kept, false);
    return replaceCount > 0;
}

bool ScintillaPane::ReplaceAllInSelection(const QVariant&)
{
    replaceCount = 0;
    const Search search = StartSearch(true);
    const RawSelection selected = text.Selection();
    const Range kept = GetSel(false);
    const QList<Span> pieces = text.SelectedPieces();
    qsizetype size = 0;
    text.Send(Sci::SCI_BEGINUNDOACTION);
    for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece)
        size = ReplaceIn(search, *piece);
    text.Send(Sci::SCI_ENDUNDOACTION);
    const qsizetype start = selected.Start(), end = start + size;
    if (selected.Columns)
        SetSel(kept, false);
    else
        text.Select(selected.Anchor == start ? start : end, selected.Anchor == start ? end : start);
    return replaceCount > 0;
}
