#include "level/level_record.h"
#include "level/map_painting.h"
#include "macro/commands/families.h"
#include "macro/commands/level_condition.h"
#include "macro/language/run_state.h"

namespace {

/// A command that changes the open level's map.
template <void (*Command)(RunState&, Arguments&)>
void OnLevel(RunState& run, Arguments& in)
{
    if (HasLevel())
        Command(run, in);
    else
        run.Fail(NoLevelToChange);
}

/// A place in the map from 0, as a macro tells it from 1.
struct MapPlace
{
    qint64 X, Y;

    bool InMap() const { return X >= 0 && X < Level.Map.Width() && Y >= 0 && Y < Level.Map.Height(); }
};

void LevPoke(RunState& run, Arguments& in)
{
    if (!HasLevel()) {
        run.Fail(NoLevelLoaded);
        return;
    }
    constexpr qint32 LargestByte = 255, LargestCell = 65535;
    const qint32 value = in.Number(1);
    const qint64 x = in.Number(2), y = in.Number(3);
    if (run.Failed())
        return;
    if (CellBytes(Level.Info) == 1 && value > LargestByte)
        run.Fail(
            "You can't poke a value greater than 255 if a level uses 2bit mode. Use 'LevSet bit 4bit' to do this.");
    else if (value < 0 || value > LargestCell)
        run.Fail(QStringLiteral("A 4bit poke range is 0 to 65535 ($FFFF)^^Last poke: %1").arg(value));
    else if (const MapPlace place{x - 1, y - 1}; place.InMap())
        Level.Map.At(int(place.X), int(place.Y)) = value;
}

void LevClear(RunState&, Arguments&)
{
    std::fill(Level.Map.Cells().begin(), Level.Map.Cells().end(), 0);
}

template <LevelMap (*Turned)(const LevelMap&)>
void Turn(RunState&, Arguments&)
{
    Level.Map = Turned(Level.Map);
}

void LevRotate(RunState&, Arguments&)
{
    Level.Map = Rotated(Level.Map);
    std::swap(Level.Info.Width, Level.Info.Height);
}

/// The condition in an argument that need not be there.
CellTest OptionalTest(RunState& run, Arguments& in, int index)
{
    return in.Count() < index ? CellTest() : TestOf(ReadCondition(run, in.Written(index)));
}

void LevCopy(RunState& run, Arguments& in)
{
    constexpr qint64 LargestClip = qint64(1) << 22;
    const LevelBox& box = run.Levels.Box;
    const CellTest test = OptionalTest(run, in, 1);
    if (run.Failed())
        return;
    if (box.Width() > LargestClip || box.Height() > LargestClip || box.Width() * box.Height() > LargestClip)
        run.Fail(QStringLiteral("LevCopy: the box is too large.^^Width: %1    Height: %2")
                     .arg(box.Width())
                     .arg(box.Height()));
    else
        Level.LevelClip = CopyCells(Level.Map, box, test);
}

void LevPaste(RunState& run, Arguments& in)
{
    const qint64 x = in.Number(1), y = in.Number(2);
    const CellTest test = run.Failed() ? CellTest() : OptionalTest(run, in, 3);
    constexpr qint64 Lowest = std::numeric_limits<qint32>::min();
    if (!run.Failed() && x > Lowest && y > Lowest)
        PasteCells(Level.Map, Level.LevelClip, qint32(x - 1), qint32(y - 1), test);
}

void LevFill(RunState& run, Arguments& in)
{
    const qint64 x = in.Number(1), y = in.Number(2);
    const qint32 value = in.Number(3);
    if (run.Failed())
        return;
    if (const MapPlace place{x - 1, y - 1}; place.InMap())
        FillCells(Level.Map, int(place.X), int(place.Y), value);
    else
        run.Fail(QStringLiteral("LevFlood went out of bounds.^^Map Width: 1-%1    Height: 1-%2^^Last Flood:    X:%3    "
                                "Y:%4")
                     .arg(Level.Map.Width() - 1)
                     .arg(Level.Map.Height() - 1)
                     .arg(x)
                     .arg(y));
}

/// A value and what may stand behind it, in any order.
struct Brush
{
    qint32 Cell = 0;
    CellTest Test;
    std::optional<qint32> Inside;
};

Brush ReadBrush(RunState& run, Arguments& in)
{
    Brush brush;
    brush.Cell = in.Number(1);
    for (int i = 2; i <= in.Count() && !run.Failed(); ++i) {
        if (IsCondition(in.Written(i)))
            brush.Test = TestOf(ReadCondition(run, in.Written(i)));
        else if (const qint32 value = in.Number(i); value != NoCell)
            brush.Inside = value;
        else
            brush.Inside.reset();
    }
    return brush;
}

void LevBox(RunState& run, Arguments& in)
{
    const Brush brush = ReadBrush(run, in);
    if (!run.Failed())
        PaintBox(Level.Map, run.Levels.Box, brush.Cell, brush.Test, brush.Inside);
}

void LevCircle(RunState& run, Arguments& in)
{
    const Brush brush = ReadBrush(run, in);
    if (!run.Failed())
        PaintCircle(Level.Map, run.Levels.Box, brush.Cell, brush.Test);
}

void LevLine(RunState& run, Arguments& in)
{
    const qint32 value = in.Number(1);
    const CellTest test = run.Failed() ? CellTest() : OptionalTest(run, in, 2);
    if (!run.Failed())
        PaintLine(Level.Map, run.Levels.Box, value, test);
}

void LevCount(RunState& run, Arguments& in)
{
    LevelCondition condition = ReadCondition(run, in.Written(1));
    if (run.Failed())
        return;
    condition.Unequal = condition.Unequal && !condition.Of; // of a group its members are counted either way
    const CellTest test(ValuesOf(condition), condition.Unequal);
    const std::vector<qint32>& cells = Level.Map.Cells();
    run.Levels.LastLevelCount =
        qint32(std::count_if(cells.begin(), cells.end(), [&test](qint32 cell) { return test.Passes(cell); }));
}

constexpr CommandWord LevelPaintRows[] = {
    {"levpoke", ExactlyAny(3), NoWordFlags, "VALUE X Y", "Puts an element into a cell of the map, counted from 1.",
     LevPoke},
    {"levclear", ExactlyAny(0), NoWordFlags, "", "Empties every cell.", OnLevel<LevClear>},
    {"levflip", ExactlyAny(0), NoWordFlags, "", "Turns the map top to bottom.", OnLevel<Turn<Flipped>>},
    {"levmirror", ExactlyAny(0), NoWordFlags, "", "Turns the map left to right.", OnLevel<Turn<Mirrored>>},
    {"levrotate", ExactlyAny(0), NoWordFlags, "", "Turns the map by a quarter anticlockwise.", OnLevel<LevRotate>},
    {"levcopy",
     {0, 1, 0},
     NoWordFlags,
     "[CONDITION]",
     "Copies the cells of the box. A CONDITION is ==VALUE, <>VALUE, ==?GROUP or <>?GROUP; cells that it leaves out are "
     "not pasted.",
     OnLevel<LevCopy>},
    {"levpaste",
     {2, 3, 0},
     NoWordFlags,
     "X Y [CONDITION]",
     "Lays what levcopy has copied on the map. Cells that the condition leaves out stay as they are.",
     OnLevel<LevPaste>},
    {"levfill", ExactlyAny(3), NoWordFlags, "X Y VALUE",
     "Fills the cell and all that hang together with it and hold the same.", OnLevel<LevFill>},
    {"levbox",
     {1, 3, 0},
     NoWordFlags,
     "VALUE [CONDITION] [FILL]",
     "Draws the outline of the box, and fills it with FILL.",
     OnLevel<LevBox>},
    {"levcircle",
     {1, 3, 0},
     NoWordFlags,
     "VALUE [CONDITION]",
     "Draws a circle around the first corner of the box; its two radii are the second one, less 1.",
     OnLevel<LevCircle>},
    {"levline",
     {1, 2, 0},
     NoWordFlags,
     "VALUE [CONDITION]",
     "Draws a line between the corners of the box.",
     OnLevel<LevLine>},
    {"levcount", ExactlyAny(1), NoWordFlags, "CONDITION",
     "Counts the cells that a condition fits, of a group always its members: [lastlevcount].", OnLevel<LevCount>},
};

} // namespace

std::span<const CommandWord> LevelPaintCommands()
{
    return LevelPaintRows;
}
