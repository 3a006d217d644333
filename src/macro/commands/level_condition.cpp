#include "macro/commands/level_condition.h"

#include "level/level_record.h"
#include "macro/language/comparison.h"
#include "macro/language/group_items.h"
#include "macro/language/run_state.h"

bool HasLevel()
{
    return !Level.CurrentLevelPath.isEmpty();
}

bool IsCondition(const QString& written)
{
    return written.startsWith(QLatin1String("==")) || written.startsWith(QLatin1String("<>"));
}

LevelCondition ReadCondition(RunState& run, const QString& written)
{
    LevelCondition condition;
    constexpr int Operator = 2; // characters
    if (written.size() < Operator) {
        run.Fail(TooShortMessage);
        return condition;
    }
    if (!IsCondition(written)) {
        run.Fail("Expected == or <> before variable name");
        return condition;
    }
    condition.Unequal = written.startsWith(u'<');
    const QString rest = written.sliced(Operator);
    if (rest.startsWith(u'?')) {
        condition.Of = GroupOrFail(run, rest);
        return condition;
    }
    const Value value = EvaluateText(run, rest);
    if (!run.Failed())
        condition.Value = TextToLong(run, value);
    return condition;
}

CellValues ValuesOf(const Group& group)
{
    std::vector<qint32> values;
    values.reserve(size_t(group.Count()));
    for (int position = 1; position <= group.Count(); ++position) {
        const Value& item = group.Item(position);
        const QString& text = item.Text();
        const qsizetype point = text.indexOf(u'.');
        // What is out of range is no element's number.
        if (const auto whole = point < 0 ? item.Long() : NumberIn(QStringView(text).first(point)).Long)
            values.push_back(*whole);
    }
    return CellValues(std::move(values));
}

CellValues ValuesOf(const LevelCondition& condition)
{
    return condition.Of ? ValuesOf(*condition.Of) : CellValues(condition.Value);
}

CellTest TestOf(const LevelCondition& condition)
{
    if (!condition.Of && condition.Value == LevelCondition::NoValue)
        return {};
    return {ValuesOf(condition), condition.Unequal};
}
