#pragma once

#include "editor/component.h"

#include <vector>

/// Which bytes of a text have their colours: a few spans, apart and in order. They follow edits, so that a text of any
/// size is coloured only where somebody looked.
class ColouredRanges
{
public:
    void Clear() { spans.clear(); }
    void Add(Span span);

    /// The bytes `lines` (whole lines, before an edit inside them) lose their colours; what stands behind moves by
    /// `growth`.
    void Edited(Span lines, qsizetype growth);

    /// Spans of `wanted` without colours.
    std::vector<Span> Missing(Span wanted) const;

    const std::vector<Span>& Spans() const { return spans; }

private:
    std::vector<Span> spans;
};
