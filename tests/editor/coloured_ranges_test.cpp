#include "editor/coloured_ranges.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

// Catches: a span that forgets or claims bytes when edits cut, move or join it.
TEST(ColouredRanges, AgreeWithOneFlagAByte)
{
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    ColouredRanges ranges;
    std::vector<bool> flags(200, false);
    for (int round = 0; round < 3000; ++round) {
        qsizetype a = random.bounded(int(flags.size()) + 1), b = random.bounded(int(flags.size()) + 1);
        if (a > b)
            std::swap(a, b);
        if (random.bounded(2)) {
            ranges.Add({a, b});
            std::fill(flags.begin() + a, flags.begin() + b, true);
        } else if (b - a < 30) {
            const qsizetype size = random.bounded(30);
            ranges.Edited({a, b}, size - (b - a));
            flags.erase(flags.begin() + a, flags.begin() + b);
            flags.insert(flags.begin() + a, size_t(size), false);
        }
        std::vector<bool> missing(flags.size(), true);
        for (const Span& span : ranges.Missing({0, qsizetype(flags.size())}))
            std::fill(missing.begin() + span.Start, missing.begin() + span.End, false);
        ASSERT_EQ(missing, flags) << "seed " << seed << " round " << round;
    }
}

} // namespace
