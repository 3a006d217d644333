#include "macro/language/run_turn.h"

#include "frame/run_scope.h"
#include "macro/language/run_state.h"

CountedTurn TurnOf(RunState& run, const QString& command)
{
    return [&run, command](int done, int of) {
        constexpr int Often = 64; // a detail is only looked at now and then
        if (done % Often == 0)
            run.Scope.SetDetail(
                of == 0 ? QStringLiteral("line %1: %2 %3").arg(run.CurrentLine).arg(command).arg(done)
                        : QStringLiteral("line %1: %2 %3/%4").arg(run.CurrentLine).arg(command).arg(done).arg(of));
        return run.Scope.Turn();
    };
}
