#include "services/random_words.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double DigitChance = 0.38, VowelFirst = 0.238, LowerAbove = 0.5;
constexpr qint64 Shortest = 1, Longest = 50;
/// Digits take a place by their look.
constexpr QLatin1StringView Vowels("aieou"), Consonants("bcdfghjklmnpqrstvwxyz");
constexpr QLatin1StringView VowelDigits("18"), ConsonantDigits("23456790");

template <class Value, size_t Count>
using WordTable = std::array<std::pair<QLatin1StringView, Value>, Count>;

constexpr WordTable<bool, 2> Shapes{{{QLatin1StringView("rand"), false}, {QLatin1StringView("word"), true}}};
constexpr WordTable<bool, 2> Contents{{{QLatin1StringView("letr"), false}, {QLatin1StringView("nums"), true}}};
constexpr WordTable<WordCase, 4> Cases{{{QLatin1StringView("rand"), WordCase::Mixed},
                                        {QLatin1StringView("lowr"), WordCase::Lower},
                                        {QLatin1StringView("uppr"), WordCase::Upper},
                                        {QLatin1StringView("name"), WordCase::Name}}};

template <class Value, size_t Count>
std::optional<Value> Meaning(const WordTable<Value, Count>& table, const QString& word)
{
    for (const auto& [name, value] : table)
        if (word.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    return {};
}

int ClampedLength(qint64 length)
{
    return int(std::clamp(length, Shortest, Longest));
}

class WordMaker
{
public:
    WordMaker(const WordWish& wanted, const std::function<double()>& source) : wish(wanted), random(source) {}

    QString Make()
    {
        const int offset = random() > VowelFirst ? 0 : 1;
        const int length = int(std::floor(random() * (wish.Max - wish.Min))) + wish.Min;
        QString word;
        for (int i = 1; i <= length; ++i)
            word += wish.WordShape ? ShapedCharacter((i - offset) % 2 == 0) : RandomCharacter();
        return InCase(word);
    }

private:
    QChar ShapedCharacter(bool vowel)
    {
        const QLatin1StringView letters = vowel ? Vowels : Consonants, digits = vowel ? VowelDigits : ConsonantDigits;
        const auto count = letters.size() + (wish.Digits ? digits.size() : 0);
        const auto at = qsizetype(std::floor(random() * double(count)));
        return at < letters.size() ? letters[at] : digits[at - letters.size()];
    }
    /// Letter and digit are both drawn whichever is taken, so that a seed gives the same row for both contents.
    QChar RandomCharacter()
    {
        const double chance = random();
        const QChar letter(int(std::floor(random() * 26)) + 'A');
        const QChar digit(int(std::floor(random() * 10)) + '0');
        return (wish.Digits ? DigitChance : 0) < chance ? letter : digit;
    }
    QString InCase(const QString& word)
    {
        if (wish.Case == WordCase::Lower)
            return word.toLower();
        if (wish.Case == WordCase::Upper)
            return word.toUpper();
        QString changed = word.toLower();
        if (wish.Case == WordCase::Name)
            changed.replace(0, 1, changed.left(1).toUpper());
        else
            for (QChar& character : changed)
                character = random() > LowerAbove ? character.toLower() : character.toUpper();
        return changed;
    }

    const WordWish& wish;
    const std::function<double()>& random;
};

} // namespace

std::optional<WordWish> ReadWordWish(qint64 min, qint64 max, const QString& shape, const QString& letterCase,
                                     const QString& content)
{
    const auto shaped = Meaning(Shapes, shape);
    const auto cased = Meaning(Cases, letterCase);
    const auto digits = Meaning(Contents, content);
    if (!shaped || !cased || !digits)
        return {};
    return WordWish{ClampedLength(min), ClampedLength(max), *shaped, *cased, *digits};
}

QString MakeRandomWord(const WordWish& wish, const std::function<double()>& random)
{
    return WordMaker(wish, random).Make();
}
