#include "macro/commands/families.h"
#include "macro/language/run_state.h"

#include <limits>

namespace {

/// A distance that must fit into 32 bits; fails if it does not.
int Fitting(RunState& run, qint64 number)
{
    constexpr std::numeric_limits<qint32> limits;
    if (number >= limits.min() && number <= limits.max())
        return int(number);
    run.Fail(RangeMessage);
    return 0;
}

/// The body runs once more than the distance from start to end, divided by the step.
void Loop(RunState& run, Arguments& in)
{
    if (run.InLoop()) {
        run.Fail("Can't embed Loops inside Loops! If you need a loop in a loop then gosub to a sub, which can contain "
                 "another loop");
        return;
    }
    if (!run.BranchIsLive() || !in.CheckShape())
        return;
    if (in.Count() == 0) {
        run.Fail("Missing command or value in this line.");
        return;
    }
    const qint64 first = in.Number(1);
    const bool both = in.Count() > 1;
    const qint64 start = both ? first : 0, end = both ? in.Number(2) : first;
    constexpr int WithStep = 3;
    const int step = in.Count() == WithStep ? in.Number(3) : 1;
    const int remaining = Fitting(run, qAbs(end - start));
    const int limit = Fitting(run, start > end ? -end : start < end ? remaining + start : start);
    if (run.Failed())
        return;
    run.Block.LoopStep = step ? step : 1;
    run.Block.LoopRemaining = remaining;
    run.Block.LoopLimit = limit;
    run.Block.LoopLine = run.CurrentLine;
}

void RunEndLoop(RunState& run, ProgramLine&)
{
    if (!run.BranchIsLive())
        return;
    BlockState& block = run.Block;
    if (!run.InLoop()) {
        run.Fail("EndLoop without Loop");
        return;
    }
    const int remaining = Fitting(run, qint64(block.LoopRemaining) - block.LoopStep);
    if (run.Failed())
        return;
    block.LoopRemaining = remaining;
    if (remaining < 0)
        block.LoopLine = block.LoopRemaining = -1;
    else
        run.CurrentLine = block.LoopLine;
}

/// A line of the wrong shape never comes here, all others run as RunEndLoop.
void EndLoop(RunState&, Arguments&) {}

/// The rest of the body still runs.
void ExitLoop(RunState& run, Arguments&)
{
    BlockState& block = run.Block;
    if (!run.InLoop()) {
        run.Fail("ExitLoop without Loop");
        return;
    }
    block.LoopLimit = block.LoopRemaining;
    block.LoopRemaining = 0;
    block.LoopStep = 1; // a negative one would go on for ever
}

constexpr CommandWord LoopRows[] = {
    {"loop", AtLeastAny(0), OwnFrame, "[START] END [STEP]",
     "Repeats the lines up to endloop, with [loopnumber] from START (0 if not given) to END. One loop cannot lie in "
     "another; a sub can hold the inner one.",
     Loop},
    {"endloop", Exactly(0), NoWordFlags, "", "Ends a loop's body.", EndLoop, PrepareDirect<RunEndLoop>},
    {"exitloop", Exactly(0), NoWordFlags, "", "Makes this the loop's last round; the rest of the body still runs.",
     ExitLoop},
};

} // namespace

std::span<const CommandWord> LoopCommands()
{
    return LoopRows;
}
