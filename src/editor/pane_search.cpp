#include "editor/pane.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/run_scope.h"

#include <Qsci/qsciscintilla.h>

#include <algorithm>

using Sci = QsciScintillaBase;

namespace {

constexpr qsizetype SearchedAtOnce = 8192; ///< bytes

} // namespace

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
    const Deed deed(*this, CmdFindNext); // which it ends with
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

/// What is looked through at once from `at` on, and the bytes around it that the search must see.
struct ScintillaPane::SearchPiece
{
    Span Window, Seen;
};

ScintillaPane::SearchPiece ScintillaPane::PieceFrom(const Search& search, qsizetype at, qsizetype end) const
{
    const qsizetype upTo = std::min(at + SearchedAtOnce, end);
    if (!search.RunsByLine())
        return {{at, upTo}, {std::max<qsizetype>(at - 1, 0), std::min(upTo + search.Reach() + 1, text.Length())}};
    const int last = text.LineOf(upTo);
    return {{at, std::min(std::max(text.LineEnd(last), at), end)},
            {text.LineStart(text.LineOf(at)), text.LineEnd(last)}};
}

/// Replaces piece by piece, so that neither the text nor its history is in memory once more than need be: a piece
/// without a hit costs nothing, one with hits what lies between its first and its last. False: `run` was stopped.
/// `range` becomes what stands in its place.
bool ScintillaPane::ReplaceIn(const Search& search, Span& range, RunScope& run)
{
    for (qsizetype at = range.Start; search.CanRun();) {
        const SearchPiece piece = PieceFrom(search, at, range.End);
        const qsizetype from = piece.Seen.Start;
        const Span wanted{at - from,
                          std::min(search.RunsByLine() ? piece.Window.End : piece.Seen.End, range.End) - from};
        const Replaced replaced =
            search.ReplaceAll(text.Piece(piece.Seen.Start, piece.Seen.End), wanted, replaceText, piece.Window.End - at);
        const qsizetype upTo = from + replaced.End;
        if (replaced.Count > 0)
            Write(at, upTo, replaced.Bytes);
        replaceCount += replaced.Count;
        range.End += replaced.Bytes.size() - (upTo - at);
        at += replaced.Bytes.size();
        if (at >= range.End)
            break;
        if (search.RunsByLine())
            at = std::min(text.LineStart(text.LineOf(at) + 1), range.End); // behind the break
        if (!run.Turn())
            return false;
    }
    return true;
}

/// One undo step, which `select` ends with the selection that is to stand behind it; a stop takes it back where it can.
bool ScintillaPane::ReplaceAllIn(const Search& search, QList<Span>& pieces, const std::function<void()>& select)
{
    replaceCount = 0;
    RunScope run(RunKind::Pass, QStringLiteral("Replace All"));
    const int firstLine = FirstLine(); // the component loses it where a piece reaches over it
    OpenGroup({});
    bool whole = true;
    for (auto piece = pieces.rbegin(); whole && piece != pieces.rend(); ++piece)
        whole = ReplaceIn(search, *piece, run);
    if (whole)
        select();
    text.Send(Sci::SCI_SETFIRSTVISIBLELINE, long(firstLine));
    CloseGroup({});
    if (whole)
        return replaceCount > 0;
    if (groups == 0 && undoLimit != 0 && replaceCount > 0)
        text.Send(Sci::SCI_UNDO);
    replaceCount = 0;
    ShowNotice(QStringLiteral("Replace All was stopped"));
    return false;
}

bool ScintillaPane::ReplaceAllInDocument(const QVariant&)
{
    Range kept = GetSel(false);
    QList<Span> all = {{0, text.Length()}};
    const auto keep = [&] {
        kept.StartLine = qMin(kept.StartLine, text.Lines() - 1);
        kept.EndLine = qMin(kept.EndLine, text.Lines() - 1);
        SetSel(kept, false);
    };
    const bool replaced = ReplaceAllIn(StartSearch(true), all, keep);
    if (!replaced)
        keep();
    return replaced;
}

bool ScintillaPane::ReplaceAllInSelection(const QVariant&)
{
    const Search search = StartSearch(true);
    const RawSelection selected = text.Selection();
    const Range kept = GetSel(false);
    QList<Span> pieces = text.SelectedPieces();
    const auto select = [&] {
        if (selected.Columns || replaceCount == 0) {
            SetSel(kept, false);
            return;
        }
        const qsizetype start = selected.Start(), end = pieces.constFirst().End;
        text.Select(selected.Anchor == start ? start : end, selected.Anchor == start ? end : start);
    };
    if (!ReplaceAllIn(search, pieces, select))
        SetSel(kept, false);
    return replaceCount > 0;
}
