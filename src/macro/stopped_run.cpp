#include "macro/stopped_run.h"

#include "macro/language/comparison.h"
#include "macro/language/run_state.h"
#include "macro/language/source_text.h"

namespace {

/// The run's fault and wish for attention as they were, whatever a condition does.
class UntouchedRun
{
public:
    explicit UntouchedRun(RunState& ofRun) : run(ofRun), attention(ofRun.Attention), stop(ofRun.StopRequested) {}
    ~UntouchedRun()
    {
        run.ErrorText.clear();
        run.Attention = attention;
        run.StopRequested = stop;
    }
    UntouchedRun(const UntouchedRun&) = delete;
    UntouchedRun& operator=(const UntouchedRun&) = delete;

private:
    RunState& run;
    const bool attention, stop;
};

bool AllHoldNow(RunState& run, const QStringList& tokens)
{
    constexpr qsizetype FirstCondition = 2;
    Value scratch;
    const Value left(PipeToSpace(Evaluate(run, ReadToken(tokens.at(1), run.Variables, false), scratch).Text()));
    for (qsizetype i = FirstCondition; i < tokens.size() && !run.Failed(); ++i)
        if (!Holds(run, ReadCondition(tokens.at(i), run.Variables), left, true))
            return false;
    return true;
}

} // namespace

std::vector<RunPlace> GosubChain(const RunState& run)
{
    std::vector<RunPlace> chain;
    const auto add = [&](int line) { chain.push_back({line, run.Code.Lines[size_t(line)].Written}); };
    for (int depth = 1; depth <= run.SubDepth && depth <= RunState::DeepestSub; ++depth)
        add(run.SubFrames[size_t(depth)].ReturnLine);
    add(run.CurrentLine);
    return chain;
}

ConditionAnswer HoldsNow(RunState& run, const QString& condition)
{
    if (condition.trimmed().isEmpty())
        return {};
    const QString line = TidyTypedSource({QStringLiteral("if ") + condition}).Lines.value(0);
    const PreparedSource prepared = PrepareSource(WithoutTabs(line));
    const QStringList tokens = prepared.Lines.value(0).split(u' ');
    QString fault = prepared.ErrorText;
    if (fault.isEmpty())
        fault = ShapeFault(tokens, AtLeastAny(2));
    if (fault.isEmpty())
        fault = VariableNameFault(tokens.at(1), true);
    if (!fault.isEmpty())
        return {true, fault};
    const UntouchedRun untouched(run);
    const bool holds = AllHoldNow(run, tokens);
    return {holds || run.Failed(), run.ErrorText};
}

std::optional<QString> ValueNow(RunState& run, const QString& name)
{
    const Variable* variable = run.Variables.Find(name);
    return variable ? std::optional(PipeToSpace(variable->Held.Text())) : std::nullopt;
}

bool SetVariableAt(RunState& run, int place, const QString& value)
{
    if (place < 0 || place >= run.Variables.Count())
        return false;
    run.Variables.InOrder()[size_t(place)]->Held.Set(SpaceToPipe(value));
    return true;
}
