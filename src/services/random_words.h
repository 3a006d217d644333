#pragma once

#include <QString>
#include <functional>
#include <optional>

/// Made-up words and random strings: names, test data.

enum class WordCase { Mixed, Lower, Upper, Name };

/// What a random word is to be like.
struct WordWish
{
    int Min = 1, Max = 1;   ///< length; Max itself comes only when both are equal
    bool WordShape = false; ///< consonants and vowels in turn, else random letters
    WordCase Case = WordCase::Mixed;
    bool Digits = false; ///< some, beside the letters
};

/// A wish from a command's words, letter case ignored: "rand" or "word"; "rand", "uppr", "lowr" or "name"; "nums" or
/// "letr". Lengths are clamped to 1 to 50. None for any other word.
std::optional<WordWish> ReadWordWish(qint64 min, qint64 max, const QString& shape, const QString& letterCase,
                                     const QString& content);

/// `random` gives uniform numbers from 0 up to 1. The same row of them gives the same word.
QString MakeRandomWord(const WordWish& wish, const std::function<double()>& random);
