#pragma once

#include "macro/language/value.h"

enum class Operator : quint8 { Assign, Add, Subtract, Multiply, Divide };

/// Longest text that "+" may build.
constexpr qsizetype LongestSum = 10000;

/// Applies an operator to `target`. Two numbers are reckoned as signed 32-bit ones, anything else is text: it is
/// assigned or appended, and becomes 0 otherwise. Gives back the message of a failure, which leaves `target` as it was
/// but for a sum that grew too long; null if there is none.
const char* ApplyOperator(Operator op, Value& target, const Value& value);

/// The same for two values that are known to be whole and a result that fits. False: nothing was done.
inline bool ApplyToWhole(Operator op, Value& target, const Value& value)
{
    if (!target.IsKnownWhole() || !value.IsKnownWhole())
        return false;
    qint32 result = value.Number();
    bool fits = true;
    switch (op) {
    case Operator::Assign:
        break;
    case Operator::Add:
        fits = !__builtin_add_overflow(target.Number(), value.Number(), &result);
        break;
    case Operator::Subtract:
        fits = !__builtin_sub_overflow(target.Number(), value.Number(), &result);
        break;
    case Operator::Multiply:
        fits = !__builtin_mul_overflow(target.Number(), value.Number(), &result);
        break;
    case Operator::Divide:
        return false;
    }
    if (fits)
        target.Set(result);
    return fits;
}
