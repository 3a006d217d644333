#include "macro/commands/families.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"

namespace {

void ProgBarSet(RunState& run, Arguments& in)
{
    if (in.Written(1).compare(QLatin1String("off"), Qt::CaseInsensitive) == 0) {
        run.Stage.Bar().Hide();
        return;
    }
    const qint32 maximum = in.Number(1);
    if (!run.Failed())
        run.Stage.Bar().Show(qMax(maximum, 1));
}

void ProgBarSetVal(RunState& run, Arguments& in)
{
    const qint32 value = in.Number(1);
    ProgressBarPort& bar = run.Stage.Bar();
    if (!run.Failed())
        bar.SetValue(qMin(qMax(value, 1), qMax(bar.Maximum(), 1)));
}

constexpr CommandWord ProgressRows[] = {
    {"progbarset", ExactlyAny(1), NoWordFlags, "MAXIMUM | off", "Shows the progress bar, or hides it.", ProgBarSet},
    {"progbarsetval", ExactlyAny(1), NoWordFlags, "VALUE", "Moves the progress bar.", ProgBarSetVal},
};

} // namespace

std::span<const CommandWord> ProgressCommands()
{
    return ProgressRows;
}
