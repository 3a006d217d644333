#include "editor/coloured_ranges.h"

#include <algorithm>

namespace {

constexpr size_t MostSpans = 64; // beyond that colouring anew is cheaper than keeping book

} // namespace

void ColouredRanges::Add(Span span)
{
    if (span.Start >= span.End)
        return;
    const auto first = std::find_if(spans.begin(), spans.end(), [&](const Span& s) { return s.End >= span.Start; });
    auto last = first;
    for (; last != spans.end() && last->Start <= span.End; ++last) {
        span.Start = std::min(span.Start, last->Start);
        span.End = std::max(span.End, last->End);
    }
    spans.insert(spans.erase(first, last), span);
    if (spans.size() > MostSpans)
        spans.assign(1, span);
}

void ColouredRanges::Edited(Span lines, qsizetype growth)
{
    std::vector<Span> kept;
    kept.reserve(spans.size() + 1);
    for (const Span& span : spans) {
        const Span front{span.Start, std::min(span.End, lines.Start)};
        const Span back{std::max(span.Start, lines.End) + growth, span.End + growth};
        if (front.Start < front.End)
            kept.push_back(front);
        if (back.Start < back.End)
            kept.push_back(back);
    }
    if (kept.size() > MostSpans)
        kept.clear();
    spans = std::move(kept);
}

std::vector<Span> ColouredRanges::Missing(Span wanted) const
{
    std::vector<Span> missing;
    for (const Span& span : spans) {
        if (span.End <= wanted.Start)
            continue;
        if (span.Start >= wanted.End)
            break;
        if (wanted.Start < span.Start)
            missing.push_back({wanted.Start, span.Start});
        wanted.Start = span.End;
    }
    if (wanted.Start < wanted.End)
        missing.push_back(wanted);
    return missing;
}
