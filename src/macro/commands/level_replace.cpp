#include "level/level_record.h"
#include "level/map_replace.h"
#include "macro/commands/families.h"
#include "macro/commands/level_condition.h"
#include "macro/language/run_state.h"

namespace {

constexpr const char* MissingArgument = "Missing command or value in this line.";

/// What levreplace looks for: a value, or the items of a group.
CellValues FindValues(RunState& run, Arguments& in)
{
    const Value told = in.Raw(1);
    if (run.Failed() || !told.BeginsWith(u'?'))
        return CellValues(run.Failed() ? 0 : TextToLong(run, told));
    if (const Group* group = run.Groups.Find(told.Text()))
        return ValuesOf(*group);
    run.Fail(QStringLiteral("The Group ") + told.Text() + QStringLiteral(" doesn't exist."));
    return {};
}

std::vector<ReplaceTest> TestsOf(const LevelRun& levels)
{
    std::vector<ReplaceTest> tests;
    for (const auto& [dx, dy, condition] : levels.ReplaceTests)
        tests.push_back({dx, dy, condition.Unequal, condition.Of != nullptr, ValuesOf(condition)});
    return tests;
}

/// The whole map, or the box, which must lie in it.
LevelBox RangeOf(RunState& run, bool inBox)
{
    const LevelMap& map = Level.Map;
    const LevelBox whole{0, 0, map.Width() - 1, map.Height() - 1};
    const LevelBox box = run.Levels.Box.Sorted();
    if (!inBox)
        return whole;
    if (!map.Contains(box.X1, box.Y1) || !map.Contains(box.X2, box.Y2))
        run.Fail(QStringLiteral("LevReplace: the box went out of bounds.^^Map Width: 1-%1    Height: 1-%2")
                     .arg(map.Width())
                     .arg(map.Height()));
    return box;
}

void LevReplace(RunState& run, Arguments& in)
{
    if (!HasLevel()) {
        run.Fail(NoLevelToChange);
        return;
    }
    Replacing how;
    how.Find = FindValues(run, in);
    how.Value = in.Number(2);
    const bool inBox = in.Count() > 2;
    if (!run.Failed() && inBox && in.Word(3) != QLatin1String("box"))
        run.Fail("LevReplace uses the format:- 'find','replace' with the optional 'box'");
    if (run.Failed())
        return;
    const LevelBox range = RangeOf(run, inBox);
    if (run.Failed())
        return;
    how.Tests = TestsOf(run.Levels);
    const int frequency = run.Levels.ReplaceFrequency;
    constexpr int Percent = 100;
    how.Chance = [&run, frequency] { return frequency > 0 && frequency > run.Random.Between(0, Percent - 1); };
    ReplaceCells(Level.Map, range, how);
}

void LevReplaceFreq(RunState& run, Arguments& in)
{
    if (!HasLevel()) {
        run.Fail(NoLevelToChange);
        return;
    }
    constexpr int Always = 100;
    const qint32 percent = in.Number(1);
    if (run.Failed())
        return;
    const bool fine = percent >= 0 && percent <= Always;
    run.Levels.ReplaceFrequency = fine ? percent : Always;
    if (!fine)
        run.Fail("LevReplaceFreq uses 0 to 100%");
}

void AddTest(RunState& run, Arguments& in)
{
    LevelNeighbourTest test;
    test.Dx = in.Number(1);
    test.Dy = in.Number(2);
    if (!run.Failed())
        test.Condition = ReadCondition(run, in.Written(3));
    if (run.Failed())
        return;
    if (run.Levels.ReplaceTests.size() >= LevelRun::MostTests)
        run.Fail("You can only have 1000 tests for LevReplace!");
    else
        run.Levels.ReplaceTests.push_back(test);
}

void LevReplaceTest(RunState& run, Arguments& in)
{
    if (!HasLevel())
        run.Fail(NoLevelToChange);
    else if (in.Count() == 3)
        AddTest(run, in);
    else if (in.Count() == 1 && in.Word(1) == QLatin1String("cleartests"))
        run.Levels.ReplaceTests.clear();
    else if (!run.Failed())
        run.Fail(MissingArgument);
}

// The box that levbox and its like work on.

/// A coordinate from 1, stored from 0.
qint32 Corner(RunState& run, qint64 stored)
{
    if (stored < std::numeric_limits<qint32>::min() || stored > std::numeric_limits<qint32>::max())
        run.Fail(RangeMessage);
    return qint32(stored);
}

/// The far corner: a coordinate, or a length behind `letter`, counted from the near one.
qint32 FarCorner(RunState& run, Arguments& in, int index, QChar letter, qint32 near)
{
    const QString told = in.Shown(index).Text();
    if (run.Failed())
        return 0;
    if (!told.startsWith(letter, Qt::CaseInsensitive))
        return Corner(run, qint64(in.Number(index)) - 1);
    const Value length = EvaluateText(run, told.sliced(1));
    return run.Failed() ? 0 : Corner(run, qint64(near) + qMax(TextToLong(run, length), 1) - 1);
}

void SetLevelSize(RunState& run)
{
    if (HasLevel())
        run.Levels.Box = {0, 0, Level.Map.Width() - 1, Level.Map.Height() - 1};
    else
        run.Fail("You need to use 'LevLoad' or 'LevLoad new' to use SetPoint this way.");
}

void SetPoint(RunState& run, Arguments& in)
{
    if (in.Count() == 4) {
        LevelBox box;
        box.X1 = Corner(run, qint64(in.Number(1)) - 1);
        box.Y1 = Corner(run, qint64(in.Number(2)) - 1);
        box.X2 = FarCorner(run, in, 3, u'w', box.X1);
        box.Y2 = FarCorner(run, in, 4, u'h', box.Y1);
        if (!run.Failed())
            run.Levels.Box = box;
        return;
    }
    const QString word = in.Count() == 1 ? in.Word(1) : QString();
    if (run.Failed())
        return;
    if (word == QLatin1String("clearpoint"))
        run.Levels.Box = {};
    else if (word == QLatin1String("levelsize"))
        SetLevelSize(run);
    else
        run.Fail(MissingArgument);
}

constexpr CommandWord LevelReplaceRows[] = {
    {"setpoint",
     {1, 4, 0},
     NoWordFlags,
     "X1 Y1 X2|wN Y2|hN | levelsize | clearpoint",
     "Sets the box that the level commands work on. wN and hN are a width and a height instead of a corner; levelsize "
     "is the whole map.",
     SetPoint},
    {"levreplace",
     {2, 3, 0},
     NoWordFlags,
     "VALUE|?GROUP NEW [box]",
     "Replaces an element, or each of a group, in the whole map or in the box.",
     LevReplace},
    {"levreplacefreq", ExactlyAny(1), NoWordFlags, "PERCENT",
     "How many of the cells that levreplace finds it replaces, at random.", LevReplaceFreq},
    {"levreplacetest",
     {1, 3, 0},
     NoWordFlags,
     "DX DY CONDITION | cleartests",
     "From now on levreplace replaces a cell only if the one DX and DY beside it fits, for each such test. cleartests "
     "ends all.",
     LevReplaceTest},
};

} // namespace

std::span<const CommandWord> LevelReplaceCommands()
{
    return LevelReplaceRows;
}
