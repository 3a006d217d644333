#pragma once

#include <QtGlobal>
#include <utility>

/// The rectangle that the painting commands share: cells from 0, the corners in any order and inside the map or not.
struct LevelBox
{
    qint32 X1 = -1, Y1 = -1, X2 = -1, Y2 = -1;

    LevelBox Sorted() const
    {
        const auto [left, right] = std::minmax(X1, X2);
        const auto [top, bottom] = std::minmax(Y1, Y2);
        return {left, top, right, bottom};
    }
    qint64 Width() const { return qAbs(qint64(X2) - X1) + 1; }
    qint64 Height() const { return qAbs(qint64(Y2) - Y1) + 1; }

    friend bool operator==(const LevelBox&, const LevelBox&) = default;
};
