#include "graphics/animation.h"

#include "conf/element_record.h"
#include "graphics/sheet.h"

#include <QLatin1StringView>
#include <array>

AnimationState Animation;

void ResetAnimation()
{
    Animation = AnimationState{};
}

namespace {

/// From this delay on the first tile is shown at once and not by the first tick.
constexpr int SlowDelay = 100;

struct Run
{
    int Base, Last, Frames;
};

bool StandOnBase(const Run& run)
{
    Animation.CurrentFrame = run.Base;
    return true;
}

bool Loop(const Run& run)
{
    int& tile = Animation.CurrentFrame;
    tile += Animation.PlayDirection;
    if (Animation.PlayDirection > 0 && tile > run.Last)
        tile = run.Base;
    else if (Animation.PlayDirection < 0 && tile < run.Base)
        tile = run.Last;
    return true;
}

bool Linear(const Run& run)
{
    int& tile = Animation.CurrentFrame;
    if (Animation.PlayDirection > 0 ? tile < run.Last : tile > run.Base)
        tile += Animation.PlayDirection;
    return true;
}

/// Turns when it has stepped onto the tile before `low` + 1 or past `high` - 1. True: it turned.
bool StepAndTurn(int low, int high)
{
    AnimationState& state = Animation;
    state.CurrentFrame += state.FrameStep;
    const bool turns = state.FrameStep > 0 ? state.CurrentFrame >= high : state.CurrentFrame <= low;
    if (turns)
        state.FrameStep = -state.FrameStep;
    return turns;
}

bool PingPong(const Run& run)
{
    if (run.Frames >= 2)
        StepAndTurn(run.Base, run.Last);
    return true;
}

/// Turns one tile outside the run and does not draw there, so that the end tiles hold for two ticks.
bool PingPong2(const Run& run)
{
    return run.Frames < 2 || !StepAndTurn(run.Base - 1, run.Last + 1);
}

struct Mode
{
    QLatin1StringView Name;
    bool (*Step)(const Run& run);
};

constexpr QLatin1StringView Random("random");

// A mode of the game that is not in here plays as a loop. Words after a comma ("linear,once") are left out.
constexpr std::array Modes = {
    Mode{QLatin1StringView("none"), StandOnBase},    Mode{QLatin1StringView("loop"), Loop},
    Mode{QLatin1StringView("linear"), Linear},       Mode{QLatin1StringView("pingpong"), PingPong},
    Mode{QLatin1StringView("pingpong2"), PingPong2},
};

auto StepOf(const QString& name)
{
    const QStringView word = QStringView(name).left(name.indexOf(QLatin1Char(',')));
    for (const Mode& mode : Modes)
        if (word == mode.Name)
            return mode.Step;
    return Loop;
}

Run CurrentRun()
{
    const int base = BaseTile();
    return {base, base + Conf.Element.Frames - 1, Conf.Element.Frames};
}

} // namespace

bool BeginsAtOnce()
{
    return Conf.Element.Delay >= SlowDelay || Conf.Element.Delay <= 0; // without a delay no tick ever comes
}

void restartAnimation()
{
    const ElementRecord& element = Conf.Element;
    AnimationState& state = Animation;
    const int first = element.StartFrame != -1 ? element.StartFrame : state.PlayDirection > 0 ? 0 : element.Frames - 1;
    state.FrameStep = state.PlayDirection;
    state.CurrentFrame = BaseTile() + first - state.FrameStep;
    const bool standsOnOne = element.AnimMode.startsWith(QLatin1StringView("ping")) && element.Frames == 1;
    if (BeginsAtOnce() || standsOnOne)
        state.CurrentFrame += state.FrameStep;
}

int StartAnimation(const RandomBelow& random)
{
    restartAnimation();
    const ElementRecord& element = Conf.Element;
    if (element.Delay > 0 && element.Delay < StillDelay)
        return element.Delay * DelayUnit;
    if (element.AnimMode == Random)
        Animation.CurrentFrame = BaseTile() + random(element.Frames);
    return 0;
}

bool StepAnimation(const RandomBelow& random)
{
    const Run run = CurrentRun();
    bool draws = true;
    if (Conf.Element.AnimMode == Random)
        Animation.CurrentFrame = run.Base + random(run.Frames);
    else
        draws = StepOf(Conf.Element.AnimMode)(run);
    Animation.CurrentFrame = qMax(0, Animation.CurrentFrame);
    return draws;
}

void TickClock::Start(qint64 now, int newInterval)
{
    begin = now;
    counted = 0;
    interval = newInterval;
}

int TickClock::TicksDue(qint64 now)
{
    if (interval <= 0)
        return 0;
    const qint64 all = (now - begin) / interval;
    const int due = int(all - counted);
    counted = all;
    return due;
}
