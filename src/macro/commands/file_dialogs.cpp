#include "frame/messages/asker.h"
#include "macro/commands/families.h"
#include "macro/language/run_state.h"
#include "macro/language/seen_target.h"
#include "macro/set_file.h"

namespace {

/// A filter of one entry: "Files (*.txt)|*.txt|".
QString FilterOf(const QString& pattern)
{
    return QStringLiteral("Files (%1)|%1|").arg(pattern);
}

void AskForFile(RunState& run, Arguments& in, FileQuestion::Use use)
{
    const QString pattern = in.Text(1), title = in.Text(2);
    if (run.Failed())
        return;
    ForgetSetFile(run);
    run.SetOutcome(false);
    const SeenTarget seen(run);
    const auto chosen = AskText(FileQuestion{use, title, FilterOf(pattern), run.Paths.Folder(), {}});
    if (!chosen)
        return;
    SetFile(run, run.Paths.Resolve(*chosen));
    run.SetOutcome(true);
}

void AskLoad(RunState& run, Arguments& in)
{
    AskForFile(run, in, FileQuestion::Open);
}

void AskSave(RunState& run, Arguments& in)
{
    AskForFile(run, in, FileQuestion::Save);
}

void AskDir(RunState& run, Arguments& in)
{
    const QString title = in.Text(1);
    if (run.Failed())
        return;
    ForgetSetFile(run);
    run.SetOutcome(false);
    const SeenTarget seen(run);
    const auto chosen = AskText(FolderQuestion{title, run.Paths.Folder()});
    if (!chosen)
        return;
    SetFolder(run, run.Paths.Resolve(*chosen));
    run.SetOutcome(true);
}

constexpr CommandWord FileDialogRows[] = {
    {"askload", Exactly(2), TakesTime, "PATTERN TITLE",
     "Lets a person choose a file, which is then set. [lastmessageresult] is ok or cancel.", AskLoad},
    {"asksave", Exactly(2), TakesTime, "PATTERN TITLE",
     "Lets a person name a file to save, which is then set. [lastmessageresult] is ok or cancel.", AskSave},
    {"askdir", Exactly(1), TakesTime, "TITLE",
     "Lets a person choose a folder, which is then set. [lastmessageresult] is ok or cancel.", AskDir},
};

} // namespace

std::span<const CommandWord> FileDialogCommands()
{
    return FileDialogRows;
}
