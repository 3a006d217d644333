#pragma once

#include "macro/language/program.h"

#include <optional>

enum class Comparison : quint8 { Equal, Unequal, Less, Greater, AtMost, AtLeast };

/// Words that stand on the right of "==" and "<>" and ask for a kind of text.
enum class SpecialWord : quint8 { None, Numerical, MultiLine, Exist };

/// One condition of `if`, `and` or `case`: the operator is glued to its right-hand value.
struct Condition
{
    bool TooShort = false;        ///< no operator fits into it
    std::optional<Comparison> Op; ///< nothing: none of the six
    Token Right;
};
Condition ReadCondition(const QString& token, VariableTable& variables);

/// Two whole numbers, which are texts of their own too.
inline bool WholeHolds(Comparison comparison, qint32 left, qint32 right)
{
    switch (comparison) {
    case Comparison::Equal:
        return left == right;
    case Comparison::Unequal:
        return left != right;
    case Comparison::Less:
        return left < right;
    case Comparison::Greater:
        return left > right;
    case Comparison::AtMost:
        return left <= right;
    case Comparison::AtLeast:
        return left >= right;
    }
    return false;
}

/// Does the condition hold for a left value? `allWords`: as for `if`, all three special words are known and both sides
/// are converted to numbers whatever the operator is. Fails with the message of what is wrong.
bool Holds(RunState& run, const Condition& condition, const Value& left, bool allWords);

inline constexpr const char* TooShortMessage = "Missing command on this line";
