#pragma once

#include <QByteArrayView>
#include <optional>
#include <vector>

enum class DiffKind : char { Same = ' ', Old = '-', New = '+', Gap = '@' };

/// A line of a comparison, a view into one of the two texts, without its line end. Gap stands for lines left out.
struct DiffLine
{
    DiffKind Kind;
    QByteArrayView Text;
};

/// The fewest lines to take out of `before` and put in to get `after`, each place with `context` equal lines around
/// it. Equal texts give no line. Nothing if more than `mostEdits` lines differ: time and memory grow with its square.
std::optional<std::vector<DiffLine>> CompareLines(QByteArrayView before, QByteArrayView after, int context = 3,
                                                  int mostEdits = 1000);
