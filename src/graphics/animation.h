#pragma once

#include <QtGlobal>
#include <functional>

/// How the preview plays the marked tiles of the sheet, tick by tick, the way the game will: rules only, on the block
/// in work and the sheet on show. The window draws.
struct AnimationState
{
    int CurrentFrame = 0;  ///< tile number now shown
    int FrameStep = 1;     ///< direction of the ping-pong modes
    int PlayDirection = 1; ///< -1: reverse
};
extern AnimationState Animation;
void ResetAnimation();

constexpr int DelayUnit = 22;   ///< milliseconds of the preview for one unit of delay
constexpr int StillDelay = 200; ///< from this delay on the preview stands still

/// A whole number from 0 to below its argument, each as likely.
using RandomBelow = std::function<int(int)>;

/// A slow run stands on its first tile at once; any other is brought there by its first tick.
bool BeginsAtOnce();

/// Puts CurrentFrame on the run's first tile or, as BeginsAtOnce tells, one in front of it.
void restartAnimation();

/// restartAnimation, and for a preview that stands still its random tile. Milliseconds between two ticks; 0: it
/// stands still.
int StartAnimation(const RandomBelow& random);

/// One tick. False: it draws nothing.
bool StepAnimation(const RandomBelow& random);

/// Which ticks are due on a clock: late calls lose none, so that a run keeps the time of the wall.
class TickClock
{
public:
    /// Times in milliseconds of one steady clock.
    void Start(qint64 now, int interval);
    int TicksDue(qint64 now); ///< since the last call
    qint64 NextTick() const { return begin + (counted + 1) * interval; }

private:
    qint64 begin = 0, counted = 0;
    int interval = 0;
};
