#pragma once

#include <QtGlobal>
#include <algorithm>
#include <vector>

/// A set of element numbers that cells are held against.
class CellValues
{
public:
    CellValues() = default;
    explicit CellValues(qint32 one) : values{one} {}
    explicit CellValues(std::vector<qint32> any) : values(std::move(any)) { std::sort(values.begin(), values.end()); }

    bool Has(qint32 cell) const
    {
        return values.size() == 1 ? values.front() == cell : std::binary_search(values.begin(), values.end(), cell);
    }

private:
    std::vector<qint32> values; ///< sorted
};

/// Which cells a routine may touch or count: all, those of some values, or all but those.
class CellTest
{
public:
    CellTest() = default; ///< all
    CellTest(CellValues wanted, bool others) : values(std::move(wanted)), what(others ? Others : These) {}

    bool Passes(qint32 cell) const { return what == All || values.Has(cell) == (what == These); }

private:
    enum What { All, These, Others };

    CellValues values;
    What what = All;
};
