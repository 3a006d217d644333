#include "macro/commands/families.h"
#include "macro/language/block_ends.h"
#include "macro/language/comparison.h"
#include "macro/language/run_state.h"

namespace {

struct ConditionData : LineData
{
    const Value *Left = nullptr, *Right = nullptr; ///< of a line with one condition, where they stand
    std::vector<Condition> Conditions;
};

void PrepareConditions(RunState& run, ProgramLine& line, size_t first)
{
    auto data = std::make_unique<ConditionData>();
    for (size_t i = first; i < line.Tokens.size(); ++i)
        data->Conditions.push_back(ReadCondition(line.Tokens[i].Written, run.Variables));
    line.Data = std::move(data);
}

void PrepareCase(RunState& run, ProgramLine& line)
{
    PrepareConditions(run, line, 1);
}

/// All of them, up to the first that does not hold.
bool AllHold(RunState& run, const ProgramLine& line, const Value& left, bool& truth, bool allWords)
{
    for (const Condition& condition : static_cast<const ConditionData&>(*line.Data).Conditions) {
        const bool holds = Holds(run, condition, left, allWords);
        if (run.Failed())
            return false;
        truth = holds;
        if (!holds)
            break;
    }
    return true;
}

/// The conditions of a line whose shape and left name are right.
void TestConditions(RunState& run, const ProgramLine& line)
{
    run.Block.IfActive = true;
    run.Block.IfTrue = false;
    const Token& leftToken = line.Tokens[1];
    Value scratch, shown;
    const Value& left = ShownValue(leftToken, Evaluate(run, leftToken, scratch), shown);
    if (!run.Failed() && AllHold(run, line, left, run.Block.IfTrue, true) && !run.Block.IfTrue)
        SkipToElseOrEndIf(run);
}

/// Most lines compare two whole numbers and need no more than this.
void TestLine(RunState& run, const ProgramLine& line)
{
    const auto& data = static_cast<const ConditionData&>(*line.Data);
    if (!data.Right || !data.Left->IsKnownWhole() || !data.Right->IsKnownWhole()) {
        TestConditions(run, line);
        return;
    }
    run.Block.IfActive = true;
    run.Block.IfTrue = WholeHolds(*data.Conditions.front().Op, data.Left->Number(), data.Right->Number());
    if (!run.Block.IfTrue)
        SkipToElseOrEndIf(run);
}

void RunIf(RunState& run, ProgramLine& line)
{
    if (run.Block.IfActive)
        run.Fail("Can't have an If statement embedded in another If statement!");
    else
        TestLine(run, line);
}

void RunAnd(RunState& run, ProgramLine& line)
{
    if (!run.Block.IfActive)
        run.Fail("And without If statement");
    else if (run.Block.IfTrue)
        TestLine(run, line);
}

/// What is wrong with the shape or the left name.
void FailConditions(RunState& run, Arguments& in)
{
    if (in.CheckShape())
        run.Fail(VariableNameFault(in.Written(1), true));
}

void If(RunState& run, Arguments& in)
{
    if (run.Block.IfActive)
        run.Fail("Can't have an If statement embedded in another If statement!");
    else
        FailConditions(run, in);
}

void And(RunState& run, Arguments& in)
{
    if (!run.Block.IfActive)
        run.Fail("And without If statement");
    else if (run.Block.IfTrue)
        FailConditions(run, in);
}

template <void (*Direct)(RunState&, ProgramLine&)>
void PrepareIf(RunState& run, ProgramLine& line)
{
    constexpr size_t FirstCondition = 2;
    if (!line.ShapeFault.isEmpty() || !VariableNameFault(line.Tokens[1].Written, true).isEmpty())
        return;
    PrepareConditions(run, line, FirstCondition);
    auto& data = static_cast<ConditionData&>(*line.Data);
    data.Left = PlaceOfValue(line.Tokens[1]);
    if (data.Left && data.Conditions.size() == 1 && data.Conditions.front().Op)
        data.Right = PlaceOfValue(data.Conditions.front().Right);
    line.Run = Direct;
}

void RunElse(RunState& run, ProgramLine&)
{
    if (!run.Block.IfActive) {
        run.Fail("Else without If statement");
        return;
    }
    run.Block.IfTrue = !run.Block.IfTrue;
    if (!run.Block.IfTrue)
        SkipToElseOrEndIf(run);
}

void Else(RunState& run, Arguments& in)
{
    if (!run.Block.IfActive)
        run.Fail("Else without If statement");
    else
        in.CheckShape();
}

void RunEndIf(RunState& run, ProgramLine&)
{
    if (!run.Block.IfActive)
        run.Fail("EndIf without If statement");
    run.Block.IfActive = run.Block.IfTrue = false;
}

void EndIf(RunState& run, Arguments& in)
{
    if (!run.Block.IfActive)
        run.Fail("EndIf without If statement");
    else
        in.CheckShape();
}

void CaseSelect(RunState& run, Arguments& in)
{
    if (!run.CheckNotInBlock())
        return;
    if (run.InLoop()) {
        run.FailAndStop("Can't have a CaseSelect inside a Loops");
        return;
    }
    if (!in.CheckShape())
        return;
    const Value value = in.Shown(1);
    if (run.Failed())
        return;
    run.Block.CaseValue = value;
    run.Block.CaseActive = true;
    run.Block.CaseTrue = run.Block.CaseHit = false;
}

void Case(RunState& run, Arguments& in)
{
    if (!run.CheckNotInBlock(true))
        return;
    if (run.InLoop()) {
        run.Fail("Can't have a Case inside a Loops");
        return;
    }
    if (!run.Block.CaseActive) {
        run.Fail("Case without CaseSelect");
        return;
    }
    if (!in.CheckShape())
        return;
    if (in.Written(1).compare(QLatin1String("else"), Qt::CaseInsensitive) == 0) {
        run.Block.CaseTrue = !run.Block.CaseHit;
        return;
    }
    run.Block.CaseTrue = false;
    if (!AllHold(run, in.Line(), run.Block.CaseValue, run.Block.CaseTrue, false))
        return;
    if (run.Block.CaseTrue)
        run.Block.CaseHit = true;
    else
        SkipToNextCase(run);
}

void EndCase(RunState& run, Arguments&)
{
    if (!run.CheckNotInBlock(true))
        return;
    if (run.InLoop()) {
        run.FailAndStop("Can't have a CaseEnd inside a Loops");
        return;
    }
    if (!run.Block.CaseActive) {
        run.FailAndStop("CaseEnd without CaseSelect");
        return;
    }
    run.Block.CaseActive = run.Block.CaseTrue = run.Block.CaseHit = false;
    run.Block.CaseValue = Value();
}

constexpr CommandWord BranchRows[] = {
    {"if", AtLeastAny(2), OwnFrame, "VALUE OPvalue [OPvalue ...]",
     "The lines up to else or endif run if every condition holds. The operator is glued to what is compared with: "
     "== <> << >> <= =>. On the right [numerical], [multiline] and [exist] ask for a number, for several lines, for a "
     "file or folder.",
     If, PrepareIf<RunIf>},
    {"and", AtLeastAny(2), OwnFrame, "VALUE OPvalue [OPvalue ...]",
     "Further conditions of the if above, which must hold too.", And, PrepareIf<RunAnd>},
    {"else", Exactly(0), OwnFrame, "", "The lines up to endif run if the conditions of the if did not hold.", Else,
     PrepareDirect<RunElse>},
    {"endif", Exactly(0), OwnFrame, "", "Ends an if. One if cannot lie in another; a sub can hold the inner one.",
     EndIf, PrepareDirect<RunEndIf>},
    {"caseselect", Exactly(1), OwnFrame, "VALUE", "Begins a choice by the value; case lines follow.", CaseSelect},
    {"case", AtLeast(1), OwnFrame, "OPvalue [OPvalue ...] | else",
     "The lines up to the next case run if every condition holds for the value of the caseselect. case else runs if no "
     "case did.",
     Case, PrepareCase},
    {"endcase", Exactly(0), OwnFrame, "", "Ends a caseselect.", EndCase},
};

} // namespace

std::span<const CommandWord> BranchCommands()
{
    return BranchRows;
}
