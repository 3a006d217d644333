#include "frame/files/file_commands.h"
#include "frame/frame_state.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "macro/tags/families.h"
#include "platform/files/file_attributes.h"
#include "platform/files/paths.h"
#include "services/crc.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <ctime>

namespace {

// A path goes out in lower case where the language says so; the run remembers how it stands on disk.

Value Lowered(RunState& run, const QString& path)
{
    return Value(run.Paths.Lowered(path));
}

/// Name without its last ending.
QString BaseName(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? name : name.first(dot);
}

QString Extension(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? QString() : name.sliced(dot + 1);
}

/// Name of the folder that holds a file or a folder.
Value HolderOf(const QString& path)
{
    return Value(paths::ParentName(path.endsWith(u'/') ? path.chopped(1) : path).toLower());
}

// What fileset and the file dialogs have set.

Value LastDirFull(RunState& run)
{
    return Lowered(run, run.Last.Folder);
}

Value LastDir(RunState& run)
{
    return Lowered(run, paths::FolderOfPath(run.Last.Folder));
}

Value LastDirParent(RunState& run)
{
    return HolderOf(paths::FolderOfPath(run.Last.Folder));
}

Value LastFileParent(RunState& run)
{
    return HolderOf(run.Last.Folder);
}

Value LastFileFull(RunState& run)
{
    return Value(run.Last.FileName.toLower());
}

Value LastFileName(RunState& run)
{
    return Value(BaseName(run.Last.FileName).toLower());
}

Value LastFileExt(RunState& run)
{
    return Value(run.Last.FileExtension.toLower());
}

Value LastFileSize(RunState& run)
{
    const QFileInfo file(run.Last.Folder);
    return Value(QString::number(file.isFile() ? file.size() : 0));
}

/// Worked out once a run, whatever is set later; only a file that is too large is looked at anew each time.
Value LastFileCrc(RunState& run)
{
    constexpr qint64 LargestFile = 312'501'843;
    if (QFileInfo(run.Last.Folder).size() > LargestFile)
        return Value(QStringLiteral("CRC HAS A 300MB LIMIT"));
    if (run.Last.FileCrc.isEmpty() && !run.Last.FileName.isEmpty())
        run.Last.FileCrc = FileCrcText(run.Last.Folder).value_or(QString());
    return Value(run.Last.FileCrc);
}

Value LastFileBackup(RunState& run)
{
    const bool isFile = QFileInfo(run.Last.Folder).isFile();
    return run.Last.Folder.isEmpty() ? Value() : Lowered(run, UniqueName(run.Last.Folder, !isFile));
}

Value LastFileDosName(RunState& run)
{
    return Value(run.Last.Folder);
}

Value LastFileAttrib(RunState& run)
{
    constexpr std::pair<int, char16_t> Letters[] = {
        {AttributeReadOnly, u'R'}, {AttributeHidden, u'H'},     {AttributeSystem, u'S'}, {AttributeArchive, u'A'},
        {AttributeNormal, u'N'},   {AttributeCompressed, u'C'}, {AttributeFolder, u'D'}};
    const int attributes = run.Last.Folder.isEmpty() ? 0 : AttributesOf(run.Last.Folder);
    QString text;
    for (const auto& [attribute, letter] : Letters)
        if (attributes & attribute)
            text += letter;
    return Value(text);
}

/// From a generator of its own, so that the macro's numbers stay those of its seed.
Value RandomFileName(RunState&)
{
    constexpr int Digits = 8, Base = 16;
    return Value(
        QStringLiteral("gb%1.tmp").arg(QRandomGenerator::global()->generate(), Digits, Base, QLatin1Char('0')));
}

Value CurrentPath(RunState& run)
{
    return Value(run.Paths.Folder());
}

Value SelectedMedia(RunState& run)
{
    return Value(run.Stage.SelectedMedia());
}

// The open document

Value OpenDirFull(RunState&)
{
    return Value(QString(Frame.CurrentFolder + Frame.CurrentFile));
}

Value OpenDir(RunState&)
{
    return Value(Frame.CurrentFolder);
}

Value OpenDirParent(RunState&)
{
    return HolderOf(Frame.CurrentFolder);
}

Value OpenFileParent(RunState&)
{
    return HolderOf(Frame.CurrentFolder + Frame.CurrentFile);
}

Value OpenFileFull(RunState&)
{
    return Value(Frame.CurrentFile);
}

Value OpenFileName(RunState&)
{
    return Value(BaseName(Frame.CurrentFile).toLower());
}

Value OpenFileExt(RunState&)
{
    return Value(Extension(Frame.CurrentFile));
}

// Fixed places

Value RndPath(RunState&)
{
    return Value(paths::FolderOfPath(Frame.Settings.RNDPath));
}

Value RndExeName(RunState& run)
{
    return Lowered(run, paths::FileNameOfPath(Frame.Settings.RNDPath));
}

Value RndLevelsPath(RunState&)
{
    return Value(paths::Closed(Frame.Settings.LevelsFolder));
}

Value GemforgePath(RunState&)
{
    return Value(Frame.ProgramFolder);
}

Value MyDocumentsPath(RunState&)
{
    return Value(paths::Closed(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)));
}

Value WindowsPath(RunState&)
{
    return Value(QStringLiteral("/usr/"));
}

Value SystemPath(RunState&)
{
    return Value(QStringLiteral("/usr/bin/"));
}

Value TempPath(RunState& run)
{
    return Lowered(run, paths::Closed(QDir::tempPath()));
}

Value Time(RunState&)
{
    return Value(QLocale().toString(QTime::currentTime(), QLocale::ShortFormat));
}

Value Date(RunState&)
{
    return Value(QLocale().toString(QDate::currentDate(), QLocale::ShortFormat));
}

/// Milliseconds since the system's start; they begin anew where 31 bits end.
Value TickCount(RunState&)
{
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const quint64 milliseconds = quint64(now.tv_sec) * 1000 + quint64(now.tv_nsec) / 1'000'000;
    return Value(qint32(milliseconds & 0x7FFFFFFF));
}

constexpr PlainTag PathRows[] = {
    {"lastdirfull", "Full path of the file or folder that was set last, lower case.", LastDirFull},
    {"lastdir", "Its folder.", LastDir},
    {"lastdirparent", "Name of the folder above [lastdir].", LastDirParent},
    {"lastfileparent", "Name of the folder that holds [lastdirfull].", LastFileParent},
    {"lastfilefull", "Name of the file that was set last, with its ending.", LastFileFull},
    {"lastfilename", "The same without its ending.", LastFileName},
    {"lastfileext", "Its ending, without the dot.", LastFileExt},
    {"lastfilesize", "Its size in bytes.", LastFileSize},
    {"lastfilecrc", "Its CRC-32 in hexadecimal digits. The first one asked for stays for the whole run.", LastFileCrc},
    {"lastfilebackup", "The next free numbered name for it.", LastFileBackup},
    {"lastfiledosname", "Its whole path, in its own letter case.", LastFileDosName},
    {"lastfileattrib", "Its attributes: R read-only, H hidden, S system, A archive, N normal, C compressed, D folder.",
     LastFileAttrib},
    {"randomfilename", "A name for a temporary file.", RandomFileName},
    {"currentpath", "The macro's current folder.", CurrentPath},
    {"selectedmedia", "Full path of what is selected in the media list.", SelectedMedia},
    {"opendirfull", "Full path of the open document.", OpenDirFull},
    {"opendir", "Folder of the open document.", OpenDir},
    {"opendirparent", "Name of the folder above it.", OpenDirParent},
    {"openfileparent", "Name of the folder that holds the open document.", OpenFileParent},
    {"openfilefull", "Name of the open document, with its ending.", OpenFileFull},
    {"openfilename", "The same without its ending, lower case.", OpenFileName},
    {"openfileext", "Its ending, without the dot.", OpenFileExt},
    {"rndpath", "Folder of the game's program.", RndPath},
    {"rndexename", "Name of the game's program, lower case.", RndExeName},
    {"rndlevelspath", "The game's levels folder.", RndLevelsPath},
    {"gemforgepath", "Gemforge's own folder.", GemforgePath},
    {"mydocumentspath", "The user's documents.", MyDocumentsPath},
    {"windowspath", "The system's root for programs.", WindowsPath},
    {"systempath", "The system's folder of programs.", SystemPath},
    {"temppath", "The folder for temporary files.", TempPath},
    {"time", "The time in the system's short form.", Time},
    {"date", "The date in the system's short form.", Date},
    {"tickcount", "Milliseconds since the system's start.", TickCount},
};

} // namespace

std::span<const PlainTag> PathTags()
{
    return PathRows;
}
