#include "macro/language/arithmetic.h"

#include <limits>

namespace {

constexpr const char* OverflowMessage =
    "Variable has overflowed!  Possible causes:-^^Varible as gone beyond the range: -2,147,483,648 to "
    "2,147,483,648^Or you divided the varible by zero!";
constexpr const char* LengthMessage = "Variable sizes (for text) are limited to 10000 characters.";

/// In 64 bits, where none of the five can overflow but the division by zero.
qint64 Reckon(Operator op, qint64 left, qint64 right)
{
    switch (op) {
    case Operator::Add:
        return left + right;
    case Operator::Subtract:
        return left - right;
    case Operator::Multiply:
        return left * right;
    case Operator::Divide:
        return right ? left / right : std::numeric_limits<qint64>::max();
    default:
        return right;
    }
}

const char* ApplyToText(Operator op, Value& target, const Value& value)
{
    if (op == Operator::Assign) {
        target = value;
        return nullptr;
    }
    if (op != Operator::Add) {
        target.Set(0);
        return nullptr;
    }
    target.Append(value.Text());
    return target.Text().size() > LongestSum ? LengthMessage : nullptr;
}

} // namespace

const char* ApplyOperator(Operator op, Value& target, const Value& value)
{
    const bool fromNothing = target.IsEmpty();
    if (!value.IsNumeric() || !(fromNothing || target.IsNumeric()))
        return ApplyToText(op, target, value);
    const std::optional<qint32> left = fromNothing ? 0 : target.Long();
    const std::optional<qint32> right = value.Long();
    if (!left || !right)
        return RangeMessage;
    const qint64 result = Reckon(op, *left, *right);
    constexpr std::numeric_limits<qint32> limits;
    if (result < limits.min() || result > limits.max())
        return OverflowMessage;
    target.Set(qint32(result));
    return nullptr;
}
