#include "platform/files/beside_notes.h"

#include "platform/files/beside_file.h"
#include "platform/files/beside_folder.h"
#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"
#include "platform/platform_state.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr qint64 LargestNote = 1 << 20;

QString NotesFolder()
{
    return folders::State() + QLatin1String("beside/");
}

QString NoteOf(pid_t process)
{
    return NotesFolder() + QString::number(process);
}

/// Folders parted by characters 0, each written at once: a note is read by the next start alone.
void Append(const QByteArray& folder)
{
    if (!folders::MakePrivate(NotesFolder()))
        return;
    const int file = open(QFile::encodeName(NoteOf(getpid())), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0)
        return;
    const QByteArray line = folder + '\0';
    [[maybe_unused]] const ssize_t written = write(file, line.constData(), size_t(line.size()));
    close(file);
}

bool HasNoted()
{
    const std::lock_guard lock(Platform.NotesGuard);
    return Platform.NotedBy == getpid() && !Platform.NotedFolders.empty();
}

void SweepFolderOf(pid_t process, const QByteArray& path)
{
    DIR* const folder = opendir(path.constData());
    if (!folder)
        return;
    const QByteArray own = HiddenPrefix(process);
    FileFacts facts{};
    QStringList folders;
    while (const dirent* entry = readdir(folder)) {
        if (!QByteArrayView(entry->d_name).startsWith(own) ||
            fstatat(dirfd(folder), entry->d_name, &facts, AT_SYMLINK_NOFOLLOW) != 0)
            continue;
        if (S_ISREG(facts.st_mode))
            unlinkat(dirfd(folder), entry->d_name, 0);
        else if (S_ISDIR(facts.st_mode))
            folders << QFile::decodeName(path + entry->d_name);
    }
    closedir(folder);
    for (const QString& one : folders)
        static_cast<void>(RemoveTree(one));
}

} // namespace

namespace beside {

void Note(const QByteArray& told)
{
    const QByteArray folder = told.startsWith('/') ? told : QFile::encodeName(QDir::currentPath()) + '/' + told;
    const std::lock_guard lock(Platform.NotesGuard);
    if (std::exchange(Platform.NotedBy, getpid()) != getpid())
        Platform.NotedFolders.clear();
    if (Platform.NotedFolders.insert(folder).second)
        Append(folder);
}

void SweepNoted()
{
    for (const QString& name : QDir(NotesFolder()).entryList(QDir::Files)) {
        bool isNumber = false;
        const pid_t process = name.toInt(&isNumber);
        // As long as this process has noted nothing, a note under its number is an older one's.
        const bool runs = process == getpid() ? HasNoted() : kill(process, 0) == 0 || errno != ESRCH;
        if (!isNumber || process <= 0 || runs)
            continue;
        const auto note = paths::ReadWhole(NoteOf(process), LargestNote);
        for (const QByteArray& folder : note.value_or(QByteArray()).split('\0'))
            if (!folder.isEmpty())
                SweepFolderOf(process, folder);
        unlink(QFile::encodeName(NoteOf(process)));
    }
}

void ForgetNotes()
{
    const std::lock_guard lock(Platform.NotesGuard);
    if (std::exchange(Platform.NotedFolders, {}).empty())
        return;
    unlink(QFile::encodeName(NoteOf(getpid())));
}

} // namespace beside
