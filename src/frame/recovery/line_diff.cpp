#include "frame/recovery/line_diff.h"

#include <algorithm>

namespace {

using Lines = std::vector<QByteArrayView>;

Lines SplitLines(QByteArrayView text)
{
    Lines lines;
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype end = text.indexOf('\n', start);
        const qsizetype next = end < 0 ? text.size() : end + 1;
        lines.push_back(text.sliced(start, next - start)); // with its end, so that a change of line ends is one
        start = next;
    }
    return lines;
}

QByteArrayView WithoutEnd(QByteArrayView line)
{
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return line;
}

/// Furthest reaching paths by edit count, after Myers: for each count the furthest line of `before` on each diagonal
/// (line of `before` minus line of `after`).
class Paths
{
public:
    Paths(const Lines& oldLines, const Lines& newLines) : before(oldLines), after(newLines) {}

    bool Search(int mostEdits)
    {
        const int all = int(before.size() + after.size());
        for (int edits = 0; edits <= std::min(mostEdits, all); ++edits) {
            steps.emplace_back(2 * edits + 1);
            for (int diagonal = -edits; diagonal <= edits; diagonal += 2) {
                int x = edits == 0 ? 0 : Start(edits, diagonal);
                while (x < int(before.size()) && x - diagonal < int(after.size()) && before[x] == after[x - diagonal])
                    ++x;
                At(edits, diagonal) = x;
                if (x >= int(before.size()) && x - diagonal >= int(after.size()))
                    return true;
            }
        }
        return false;
    }

    /// The script, from the end back to the start.
    std::vector<DiffLine> Backward()
    {
        std::vector<DiffLine> script;
        int x = int(before.size()), diagonal = x - int(after.size());
        for (int edits = int(steps.size()) - 1; edits >= 0; --edits) {
            const int start = edits == 0 ? 0 : Start(edits, diagonal);
            while (x > start)
                script.push_back({DiffKind::Same, before[--x]});
            if (edits == 0)
                break;
            const bool added = IsInsertion(edits, diagonal);
            if (added)
                script.push_back({DiffKind::New, after[x - diagonal - 1]});
            else
                script.push_back({DiffKind::Old, before[--x]});
            diagonal += added ? 1 : -1;
        }
        return script;
    }

private:
    int& At(int edits, int diagonal) { return steps[edits][diagonal + edits]; }
    int Reached(int edits, int diagonal) { return std::abs(diagonal) > edits ? -1 : At(edits, diagonal); }
    bool IsInsertion(int edits, int diagonal)
    {
        return Reached(edits - 1, diagonal + 1) > Reached(edits - 1, diagonal - 1);
    }
    /// Where the last edit onto the diagonal leads to.
    int Start(int edits, int diagonal)
    {
        return IsInsertion(edits, diagonal) ? Reached(edits - 1, diagonal + 1) : Reached(edits - 1, diagonal - 1) + 1;
    }

    const Lines &before, &after;
    std::vector<std::vector<int>> steps;
};

/// Leaves out what is further than `context` lines from a change.
std::vector<DiffLine> WithContext(const std::vector<DiffLine>& script, int context)
{
    std::vector<char> kept(script.size());
    for (size_t i = 0; i < script.size(); ++i) {
        if (script[i].Kind == DiffKind::Same)
            continue;
        const size_t from = i > size_t(context) ? i - context : 0;
        std::fill(kept.begin() + qptrdiff(from), kept.begin() + qptrdiff(std::min(script.size(), i + context + 1)),
                  char(1));
    }
    std::vector<DiffLine> shown;
    for (size_t i = 0; i < script.size(); ++i) {
        if (kept[i])
            shown.push_back({script[i].Kind, WithoutEnd(script[i].Text)});
        else if (shown.empty() || shown.back().Kind != DiffKind::Gap)
            shown.push_back({DiffKind::Gap, {}});
    }
    return shown;
}

} // namespace

std::optional<std::vector<DiffLine>> CompareLines(QByteArrayView beforeText, QByteArrayView afterText, int context,
                                                  int mostEdits)
{
    if (beforeText == afterText)
        return std::vector<DiffLine>{};
    Lines before = SplitLines(beforeText), after = SplitLines(afterText);
    // Equal lines at both ends cost nothing this way, however long the texts are.
    const auto heads = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto tails = std::mismatch(before.rbegin(), std::make_reverse_iterator(heads.first), after.rbegin(),
                                     std::make_reverse_iterator(heads.second));
    const Lines head(before.begin(), heads.first), tail(tails.first.base(), before.end());
    before = Lines(heads.first, tails.first.base());
    after = Lines(heads.second, tails.second.base());

    Paths search(before, after);
    if (!search.Search(mostEdits))
        return std::nullopt;
    std::vector<DiffLine> script;
    for (const QByteArrayView line : head)
        script.push_back({DiffKind::Same, line});
    const std::vector<DiffLine> changed = search.Backward();
    script.insert(script.end(), changed.rbegin(), changed.rend());
    for (const QByteArrayView line : tail)
        script.push_back({DiffKind::Same, line});
    return WithContext(script, context);
}
