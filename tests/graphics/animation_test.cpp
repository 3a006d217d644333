#include "graphics/animation.h"

#include "sheet_scope.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace {

int First(int below)
{
    EXPECT_GT(below, 0);
    return 0;
}

struct Played
{
    const char* Mode;
    int Frames, StartFrame, Direction, Delay;
    const char* Tiles; ///< what each tick shows, from tile 10; "." for a tick that draws nothing
};

QString Play(const Played& played, int ticks)
{
    Conf.Element.XPos = 2;
    Conf.Element.YPos = 2; // tile 10 of 4 columns
    Conf.Element.Frames = played.Frames;
    Conf.Element.StartFrame = played.StartFrame;
    Conf.Element.Delay = played.Delay;
    Conf.Element.AnimMode = QString::fromLatin1(played.Mode);
    Animation.PlayDirection = played.Direction;
    StartAnimation(First);
    QStringList shown;
    for (int tick = 0; tick < ticks; ++tick)
        shown += StepAnimation(First) ? QString::number(Animation.CurrentFrame - 10) : QStringLiteral(".");
    return shown.join(QLatin1Char(' '));
}

} // namespace

// Catches: a run that begins or turns a tile too early or too late, a mode of the game that freezes.
TEST(Animation, StepsAsTheGameDoes)
{
    SheetScope scope(4, 8);
    const Played table[] = {
        {"none", 3, -1, 1, 1, "0 0 0 0 0 0 0 0"},        {"loop", 3, -1, 1, 1, "0 1 2 0 1 2 0 1"},
        {"loop", 3, -1, -1, 1, "2 1 0 2 1 0 2 1"},       {"loop", 6, 3, 1, 1, "3 4 5 0 1 2 3 4"},
        {"loop", 4, 2, -1, 1, "2 1 0 3 2 1 0 3"},        {"linear", 3, -1, 1, 1, "0 1 2 2 2 2 2 2"},
        {"linear", 3, -1, -1, 1, "2 1 0 0 0 0 0 0"},     {"pingpong", 3, -1, 1, 1, "0 1 2 1 0 1 2 1"},
        {"pingpong", 3, -1, -1, 1, "2 1 0 1 2 1 0 1"},   {"pingpong2", 3, -1, 1, 1, "0 1 2 . 2 1 0 ."},
        {"pingpong", 1, -1, 1, 1, "0 0 0 0 0 0 0 0"},    {"pingpong2", 1, -1, 1, 1, "0 0 0 0 0 0 0 0"},
        {"random", 3, -1, 1, 1, "0 0 0 0 0 0 0 0"},      {"once", 3, -1, 1, 1, "0 1 2 0 1 2 0 1"},
        {"linear,once", 3, -1, 1, 1, "0 1 2 2 2 2 2 2"}, {"loop", 3, -1, 1, 100, "1 2 0 1 2 0 1 2"},
        {"pingpong", 1, -1, 1, 100, "0 0 0 0 0 0 0 0"},
    };
    for (const Played& played : table)
        EXPECT_EQ(Play(played, 8), QLatin1StringView(played.Tiles)) << played.Mode << " x " << played.Frames;
}

// Catches: a tile number below the sheet when a run steps back in front of the first tile.
TEST(Animation, NeverStepsInFrontOfTheSheet)
{
    SheetScope scope(4, 2);
    Conf.Element.Frames = 2;
    Conf.Element.AnimMode = QStringLiteral("pingpong2");
    StartAnimation(First);
    for (int tick = 0; tick < 12; ++tick) {
        StepAnimation(First);
        EXPECT_GE(Animation.CurrentFrame, 0);
    }
}

// Catches: a still preview that ticks, one that shows no random tile, bounds of the delay off by one.
TEST(Animation, StandsStillFromDelay200)
{
    SheetScope scope(4, 2);
    Conf.Element.Frames = 4;
    const std::pair<int, int> intervals[] = {{0, 0}, {1, 22}, {199, 4378}, {200, 0}, {32767, 0}};
    for (const auto& [delay, interval] : intervals) {
        Conf.Element.Delay = delay;
        EXPECT_EQ(StartAnimation(First), interval) << delay;
        EXPECT_EQ(Animation.CurrentFrame, delay == 1 ? -1 : 0) << "only ticks step in from the front; delay " << delay;
    }
    Conf.Element.AnimMode = QStringLiteral("random");
    StartAnimation([](int below) { return below - 1; });
    EXPECT_EQ(Animation.CurrentFrame, 3);
}

// Catches: ticks lost or doubled when the window was late, a drift that grows with the run.
TEST(TickClock, KeepsTheTimeOfTheWallAtEveryDelay)
{
    for (int delay = 1; delay < StillDelay; ++delay) {
        TickClock clock;
        clock.Start(1000, delay * DelayUnit);
        qint64 shown = 0;
        for (qint64 now = 1000, late = 0; now <= 61000; late = (late + 7) % 40, now = clock.NextTick() + late) {
            const int due = clock.TicksDue(now);
            ASSERT_GE(due, 0);
            shown += due;
            ASSERT_EQ(shown, (now - 1000) / (delay * DelayUnit)) << "delay " << delay << " at " << now;
        }
    }
}
