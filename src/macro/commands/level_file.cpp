#include "frame/files/file_commands.h"
#include "level/level_files.h"
#include "macro/commands/families.h"
#include "macro/commands/level_condition.h"
#include "macro/language/run_loop.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "platform/files/paths.h"

namespace {

constexpr const char* NoLevelToSave = "You need to use 'LevLoad' or 'LevLoad new' to save a level.";
constexpr const char* NoLevelForCustoms = "You need to use 'LevLoad' before saving any custom data.";

bool EndsIn(const QString& path, QLatin1StringView ending)
{
    return path.endsWith(ending, Qt::CaseInsensitive);
}

void FailWith(RunState& run, const Failure& failure)
{
    run.Fail(failure.Text());
}

/// A run without a window asks before each file that a level command writes.
bool MayWrite(RunState& run, Arguments& in)
{
    return run.Stage.HasWindow() || SystemSafeCheck(run, in.Line());
}

/// What stands under the name of the file that is about to be written, and is not the level's own, is kept.
paths::BeforeReplace BackupOf(const QString& path)
{
    if (!paths::FileExists(path) || paths::Canonical(path) == paths::Canonical(Level.CurrentLevelPath))
        return {};
    return [path]() -> Result<> { return MakeBackup(path).map([](const QString&) {}); };
}

void LevLoad(RunState& run, Arguments& in)
{
    const QString told = in.Text(1);
    if (run.Failed())
        return;
    const bool fresh = told.compare(QLatin1String("new"), Qt::CaseInsensitive) == 0;
    if (fresh)
        CloseLevel(); // with what stood after the former level's map
    const QString path = fresh ? WorkingPath(WorkingLevel) : run.Paths.Resolve(told);
    if (!fresh && (!paths::FileExists(path) || !EndsIn(path, QLatin1StringView(".level")))) {
        run.Fail(QStringLiteral("File doesn't exist or is not a level.^^") + told);
        return;
    }
    const Result<> loaded = fresh ? LoadNewLevel() : LoadLevel(path, false);
    if (loaded)
        Level.CurrentLevelPath = path;
    else
        FailWith(run, loaded.error());
}

void LevSave(RunState& run, Arguments& in)
{
    if (!HasLevel()) {
        run.Fail(NoLevelToSave);
        return;
    }
    const QString told = in.Text(1);
    if (run.Failed())
        return;
    const QString path = run.Paths.Resolve(told);
    if (!EndsIn(path, QLatin1StringView(".level"))) {
        run.Fail(QStringLiteral("LevSave only writes files that end in .level.^^") + told);
        return;
    }
    if (!MayWrite(run, in))
        return;
    const Result<> saved = SaveLevel(path, false, BackupOf(path));
    if (saved)
        Level.CurrentLevelPath.clear();
    else
        FailWith(run, saved.error());
}

/// The name of a file of custom elements, with its ending.
QString CustomFile(RunState& run, Arguments& in)
{
    if (!HasLevel()) {
        run.Fail(NoLevelForCustoms);
        return {};
    }
    const QString told = in.Text(1);
    return EndsIn(told, QLatin1StringView(".cust")) ? told : told + QStringLiteral(".cust");
}

void LevSaveCustoms(RunState& run, Arguments& in)
{
    const QString told = CustomFile(run, in);
    if (run.Failed())
        return;
    const Result<QByteArray> tail = LevelTail();
    if (tail && tail->isEmpty()) {
        run.Fail("The current level doesn't appear to have custom elememnts.");
        return;
    }
    if (!MayWrite(run, in))
        return;
    const QString path = run.Paths.Resolve(told);
    const Result<> saved =
        tail.and_then([&](const QByteArray& bytes) { return paths::WriteWhole(path, bytes, BackupOf(path)); });
    if (!saved)
        FailWith(run, saved.error());
}

void LevLoadCustoms(RunState& run, Arguments& in)
{
    const QString told = CustomFile(run, in);
    if (run.Failed())
        return;
    const QString path = run.Paths.Resolve(told);
    if (!paths::FileExists(path)) {
        run.Fail(QStringLiteral("The Custom file doesn't exist:-^^") + told);
        return;
    }
    Result<> taken = TestCustomFile(path);
    if (taken)
        taken = LoadLevelTail(path);
    if (!taken)
        FailWith(run, taken.error());
}

// What levset can set.

void SetText(RunState& run, Arguments& in, QString LevelInfo::*field)
{
    constexpr int LongestText = 32;
    const QString text = in.Text(2).left(LongestText);
    if (!run.Failed())
        Level.Info.*field = text;
}

/// A number within bounds; false after failing with `message` and the number.
bool SetNumber(RunState& run, Arguments& in, QString LevelInfo::*field, std::pair<int, int> bounds, const char* message)
{
    const qint32 number = in.Number(2);
    if (run.Failed())
        return false;
    if (number < bounds.first || number > bounds.second) {
        run.Fail(QString::fromLatin1(message) + QString::number(number));
        return false;
    }
    Level.Info.*field = QString::number(number);
    return true;
}

void SetBit(RunState& run, Arguments& in)
{
    const QString bit = in.Word(2);
    if (run.Failed())
        return;
    const bool narrow = bit == QLatin1String("2bit");
    if (!narrow && bit != QLatin1String("4bit")) {
        run.Fail("'LevSet Bit' only excepts 2bit or 4bit");
        return;
    }
    Level.Info.Double = narrow ? QStringLiteral("0") : QStringLiteral("1");
    ResizeLevelMap(narrow);
    if (CellBytes(Level.Info) == 1)
        RemoveLevelTail(); // a form that has no narrow maps keeps its own
}

constexpr std::pair<int, int> Sides{3, 128};

struct SettingRow
{
    const char* Key;
    void (*Set)(RunState&, Arguments&);
};
constexpr SettingRow Settings[] = {
    {"name", [](RunState& run, Arguments& in) { SetText(run, in, &LevelInfo::Cavename); }},
    {"author",
     [](RunState& run, Arguments& in) {
         if (Level.Info.Author != QLatin1String("NA") || Level.Offsets.Author != NoField)
             SetText(run, in, &LevelInfo::Author);
     }},
    {"time",
     [](RunState& run, Arguments& in) {
         SetNumber(run, in, &LevelInfo::Time, {0, 9999}, "Time is 0 (infinite) or 1 to 9999.^^Last time: ");
     }},
    {"count",
     [](RunState& run, Arguments& in) {
         SetNumber(run, in, &LevelInfo::Count, {0, 999}, "Emerald counts are 0 to 999.^^Last count: ");
     }},
    {"bit", SetBit},
    {"width",
     [](RunState& run, Arguments& in) {
         if (SetNumber(run, in, &LevelInfo::Width, Sides, "The width of an RND map is 3 to 128.^^Last width: "))
             ResizeLevelMap(false);
     }},
    {"height",
     [](RunState& run, Arguments& in) {
         if (SetNumber(run, in, &LevelInfo::Height, Sides, "The height of an RND map is 3 to 128.^^Last height: "))
             ResizeLevelMap(false);
     }},
};

void LevSet(RunState& run, Arguments& in)
{
    if (!HasLevel()) {
        run.Fail(NoLevelToChange);
        return;
    }
    const QString key = in.Word(1);
    for (const SettingRow& row : Settings)
        if (!run.Failed() && key == QLatin1String(row.Key))
            row.Set(run, in);
}

constexpr CommandWord LevelFileRows[] = {
    {"levload", Exactly(1), TakesTime, "FILE | new",
     "Opens a level of the game, or a blank one of 64 by 32. One is open at a time.", LevLoad},
    {"levsave", Exactly(1), TakesTime, "FILE",
     "Writes the open level to a file that ends in .level, and closes it. Another level of that name gets a backup.",
     LevSave},
    {"levset", ExactlyAny(2), NoWordFlags, "name|author|time|count|bit|width|height VALUE",
     "Changes a field of the open level. bit is 2bit (elements up to 255) or 4bit; width and height cut the map or add "
     "empty cells.",
     LevSet},
    {"levsavecustoms", Exactly(1), TakesTime, "FILE",
     "Writes the level's custom elements to a file that ends in .cust.", LevSaveCustoms},
    {"levloadcustoms", Exactly(1), TakesTime, "FILE",
     "Gives the open level the custom elements of a .cust file in place of its own.", LevLoadCustoms},
};

} // namespace

std::span<const CommandWord> LevelFileCommands()
{
    return LevelFileRows;
}
