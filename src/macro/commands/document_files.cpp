#include "macro/commands/families.h"
#include "macro/language/close_changed.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "platform/files/paths.h"
#include "text/document_text.h"

#include <QFileInfo>
#include <algorithm>

namespace {

/// False, and the run has failed, for a file that is no text by its ending.
bool CheckTextEnding(RunState& run, const QString& told)
{
    constexpr const char* Endings[] = {"conf", "txt", "ini", "me", "now", "doc", "lsm", "bat", "vbs", "wsh", "c", "h"};
    const QString ending = QFileInfo(paths::Inside(told)).suffix().toLower();
    const bool known = std::any_of(std::begin(Endings), std::end(Endings),
                                   [&](const char* one) { return ending == QLatin1String(one); });
    if (!known)
        run.Fail(QStringLiteral("FileLoad can only work with text type files:-^^") + told);
    return known;
}

/// What stands before a file's text may come in. The file's path; empty: the run has failed.
QString FileToTake(RunState& run, Arguments& in)
{
    const QString told = in.Text(1);
    if (run.Failed())
        return {};
    const QString path = run.Paths.Resolve(told);
    if (!paths::FileExists(path)) {
        run.Fail(QStringLiteral("File doen't exist:-^^") + told);
        return {};
    }
    return CheckTextEnding(run, told) && ConfirmCloseChanged(run) ? path : QString();
}

void OpenFileLoad(RunState& run, Arguments& in)
{
    const QString path = FileToTake(run, in);
    if (path.isEmpty())
        return;
    if (const Result<> opened = run.Text().OpenFile(path))
        run.Stage.TextCameFrom(path);
    else
        run.Fail(opened.error().Text());
}

void OpenFileInsert(RunState& run, Arguments& in)
{
    const QString path = FileToTake(run, in);
    if (path.isEmpty())
        return;
    if (const Result<> inserted = run.Text().InsertFile(path, run.Text().GetSel(true)); !inserted)
        run.Fail(inserted.error().Text());
}

void OpenFileSave(RunState& run, Arguments& in)
{
    const QString told = in.Text(1);
    if (run.Failed() || !CheckTextEnding(run, told))
        return;
    if (const Result<> saved = run.Stage.SaveTarget(run.Paths.Resolve(told)); !saved)
        run.Fail(saved.error().Text());
}

constexpr CommandWord DocumentFileRows[] = {
    {"openfileload", Exactly(1), SafeGate | TakesTime, "PATH", "Puts a file's text in the place of the document's.",
     OpenFileLoad},
    {"openfileinsert", Exactly(1), SafeGate | TakesTime, "PATH", "Inserts a file's text at the selection.",
     OpenFileInsert},
    {"openfilesave", Exactly(1), SafeGate | TakesTime, "PATH", "Saves the document under this path.", OpenFileSave},
};

} // namespace

std::span<const CommandWord> DocumentFileCommands()
{
    return DocumentFileRows;
}
