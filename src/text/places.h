#pragma once

#include <QtGlobal>

/// Lines and columns count from 0. Columns and lengths are UTF-16 units of GetLine. A whole-line end may be told as
/// column LineEndColumn.
struct Range
{
    int StartLine = 0, StartCol = 0, EndLine = 0, EndCol = 0;
    bool ColumnSel = false;

    bool operator==(const Range&) const = default;
};
constexpr int LineEndColumn = 255;

/// Lines of a text, the last included; none while Last is below First.
struct LineSpan
{
    int First = 0, Last = -1;

    bool operator==(const LineSpan&) const = default;
};

/// One stretch of bytes.
struct Span
{
    qsizetype Start = 0, End = 0;

    bool operator==(const Span&) const = default;
};
