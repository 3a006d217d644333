#include "macro/commands/families.h"
#include "macro/language/block_ends.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"

namespace {

/// Leaves every If, Case and loop of this level.
void ClearBlocks(RunState& run)
{
    BlockState& block = run.Block;
    block.IfActive = block.IfTrue = false;
    block.CaseActive = block.CaseTrue = block.CaseHit = false;
    block.CaseValue = Value();
    block.LoopLine = block.LoopRemaining = -1;
    block.LoopStep = 1;
}

void LeaveSubs(RunState& run)
{
    run.SubDepth = 0;
    run.InSub = false;
}

/// A jump to a label that its line names as it is.
struct JumpData : LineData
{
    const Label* Target = nullptr;
};

QString WithMark(const QString& name)
{
    return name.startsWith(u'@') ? name : QString(u'@' + name);
}

void PrepareJump(RunState& run, ProgramLine& line)
{
    if (line.Tokens.size() < 2 || line.Tokens[1].What != Token::Kind::Plain)
        return;
    auto data = std::make_unique<JumpData>();
    data->Target = run.Code.Labels.Find(WithMark(line.Tokens[1].Shown.Text()));
    line.Data = std::move(data);
}

/// The label that an argument names, with or without its "@"; null after failing with `missing` and the name.
const Label* LabelOf(RunState& run, Arguments& in, const char* missing)
{
    if (const auto* known = static_cast<const JumpData*>(in.Line().Data.get()); known && known->Target)
        return known->Target;
    const QString name = WithMark(in.Text(1));
    if (run.Failed())
        return nullptr;
    const Label* label = run.Code.Labels.Find(name);
    if (!label)
        run.Fail(QLatin1String(missing) + name);
    return label;
}

void LabelLine(RunState& run, Arguments&)
{
    if (run.CheckNotInBlock() && run.InLoop())
        run.FailAndStop("Can't have Labels inside Loops!");
}

void GotoLabel(RunState& run, Arguments& in)
{
    const Label* label = LabelOf(run, in, "This Label doesn't exist: ");
    if (!label)
        return;
    ClearBlocks(run);
    LeaveSubs(run);
    run.CurrentLine = label->Line;
}

void GotoCodeLine(RunState& run, Arguments& in)
{
    const qint32 line = in.Number(1);
    if (run.Failed())
        return;
    if (line < 0 || line > run.Code.LastLine) {
        run.Fail(QStringLiteral("GotoCodeLine went out of bounds.  Code line: %1 doesn't exist.").arg(line));
        return;
    }
    ClearBlocks(run);
    LeaveSubs(run);
    run.CurrentLine = line - 1;
}

/// Reached from above it ends the program: the subs stand behind it.
void Sub(RunState& run, Arguments& in)
{
    if (!run.CheckNotInBlock())
        return;
    if (run.InLoop())
        run.FailAndStop("Can't have Subs inside Loops!");
    else if (!run.InSub)
        run.StopRequested = true;
    else
        in.CheckShape();
}

void Gosub(RunState& run, Arguments& in)
{
    const Label* label = LabelOf(run, in, "Couldn't find the Sub: ");
    if (!label)
        return;
    run.InSub = true;
    if (++run.SubDepth > RunState::DeepestSub) {
        run.Fail("You can only nest 100 Subs and Gosubs!");
        return;
    }
    SubFrame& frame = run.SubFrames[size_t(run.SubDepth)];
    frame.ReturnLine = run.CurrentLine;
    frame.Block = run.Block;
    BlockState& block = run.Block;
    block.LoopLine = -1;
    block.IfActive = block.IfTrue = false;
    block.CaseActive = block.CaseTrue = block.CaseHit = false;
    block.CaseValue = Value();
    run.CurrentLine = label->Line;
}

void EndSub(RunState& run, Arguments& in)
{
    if (!run.CheckNotInBlock() || !in.CheckShape())
        return;
    if (run.InLoop()) {
        run.FailAndStop("Can't have EndSub inside a Loop!");
        return;
    }
    if (!run.InSub) {
        run.FailAndStop("EndSub without Sub");
        return;
    }
    const SubFrame& frame = run.SubFrames[size_t(run.SubDepth)];
    run.CurrentLine = frame.ReturnLine;
    run.Block = frame.Block;
    if (--run.SubDepth == 0)
        run.InSub = false;
}

void ExitSub(RunState& run, Arguments&)
{
    if (!run.InSub) {
        run.FailAndStop("ExitSub without Sub");
        return;
    }
    ClearBlocks(run);
    SkipToEndSub(run);
}

void Stop(RunState& run, Arguments&)
{
    run.StopRequested = true;
}

void Break(RunState& run, Arguments&)
{
    if (run.TestRun)
        run.Stage.WantSteps(true);
}

constexpr CommandWord JumpRows[] = {
    {"label", Exactly(1), OwnFrame, "@NAME", "A place that gotolabel jumps to. Not inside an if, a case or a loop.",
     LabelLine},
    {"gotolabel", AtLeastAny(1), NoWordFlags, "@NAME",
     "Goes on behind the label. A jump leaves every if, case, loop and sub at once. The name may be a variable's "
     "value.",
     GotoLabel, PrepareJump},
    {"gotocodeline", ExactlyAny(1), NoWordFlags, "N",
     "Goes on with line N of the macro, counted from 0; leaves every block as gotolabel does.", GotoCodeLine},
    {"sub", Exactly(1), OwnFrame, "@NAME",
     "Begins a sub, which only gosub reaches. A macro that runs into one from above ends there.", Sub},
    {"gosub", Exactly(1), NoWordFlags, "@NAME",
     "Runs a sub and comes back. The sub has an if, a case and a loop of its own; subs may call each other 100 deep.",
     Gosub, PrepareJump},
    {"endsub", Exactly(0), OwnFrame, "", "Ends a sub: goes on behind the gosub that called it.", EndSub},
    {"exitsub", Exactly(0), NoWordFlags, "", "Leaves the sub at once.", ExitSub},
    {"stop", Exactly(0), NoWordFlags, "", "Ends the macro.", Stop},
    {"break", Exactly(0), NoWordFlags, "",
     "In a test run: from here on each line asks before it runs. Does nothing otherwise.", Break},
};

} // namespace

std::span<const CommandWord> JumpCommands()
{
    return JumpRows;
}
