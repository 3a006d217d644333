#include "frame/recovery/line_diff.h"

#include <QByteArray>
#include <QString>
#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace {

QByteArray RandomText(std::mt19937& random)
{
    QByteArray text;
    for (int lines = int(random() % 12); lines > 0; --lines)
        text += char('a' + random() % 3) + QByteArray("\n");
    return text;
}

QByteArray Side(const std::vector<DiffLine>& lines, DiffKind left)
{
    QByteArray side;
    for (const DiffLine& line : lines)
        if (line.Kind != left)
            side += line.Text.toByteArray() + '\n';
    return side;
}

/// Edits between two texts of one-letter lines by the plain table.
int FewestEdits(const QByteArray& before, const QByteArray& after)
{
    const int rows = int(before.size() / 2), columns = int(after.size() / 2);
    std::vector<std::vector<int>> common(rows + 1, std::vector<int>(columns + 1));
    for (int i = 1; i <= rows; ++i)
        for (int k = 1; k <= columns; ++k)
            common[i][k] = before[2 * (i - 1)] == after[2 * (k - 1)] ? common[i - 1][k - 1] + 1
                                                                     : std::max(common[i - 1][k], common[i][k - 1]);
    return rows + columns - 2 * common[rows][columns];
}

} // namespace

// Catches: a comparison that loses or invents a line, or shows more changes than there are.
TEST(CompareLines, IsBothTextsByTheFewestEdits)
{
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        const QByteArray before = RandomText(random), after = RandomText(random);
        const auto lines = CompareLines(before, after, 100);
        ASSERT_TRUE(lines);
        if (before == after) {
            EXPECT_TRUE(lines->empty());
            continue;
        }
        ASSERT_EQ(Side(*lines, DiffKind::New), before) << round;
        ASSERT_EQ(Side(*lines, DiffKind::Old), after) << round;
        const auto changed = std::count_if(lines->begin(), lines->end(),
                                           [](const DiffLine& line) { return line.Kind != DiffKind::Same; });
        ASSERT_EQ(changed, FewestEdits(before, after)) << round;
    }
}

// Catches: too little or too much around a change, line ends that are thought equal, and a limit that is not kept.
TEST(CompareLines, ShowsContextAndKeepsItsLimit)
{
    QByteArray before, after;
    for (int i = 0; i < 20; ++i) {
        before += QByteArray::number(i) + '\n';
        after += (i == 10 ? QByteArray("x") : QByteArray::number(i)) + '\n';
    }
    QByteArray shown;
    const auto compared = CompareLines(before, after, 1);
    ASSERT_TRUE(compared);
    for (const DiffLine& line : *compared)
        shown += char(line.Kind) + line.Text.toByteArray();
    EXPECT_EQ(shown, "@ 9-10+x 11@");
    EXPECT_EQ(CompareLines("a\r\nb\n", "a\nb\n")->size(), 3U);
    EXPECT_EQ(CompareLines("a", "a\n")->size(), 2U);
    EXPECT_TRUE(CompareLines(before, after, 1, 2));
    EXPECT_FALSE(CompareLines(before, after, 1, 1));
}
