#include "level/level_files.h"
#include "level/level_palette.h"
#include "level/level_viewer.h"
#include "macro/commands/families.h"
#include "macro/commands/level_condition.h"
#include "macro/language/run_state.h"
#include "macro/macro_ports.h"
#include "macro/run_stage.h"
#include "platform/files/paths.h"
#include "services/registry_store.h"

#include <QFile>

namespace {

/// The rectangle and the cancel of the person who has looked.
void TakeAnswer(RunState& run, RegistryStore& store)
{
    const Result<ViewAnswer> answer = TakeViewAnswer(store);
    if (!answer) {
        run.Fail(answer.error().Text());
        return;
    }
    if (answer->Cancelled)
        run.Last.MessageResult = Value(QStringLiteral("cancel"));
    if (answer->Box)
        run.Levels.Box = *answer->Box;
}

void RunViewer(RunState& run, const QString& path, const ViewRequest& request)
{
    if (!paths::FileExists(ViewerProgram())) {
        run.Fail("Can't find the Mapglass.exe! It should be in the same folder as the Gemforge.exe");
        return;
    }
    RegistryStore store(MacroWindows.RegistryFile);
    if (const Result<> asked = AskViewer(store, request); !asked) {
        run.Fail(asked.error().Text());
        return;
    }
    run.Stage.ShowTarget(true);
    const Result<> ran = MacroWindows.ViewLevel(ViewerProgram(), path);
    run.Stage.ShowTarget(false);
    if (ran)
        TakeAnswer(run, store);
    else
        run.Fail(ran.error().Text());
}

void ShowQuick(RunState& run, const QString& message)
{
    run.Stage.ShowTarget(true);
    MacroWindows.ShowMap(message, PaletteName(Level.CurrentLevelPath));
    run.Stage.ShowTarget(false);
}

void ShowMemory(RunState& run, const QString& message)
{
    const QString viewed = WorkingPath(ViewedLevel);
    if (const Result<> saved = SaveLevel(viewed, true); !saved)
        run.Fail(saved.error().Text());
    else
        RunViewer(run, viewed, {message, PaletteName(Level.CurrentLevelPath)});
    QFile::remove(viewed);
}

void ShowFile(RunState& run, const QString& told, const QString& message)
{
    const QString path = run.Paths.Resolve(told);
    if (paths::FileExists(path) && path.endsWith(QLatin1String(".level"), Qt::CaseInsensitive))
        RunViewer(run, path, {message, {}});
    else
        run.Fail(QStringLiteral("File doesn't exist or is not a level.^^") + told);
}

void LevShow(RunState& run, Arguments& in)
{
    const QString told = in.Text(1), message = in.Text(2);
    if (run.Failed())
        return;
    const QString word = told.toLower();
    const bool memory = word == QLatin1String("memory"), quick = word == QLatin1String("quick");
    if ((memory || quick) && !HasLevel())
        run.Fail("You need to use 'LevLoad $file' or 'LevLoad new' to view a level.");
    else if (!run.Stage.HasWindow() || !MacroWindows.ViewLevel || !MacroWindows.ShowMap)
        run.Fail("This command needs a window.");
    else if (quick)
        ShowQuick(run, message);
    else if (memory)
        ShowMemory(run, message);
    else
        ShowFile(run, told, message);
}

constexpr CommandWord LevelShowRows[] = {
    {"levshow", Exactly(2), TakesTime, "FILE|memory|quick MESSAGE",
     "Shows a level file or the open level in the viewer, where a person may draw a rectangle, which becomes the box, "
     "or "
     "cancel: then [lastmessageresult] is cancel. quick shows the open level's map alone.",
     LevShow},
};

} // namespace

std::span<const CommandWord> LevelShowCommands()
{
    return LevelShowRows;
}
