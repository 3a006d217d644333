#include "frame/frame_state.h"
#include "macro/commands/families.h"
#include "macro/language/outcome.h"
#include "macro/language/run_state.h"
#include "macro/language/run_turn.h"
#include "platform/files/file_attributes.h"
#include "platform/files/paths.h"
#include "services/fso.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr const char* NoFile = "File doesn't exist or is a system file:-^^";
constexpr const char* NoFolder = "Folder doesn't exist or is a system folder:-^^";

void TellOutcome(RunState& run, const Result<>& done, const char* text, const QString& told)
{
    if (!done)
        TellFailure(run, done.error(), QLatin1String(text) + told);
}

void TellOutcome(RunState& run, const Result<>& done, const char* text, const QString& from, const QString& to)
{
    TellOutcome(run, done, text, QString(from + QStringLiteral("^^To:-^^") + to));
}

/// Folders that no macro removes or moves, nor one that they lie in.
bool IsProtected(const QString& path)
{
    const QString real = paths::Closed(paths::Canonical(path));
    for (const QString& kept : {QDir::rootPath(), QDir::homePath(), Frame.ProgramFolder})
        if (!kept.isEmpty() && paths::Closed(paths::Canonical(kept)).startsWith(real))
            return true;
    return false;
}

/// May a read-only file or folder be moved?
Result<> CheckUnlocked(const RunState& run, const QString& path)
{
    if (run.FileProtection && (AttributesOf(path) & AttributeReadOnly))
        return Fail(path, QStringLiteral("It is read-only."));
    return {};
}

void FileKill(RunState& run, Arguments& in)
{
    const QString told = in.Text(1);
    if (run.Failed())
        return;
    const QString path = run.Paths.ResolveToRemove(told);
    if (QFileInfo(path).isDir())
        run.Fail("The file you are trying to delete is a directory. Use DirKill to delete directories");
    else if (path.isEmpty() || !paths::FileExists(path))
        run.Fail(QLatin1String(NoFile) + told);
    else
        TellOutcome(run, fso::DeleteFile(path, !run.FileProtection), "Couldn't delete the file:-^^", told);
}

void DirKill(RunState& run, Arguments& in)
{
    const QString told = in.Text(1);
    if (run.Failed())
        return;
    const QString path = run.Paths.ResolveToRemove(told);
    if (QFileInfo(path).isFile()) {
        run.Fail("This is a file. Use FileKill to delete files");
    } else if (path.isEmpty() || IsProtected(path) || !QFileInfo(path).isDir()) {
        run.Fail(QLatin1String(NoFolder) + told);
    } else {
        const Result<> done = fso::DeleteFolder(path, !run.FileProtection, TurnOf(run, QStringLiteral("dirkill")));
        TellOutcome(run, done, "Couldn't delete the folder:-^^", told);
    }
}

void DirMake(RunState& run, Arguments& in)
{
    const QString told = in.Text(1);
    if (run.Failed())
        return;
    const QString path = run.Paths.Resolve(told);
    if (QFileInfo(path).isDir())
        run.Fail(QStringLiteral("Folder already exists:-^^") + told);
    else
        TellOutcome(run, fso::CreateFolder(path), "Couldn't create the folder:-^^", told);
}

/// The path that something is copied to; a closing separator of a folder that exists says: into it.
QString CopyTarget(const RunState& run, const QString& told)
{
    const QString path = run.Paths.Resolve(told);
    const bool into = (told.endsWith(u'\\') || told.endsWith(u'/')) && QFileInfo(path).isDir();
    return into ? paths::Closed(path) : path;
}

void FileCopy(RunState& run, Arguments& in)
{
    const QString from = in.Text(1), to = in.Text(2);
    if (run.Failed())
        return;
    const QString path = run.Paths.Resolve(from);
    if (!paths::FileExists(path)) {
        run.Fail(QLatin1String(NoFile) + from);
        return;
    }
    const Result<> done =
        fso::CopyFile(path, CopyTarget(run, to), !run.FileProtection, TurnOf(run, QStringLiteral("filecopy")));
    TellOutcome(run, done, "Couldn't copy the file:-^^", from, to);
}

void FileMove(RunState& run, Arguments& in)
{
    const QString from = in.Text(1), to = in.Text(2);
    if (run.Failed())
        return;
    const QString path = run.Paths.ResolveToRemove(from), target = run.Paths.ResolveToRemove(to);
    if (path.isEmpty() || !paths::FileExists(path)) {
        run.Fail(QLatin1String(NoFile) + from);
        return;
    }
    const bool into = (to.endsWith(u'\\') || to.endsWith(u'/')) && QFileInfo(target).isDir();
    Result<> done = CheckUnlocked(run, path);
    if (done)
        done = fso::MoveFile(path, into ? paths::Closed(target) : target, TurnOf(run, QStringLiteral("filemove")));
    TellOutcome(run, done, "Couldn't move or rename the file:-^^", from, to);
}

void DirCopy(RunState& run, Arguments& in)
{
    const QString from = in.Text(1), to = in.Text(2);
    if (run.Failed())
        return;
    const QString path = run.Paths.Resolve(from);
    if (!QFileInfo(path).isDir()) {
        run.Fail(QLatin1String(NoFolder) + from);
        return;
    }
    const Result<> done =
        fso::CopyFolder(path, run.Paths.Resolve(to), !run.FileProtection, TurnOf(run, QStringLiteral("dircopy")));
    TellOutcome(run, done, "Couldn't copy the folder:-^^", from, to);
}

void DirMove(RunState& run, Arguments& in)
{
    const QString from = in.Text(1), to = in.Text(2);
    if (run.Failed())
        return;
    const QString path = run.Paths.ResolveToRemove(from);
    if (path.isEmpty() || IsProtected(path) || !QFileInfo(path).isDir()) {
        run.Fail(QLatin1String(NoFolder) + from);
        return;
    }
    Result<> done = CheckUnlocked(run, path);
    if (done)
        done = fso::MoveFolder(path, run.Paths.ResolveToRemove(to), TurnOf(run, QStringLiteral("dirmove")));
    TellOutcome(run, done, "Couldn't move or rename the folder:-^^", from, to);
}

void FileAttrib(RunState& run, Arguments& in)
{
    constexpr std::pair<char16_t, int> Letters[] = {{u'r', AttributeReadOnly},
                                                    {u'h', AttributeHidden},
                                                    {u's', AttributeSystem},
                                                    {u'a', AttributeArchive},
                                                    {u'n', AttributeNormal}};
    const QString told = in.Text(1);
    if (run.Failed())
        return;
    const QString path = run.Paths.Resolve(told);
    if (!run.Paths.Exists(told)) {
        run.Fail(QStringLiteral("File or folder doesn't exist:-^^") + told);
        return;
    }
    int attributes = 0;
    for (const QChar sign : in.Written(2).toLower())
        for (const auto& [letter, attribute] : Letters)
            if (sign == letter)
                attributes |= attribute;
    if (const Result<> done = SetAttributes(path, attributes); !done)
        run.Fail(done.error().Text());
}

constexpr CommandWord FileWorkRows[] = {
    {"filekill", Exactly(1), SafeGate, "PATH", "Deletes a file; a read-only one only without file protection.",
     FileKill},
    {"dirkill", Exactly(1), SafeGate | TakesTime, "PATH",
     "Deletes a folder with all in it. A link is removed, never what it leads to.", DirKill},
    {"dirmake", Exactly(1), SafeGate, "PATH", "Makes a folder.", DirMake},
    {"filecopy", Exactly(2), SafeGate | TakesTime, "FROM TO",
     "Copies a file; over one that exists only without file protection.", FileCopy},
    {"filemove", Exactly(2), SafeGate | TakesTime, "FROM TO", "Moves or renames a file, never over another.", FileMove},
    {"dircopy", Exactly(2), SafeGate | TakesTime, "FROM TO",
     "Copies a folder with all in it; over files that exist only without file protection.", DirCopy},
    {"dirmove", Exactly(2), SafeGate | TakesTime, "FROM TO", "Moves or renames a folder, never over another.", DirMove},
    {"fileattrib", Exactly(2), SafeGate, "PATH LETTERS",
     "Sets the attributes of a file or folder: r read-only, h hidden, s system, a archive, n normal.", FileAttrib},
};

} // namespace

std::span<const CommandWord> FileWorkCommands()
{
    return FileWorkRows;
}
