#include "macro/set_file.h"
#include "frame/run_scope.h"
#include "macro/commands/families.h"
#include "macro/language/run_state.h"
#include "macro/language/run_turn.h"
#include "platform/files/paths.h"
#include "services/wildcard.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

void ForgetSetFile(RunState& run)
{
    run.Last.Folder.clear();
    run.Last.FileName.clear();
    run.Last.FileExtension.clear();
}

void SetFile(RunState& run, const QString& path)
{
    const QFileInfo file(path);
    run.Last.Folder = path;
    run.Last.FileName = file.fileName();
    run.Last.FileExtension = file.suffix();
}

void SetFolder(RunState& run, const QString& path)
{
    ForgetSetFile(run);
    run.Last.Folder = paths::Closed(path);
}

namespace {

void FileSet(RunState& run, Arguments& in)
{
    run.SetOutcome(false);
    ForgetSetFile(run);
    const QString told = in.Text(1);
    if (run.Failed())
        return;
    const QString path = run.Paths.Resolve(told);
    const QFileInfo found(path);
    if (path.isEmpty() || !found.exists()) {
        run.Fail(QStringLiteral("Couldn't find the file or folder:-^^") + told);
        return;
    }
    if (found.isDir())
        SetFolder(run, path);
    else
        SetFile(run, path);
    run.SetOutcome(true);
}

void Cd(RunState& run, Arguments& in)
{
    const QString told = in.Text(1);
    if (run.Failed())
        return;
    if (told == QLatin1String("..")) {
        run.Paths.SetFolder(QDir(run.Paths.Folder()).filePath(QStringLiteral("..")));
        return;
    }
    if (told == QLatin1String(".")) {
        run.Paths.SetFolder(paths::Root(run.Paths.Folder()));
        return;
    }
    const QString path = run.Paths.Resolve(told);
    if (!path.isEmpty() && QFileInfo(path).isDir())
        run.Paths.SetFolder(path);
    else
        run.Fail(QStringLiteral("Can't find the directory:-^^") + told);
}

/// Names in a folder that fit a pattern of "*" and "?", "*.*" being every name. None if the run is to stop meanwhile.
QStringList NamesThatFit(RunState& run, const QString& folder, const QString& pattern, QDir::Filters kinds)
{
    const CountedTurn turn = TurnOf(run, QStringLiteral("dir"));
    QStringList names;
    int seen = 0;
    for (QDirIterator entries(folder, kinds | QDir::Hidden | QDir::System); entries.hasNext();) {
        entries.next();
        if (FitsWildcard(entries.fileName(), pattern))
            names << entries.fileName();
        if (!turn(++seen, 0))
            return {};
    }
    names.sort();
    return names;
}

/// Folders first, with a "\" in front of all but "." and "..", then files. Without a hit the last result stays.
void DirCommand(RunState& run, Arguments& in)
{
    const QString pattern = in.Text(1);
    if (run.Failed())
        return;
    const QString told = paths::FolderOfPath(paths::Inside(pattern));
    const QString names = paths::FileNameOfPath(paths::Inside(pattern));
    const QString folder = told.isEmpty() ? run.Paths.Folder() : run.Paths.Resolve(told);
    QStringList found;
    for (const QString& name : NamesThatFit(run, folder, names, QDir::Dirs))
        found << (name == QLatin1String(".") || name == QLatin1String("..") ? name : QString(u'\\' + name));
    found += NamesThatFit(run, folder, names, QDir::Files);
    if (!found.isEmpty() && !run.Scope.Stopped())
        run.Last.Files = found;
}

void FileProtectionCommand(RunState& run, Arguments& in)
{
    const QString word = in.Written(1).toLower();
    if (word == QLatin1String("on") || word == QLatin1String("off"))
        run.FileProtection = word == QLatin1String("on");
    else
        run.Fail("FileProtection uses 'On' or 'Off'");
}

constexpr CommandWord SetFileRows[] = {
    {"fileset", Exactly(1), NoWordFlags, "PATH",
     "Sets the file or folder that the tags [lastdir...] and [lastfile...] tell of.", FileSet},
    {"cd", ExactlyAny(1), NoWordFlags, "PATH", "Changes the macro's current folder. .. goes one up, . to the root.",
     Cd},
    {"dir", ExactlyAny(1), TakesTime, "PATTERN",
     "Lists the current folder: [lastdircount] and [dir:N]. Folders come first, with a \\ in front.", DirCommand},
    {"fileprotection", Exactly(1), NoWordFlags, "on | off",
     "While it is on, as at the start, read-only files and files that exist are left alone, and clear asks.",
     FileProtectionCommand},
};

} // namespace

std::span<const CommandWord> SetFileCommands()
{
    return SetFileRows;
}
