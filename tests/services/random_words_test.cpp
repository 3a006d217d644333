#include "services/random_words.h"
#include "test_support.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

WordWish Wish(qint64 min, qint64 max, const char* shape, const char* letterCase, const char* content)
{
    const auto text = [](const char* word) { return QString::fromLatin1(word); };
    return ReadWordWish(min, max, text(shape), text(letterCase), text(content)).value();
}

/// The given numbers one after the other; the last stays.
class Row
{
public:
    Row(std::initializer_list<double> values) : numbers(values) {}

    double operator()() { return numbers[size_t(qMin(drawn++, int(numbers.size()) - 1))]; }
    int drawn = 0;

private:
    std::vector<double> numbers;
};

bool IsVowel(QChar character)
{
    return QStringLiteral("aieou18").contains(character);
}

} // namespace

// A known row of numbers: which is drawn for what, and in which order, decides whether a seed gives the same word.
TEST(RandomWords, EachNumberHasItsUse)
{
    const auto word = [](const WordWish& wish, Row row) { return MakeRandomWord(wish, std::ref(row)); };
    EXPECT_EQ(word(Wish(3, 3, "WORD", "lowr", "letr"), {0.5, 0, 0.0, 0.99, 0.5}), QStringLiteral("bun"));
    EXPECT_EQ(word(Wish(3, 3, "word", "uppr", "letr"), {0.2, 0, 0.0, 0.0, 0.3}), QStringLiteral("ABI"));
    EXPECT_EQ(word(Wish(2, 2, "word", "lowr", "nums"), {0.5, 0, 0.99, 0.99}), QStringLiteral("08"));
    EXPECT_EQ(word(Wish(2, 2, "rand", "uppr", "nums"), {0.5, 0, 0.38, 0.0, 0.75, 0.39, 0.999, 0.5}),
              QStringLiteral("7Z"));
    EXPECT_EQ(word(Wish(2, 2, "rand", "rand", "letr"), {0.5, 0, 0.1, 0.0, 0, 0.1, 0.0, 0, 0.51, 0.5}),
              QStringLiteral("aA"));
    EXPECT_EQ(word(Wish(3, 3, "rand", "Name", "letr"), {0.5, 0, 0.1, 0.1, 0.1}), QStringLiteral("Ccc"));
    Row row{0.5, 0.99, 0.5};
    EXPECT_EQ(MakeRandomWord(Wish(2, 6, "rand", "lowr", "letr"), std::ref(row)).size(), 5);
    EXPECT_EQ(row.drawn, 2 + 3 * 5);
}

TEST(RandomWords, LengthsAndShapes)
{
    QRandomGenerator generator(7);
    const auto random = [&] { return generator.generateDouble(); };
    int shortest = 100, longest = 0, vowelsFirst = 0;
    for (int round = 0; round < 500; ++round) {
        const QString word = MakeRandomWord(Wish(3, 9, "word", "lowr", "nums"), random);
        shortest = qMin(shortest, int(word.size())), longest = qMax(longest, int(word.size()));
        vowelsFirst += IsVowel(word[0]);
        for (qsizetype i = 1; i < word.size(); ++i)
            EXPECT_NE(IsVowel(word[i]), IsVowel(word[i - 1])) << word;
        const auto backward = MakeRandomWord(Wish(9, 3, "rand", "lowr", "letr"), random).size();
        EXPECT_TRUE(backward >= 3 && backward <= 9);
    }
    EXPECT_EQ(shortest, 3);
    EXPECT_EQ(longest, 8) << "the longest comes only when both are equal";
    EXPECT_NEAR(vowelsFirst / 500.0, 0.238, 0.1);
    EXPECT_EQ(MakeRandomWord(Wish(60, 70, "word", "rand", "letr"), random).size(), 50);
    EXPECT_EQ(MakeRandomWord(Wish(-5, 0, "word", "rand", "letr"), random).size(), 1);
    const auto refused = [](const char* shape, const char* letterCase, const char* content) {
        return !ReadWordWish(1, 1, QString::fromLatin1(shape), QString::fromLatin1(letterCase),
                             QString::fromLatin1(content));
    };
    EXPECT_TRUE(refused("letr", "rand", "nums") && refused("word", "word", "nums") && refused("word", "rand", ""));
}
