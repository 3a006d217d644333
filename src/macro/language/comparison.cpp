#include "macro/language/comparison.h"

#include "macro/language/run_state.h"

namespace {

constexpr qsizetype OperatorSize = 2;

std::optional<Comparison> ComparisonOf(QStringView sign)
{
    constexpr std::pair<QLatin1StringView, Comparison> Signs[] = {
        {QLatin1StringView("=="), Comparison::Equal},  {QLatin1StringView("<>"), Comparison::Unequal},
        {QLatin1StringView("<<"), Comparison::Less},   {QLatin1StringView(">>"), Comparison::Greater},
        {QLatin1StringView("<="), Comparison::AtMost}, {QLatin1StringView("=>"), Comparison::AtLeast}};
    for (const auto& [written, comparison] : Signs)
        if (sign == written)
            return comparison;
    return std::nullopt;
}

SpecialWord SpecialWordIn(const Value& right, bool allWords)
{
    if (!right.BeginsWith(u'['))
        return SpecialWord::None;
    const QString word = right.Text().toLower();
    if (word == QLatin1String("[numerical]"))
        return SpecialWord::Numerical;
    if (allWords && word == QLatin1String("[multiline]"))
        return SpecialWord::MultiLine;
    if (allWords && word == QLatin1String("[exist]"))
        return SpecialWord::Exist;
    return SpecialWord::None;
}

bool AreEqual(RunState& run, const Value& left, const Value& right, bool allWords)
{
    switch (SpecialWordIn(right, allWords)) {
    case SpecialWord::Numerical:
        return left.IsNumeric();
    case SpecialWord::MultiLine:
        return left.Text().contains(u'\r');
    case SpecialWord::Exist:
        return run.Paths.Exists(left.Text());
    default:
        return left.Equals(right);
    }
}

} // namespace

Condition ReadCondition(const QString& token, VariableTable& variables)
{
    Condition condition;
    condition.TooShort = token.size() < OperatorSize;
    if (condition.TooShort)
        return condition;
    condition.Op = ComparisonOf(QStringView(token).first(OperatorSize));
    condition.Right = ReadToken(token.sliced(OperatorSize), variables);
    return condition;
}

bool Holds(RunState& run, const Condition& condition, const Value& left, bool allWords)
{
    if (const Value* right = KnownValue(condition.Right);
        right && condition.Op && right->IsKnownWhole() && left.IsKnownWhole())
        return WholeHolds(*condition.Op, left.Number(), right->Number());
    if (condition.TooShort) {
        run.Fail(TooShortMessage);
        return false;
    }
    Value scratch, shown;
    const Value& right = ShownValue(condition.Right, EvaluateMember(run, condition.Right, left, scratch), shown);
    if (run.Failed())
        return false;
    if (!condition.Op) {
        run.Fail("Expected operator == <> << >> <= =>");
        return false;
    }
    const bool compareNumbers = *condition.Op != Comparison::Equal && *condition.Op != Comparison::Unequal;
    qint32 a = 0, b = 0;
    if (compareNumbers || allWords) {
        a = TextToLong(run, left);
        b = TextToLong(run, right);
        if (run.Failed())
            return false;
    }
    if (compareNumbers)
        return WholeHolds(*condition.Op, a, b);
    return AreEqual(run, left, right, allWords) == (*condition.Op == Comparison::Equal);
}
