#include "frame/messages/asker.h"
#include "macro/commands/families.h"
#include "macro/language/outcome.h"
#include "macro/language/run_state.h"
#include "macro/language/run_turn.h"
#include "macro/language/seen_target.h"
#include "macro/macro_ports.h"
#include "macro/run_stage.h"
#include "platform/files/paths.h"
#include "services/archive_tool.h"

#include <QFileInfo>

namespace {

/// A failure of the macro's own archive, which stops the run: by its message, or with its text where nobody sees one.
void TellResource(RunState& run, const QString& name, const ResourceFailure& failure)
{
    constexpr std::pair<ResourceFault, message::Number> Messages[] = {
        {ResourceFault::NotFound, message::ResourceNotFound},
        {ResourceFault::NoOutputFolder, message::ResourceFolderMissing}};
    for (const auto& [fault, number] : Messages) {
        if (fault != failure.What)
            continue;
        if (!run.Stage.HasWindow()) {
            run.Fail(RecordOf(number, name).MessageText);
            return;
        }
        const SeenTarget seen(run);
        ShowMessage(number, name);
        run.RequestStop();
        return;
    }
    run.Fail(failure.Why.Text());
}

void ResUnpack(RunState& run, Arguments& in)
{
    const QString name = in.Text(1), told = in.Text(2);
    if (run.Failed())
        return;
    if (run.FileProtection && run.Paths.Exists(told)) {
        run.Fail(QStringLiteral("Couldn't unpack file:^^") + name + QStringLiteral("^^To:-^^") + told);
        return;
    }
    const auto done = ExtractFromResource(name, run.Paths.Resolve(told), run.MacroPath);
    if (!done)
        TellResource(run, name, done.error());
}

/// Works on an archive under its window.
void WorkOnArchive(RunState& run, ArchiveUse use, const ArchiveWork& work, const QString& fault)
{
    const SeenTarget seen(run);
    const Result<> done =
        run.Stage.HasWindow() && MacroWindows.UnderZipWindow
            ? MacroWindows.UnderZipWindow(use, work)
            : work(TurnOf(run, use == ArchiveUse::Zip ? QStringLiteral("zip") : QStringLiteral("unzip")));
    if (!done)
        TellFailure(run, done.error(), fault);
}

void Zip(RunState& run, Arguments& in)
{
    const QString file = in.Text(1), archive = in.Text(2);
    if (run.Failed())
        return;
    const QString from = run.Paths.Resolve(file), to = run.Paths.Resolve(archive);
    WorkOnArchive(
        run, ArchiveUse::Zip, [&](const CountedTurn& turn) { return ZipFiles(from, to, turn); },
        QStringLiteral("Zip error. Cant archive the file\\folder:-^^") + file + QStringLiteral("^^Into the zip:-^^") +
            archive);
}

void Unzip(RunState& run, Arguments& in)
{
    const QString pattern = in.Text(1), archive = in.Text(2), target = in.Text(3);
    if (run.Failed())
        return;
    const QString from = run.Paths.Resolve(archive), to = run.Paths.Resolve(target);
    const auto work = [&](const CountedTurn& turn) -> Result<> {
        if (!QFileInfo(to).isDir())
            return Fail(to, qt_error_string(ENOTDIR));
        return UnzipFiles(pattern, from, paths::Closed(to), turn);
    };
    WorkOnArchive(run, ArchiveUse::Unzip, work,
                  QStringLiteral("Zip error. Cant unpack the file\\folder:-^^") + pattern +
                      QStringLiteral("^^In the zip:-^^") + archive + QStringLiteral("^^To:-^^") + target);
}

void ZipList(RunState& run, Arguments& in)
{
    const QString archive = in.Text(1), title = in.Text(2);
    if (run.Failed())
        return;
    const Result<ArchiveList> entries = ListZip(run.Paths.Resolve(archive));
    if (!entries) {
        TellFailure(run, entries.error(), QStringLiteral("Error with the zip file: ") + archive);
        return;
    }
    run.ListTitle = title;
    const SeenTarget seen(run);
    std::optional<QString> chosen = AskText(ZipEntryQuestion{title, *entries});
    run.SetOutcome(chosen.has_value());
    if (!chosen)
        return;
    chosen->replace(u'/', u'\\');
    if (!chosen->contains(u'.'))
        *chosen += u'\\';
    run.Last.FileInZip = Value(*chosen);
}

constexpr CommandWord ArchiveRows[] = {
    {"resunpack", Exactly(2), SafeGate | TakesTime, "NAME TARGET",
     "Unpacks a resource of the macro as the file TARGET; over one that exists only without file protection.",
     ResUnpack},
    {"zip", ExactlyAny(2), SafeGate | TakesTime, "PATH ARCHIVE", "Adds a file or a folder to a zip archive.", Zip},
    {"unzip", ExactlyAny(3), SafeGate | TakesTime, "PATTERN ARCHIVE TARGET",
     "Unpacks files that fit the pattern into a folder; a pattern that ends with \\ means a folder with all in it.",
     Unzip},
    {"ziplist", ExactlyAny(2), SafeGate | TakesTime, "ARCHIVE TITLE",
     "Lets a person choose an entry of a zip archive: [lastfileinzip]. [lastmessageresult] is ok or cancel.", ZipList},
};

} // namespace

std::span<const CommandWord> ArchiveCommands()
{
    return ArchiveRows;
}
