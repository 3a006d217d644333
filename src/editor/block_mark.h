#pragma once

#include "editor/component.h"

/// A faint bar in a slim margin of its own, beside the lines of one block.
class BlockMark
{
public:
    explicit BlockMark(Component& text);

    /// Lines first to last; -1: none. `bgr` is the bar's colour.
    void Set(int first, int last, int bgr);
    void BeforeEdit() { Clear(); } ///< lines may move away below the marks

private:
    void Clear();

    Component& text;
    int marked = -1, markedLast = -1;
};
