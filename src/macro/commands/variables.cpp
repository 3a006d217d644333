#include "macro/commands/families.h"
#include "macro/language/comparison.h"
#include "macro/language/run_state.h"

#include <cmath>

namespace {

void Dim(RunState& run, Arguments& in)
{
    if (run.InSub) {
        run.Fail("Can't have Dims inside subs");
        return;
    }
    if (!run.CheckNotInBlock())
        return;
    if (run.InLoop()) // goes on: a further fault is told in its place
        run.FailAndStop("Can't have Dims inside Loops!");
    if (!in.CheckShape())
        return;
    const QString& name = in.Written(1);
    if (const QString fault = VariableNameFault(name, false); !fault.isEmpty()) {
        run.Fail(fault);
        return;
    }
    if (run.Variables.Find(name))
        run.Fail(QStringLiteral("Duplicate deceleration error: ") + name);
    else if (run.Variables.Count() >= VariableTable::Most)
        run.Fail("You can only have 1000 variables per macro");
    else
        run.Variables.Declare(run.Variables.Mention(name));
}

/// One operator of `set` and the value glued to it.
struct SetStep
{
    std::optional<Operator> Op;
    Token Right;
    bool Tab = false; ///< the value is [tab], which pads the variable
};

struct SetData : LineData
{
    Value* Target = nullptr; ///< of a line with one step only: what it changes
    const Value* Right = nullptr;
    QString NameFault;
    std::vector<SetStep> Steps;
};

std::optional<Operator> SetOperatorOf(QChar sign)
{
    switch (sign.unicode()) {
    case u'=':
        return Operator::Assign;
    case u'+':
        return Operator::Add;
    case u'-':
        return Operator::Subtract;
    case u'*':
        return Operator::Multiply;
    case u'/':
        return Operator::Divide;
    default:
        return std::nullopt;
    }
}

/// Gives a variable the result of one step. False: the run has failed.
bool SetOnce(RunState& run, const Token& target, const SetStep& step)
{
    if (target.What != Token::Kind::Variable) {
        run.Fail(QStringLiteral("Variable has not been declared: ") + target.Written);
        return false;
    }
    Value scratch;
    Evaluate(run, target, scratch); // fails if it is not declared
    if (run.Failed())
        return false;
    if (step.Tab)
        run.TabbedValue = target.Slot->Held;
    const Value& value = Evaluate(run, step.Right, scratch);
    if (step.Tab)
        run.TabbedValue = Value();
    if (run.Failed())
        return false;
    if (!step.Op) {
        run.Fail("Expected = + - \\ * in Set command");
        return false;
    }
    if (const char* fault = ApplyOperator(*step.Op, target.Slot->Held, value)) {
        run.Fail(fault);
        return false;
    }
    return true;
}

void RunSet(RunState& run, ProgramLine& line)
{
    if (!run.BranchIsLive())
        return;
    const auto& data = static_cast<const SetData&>(*line.Data);
    if (!data.NameFault.isEmpty()) {
        run.Fail(data.NameFault);
        return;
    }
    const Token& target = line.Tokens[1];
    for (const SetStep& step : data.Steps)
        if (!SetOnce(run, target, step))
            return;
}

/// One step on a variable, as most lines have it: whole numbers need no more than this. A routine for each operator,
/// so that none is chosen while the macro runs.
template <Operator Op>
void RunSetOnce(RunState& run, ProgramLine& line)
{
    const auto& data = static_cast<const SetData&>(*line.Data);
    if (!run.BranchIsLive() || !ApplyToWhole(Op, *data.Target, *data.Right))
        RunSet(run, line);
}

/// In the order of Operator.
constexpr void (*SetOnceRuns[])(RunState&, ProgramLine&) = {
    RunSetOnce<Operator::Assign>, RunSetOnce<Operator::Add>, RunSetOnce<Operator::Subtract>,
    RunSetOnce<Operator::Multiply>, RunSetOnce<Operator::Divide>};

/// Chooses how a line runs.
void ChooseSetRun(ProgramLine& line, SetData& data)
{
    line.Run = RunSet;
    const Token& target = line.Tokens[1];
    const SetStep& step = data.Steps.front();
    if (data.Steps.size() != 1 || !step.Op || !data.NameFault.isEmpty() || target.What != Token::Kind::Variable)
        return;
    data.Target = &target.Slot->Held;
    data.Right = PlaceOfValue(step.Right);
    if (data.Right)
        line.Run = SetOnceRuns[size_t(*step.Op)];
}

void PrepareSet(RunState& run, ProgramLine& line)
{
    if (!line.ShapeFault.isEmpty())
        return;
    constexpr size_t FirstStep = 2;
    auto data = std::make_unique<SetData>();
    data->NameFault = VariableNameFault(line.Tokens[1].Written, false);
    for (size_t i = FirstStep; i < line.Tokens.size(); ++i) {
        const QString& written = line.Tokens[i].Written;
        SetStep step{SetOperatorOf(written.front()), ReadToken(written.sliced(1), run.Variables), false};
        step.Tab = step.Right.What == Token::Kind::Tag && step.Right.Plain == FindPlainTag(u"[tab]");
        data->Steps.push_back(std::move(step));
    }
    ChooseSetRun(line, *data);
    line.Data = std::move(data);
}

/// A line of the wrong shape; all others run as PrepareSet has read them.
void Set(RunState&, Arguments&) {}

/// The variable that a command changes in place; null after failing.
Variable* ChangedVariable(RunState& run, Arguments& in)
{
    Variable* variable = in.NamedVariable(1);
    if (!variable)
        run.Fail(QStringLiteral("Variable has not been declared: ") + in.Written(1));
    return variable;
}

QString TrimmedLeft(const QString& text)
{
    qsizetype first = 0;
    while (first < text.size() && text[first] == u' ')
        ++first;
    return text.sliced(first);
}

QString TrimmedRight(const QString& text)
{
    qsizetype end = text.size();
    while (end > 0 && text[end - 1] == u' ')
        --end;
    return text.first(end);
}

QString TrimmedBoth(const QString& text)
{
    return TrimmedLeft(TrimmedRight(text));
}

template <QString (*Trim)(const QString&)>
void TrimVariable(RunState& run, Arguments& in)
{
    if (Variable* variable = ChangedVariable(run, in))
        variable->Held.Set(SpaceToPipe(Trim(PipeToSpace(variable->Held.Text()))));
}

void VarLCase(RunState& run, Arguments& in)
{
    if (Variable* variable = ChangedVariable(run, in))
        variable->Held.Set(variable->Held.Text().toLower());
}

void VarUCase(RunState& run, Arguments& in)
{
    if (Variable* variable = ChangedVariable(run, in))
        variable->Held.Set(variable->Held.Text().toUpper());
}

void VarReplace(RunState& run, Arguments& in)
{
    Variable* variable = ChangedVariable(run, in);
    const QString find = in.Text(2), replacement = in.Text(3);
    if (run.Failed() || find.isEmpty())
        return;
    QString changed = variable->Held.Text();
    variable->Held.Set(changed.replace(find, replacement));
}

/// Writes `text` over what stands from a position (from 1) on. What would lie outside is left out.
void Overwrite(Variable& variable, qsizetype position, QStringView text)
{
    QString value = variable.Held.Text();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype at = position - 1 + i;
        if (at >= 0 && at < value.size())
            value[at] = text[i];
    }
    variable.Held.Set(value);
}

void VarMidSet(RunState& run, Arguments& in)
{
    constexpr int TextArgument = 4;
    Variable* variable = ChangedVariable(run, in);
    const int start = qMax(in.Number(2), 1), count = qMax(in.Number(3), 1);
    const QString text = in.Text(TextArgument);
    if (!run.Failed())
        Overwrite(*variable, start, QStringView(text).first(qMin<qsizetype>(count, text.size())));
}

void VarCentreIn(RunState& run, Arguments& in)
{
    Variable* variable = ChangedVariable(run, in);
    const QString text = in.Text(2);
    if (run.Failed())
        return;
    const qsizetype length = variable->Held.Text().size();
    const auto position = qsizetype(std::nearbyint(double(qAbs(length - text.size())) / 2));
    if (text.size() == length)
        variable->Held.Set(text);
    else if (text.size() < length)
        Overwrite(*variable, position, text);
    else
        variable->Held.Set(text.mid(qMax<qsizetype>(position, 1) - 1, length));
}

constexpr CommandWord VariableRows[] = {
    {"dim", Exactly(1), OwnFrame, "$NAME", "Makes a variable, empty. Not inside an if, a case, a loop or a sub.", Dim},
    {"set", AtLeast(2), NoWordFlags, "$NAME OPvalue [OPvalue ...]",
     "Changes a variable: = assigns, + adds or appends, - * / reckon. Each value acts on the result of the one before.",
     Set, PrepareSet},
    {"vartrim", Exactly(1), NoWordFlags, "$NAME", "Takes the blanks from both ends of the variable.",
     TrimVariable<TrimmedBoth>},
    {"varltrim", Exactly(1), NoWordFlags, "$NAME", "Takes the blanks from the front of the variable.",
     TrimVariable<TrimmedLeft>},
    {"varrtrim", Exactly(1), NoWordFlags, "$NAME", "Takes the blanks from the end of the variable.",
     TrimVariable<TrimmedRight>},
    {"varlcase", Exactly(1), NoWordFlags, "$NAME", "Makes the variable lower case.", VarLCase},
    {"varucase", Exactly(1), NoWordFlags, "$NAME", "Makes the variable upper case.", VarUCase},
    {"varreplace", ExactlyAny(3), NoWordFlags, "$NAME FIND WITH",
     "Replaces every FIND in the variable. Letter case counts.", VarReplace},
    {"varmidset", ExactlyAny(4), NoWordFlags, "$NAME START COUNT TEXT",
     "Writes at most COUNT characters of TEXT over the variable from START (1: its first) on. Its length stays.",
     VarMidSet},
    {"varcentrein", ExactlyAny(2), NoWordFlags, "$NAME TEXT",
     "Puts TEXT into the middle of the variable, whose length stays.", VarCentreIn},
};

} // namespace

std::span<const CommandWord> VariableCommands()
{
    return VariableRows;
}
