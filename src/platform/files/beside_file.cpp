#include "platform/files/beside_file.h"

#include "platform/files/beside_notes.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QRandomGenerator>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr size_t LargestStep = size_t(1) << 30; ///< below what the system takes in one call

QByteArray FolderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/') + 1);
}

/// Calls `get` for the size, then for the bytes. A file system without attributes has none. 0 or the error number.
template <class Get>
int Sized(Get get, QByteArray& bytes)
{
    bytes.clear();
    ssize_t size = get(nullptr, size_t(0));
    if (size > 0) {
        bytes.resize(qsizetype(size));
        size = get(bytes.data(), size_t(size));
    }
    if (size < 0)
        return errno == ENOTSUP ? 0 : errno;
    bytes.resize(qsizetype(size));
    return 0;
}

/// Labels that the system sets by itself and lets few processes change; a file is whole without them.
bool BelongsToSystem(const QByteArray& attribute)
{
    return attribute.startsWith("security.") || attribute.startsWith("trusted.");
}

int CopyAttributes(const QByteArray& from, int to)
{
    QByteArray list, value;
    if (const int error = Sized([&](char* at, size_t size) { return Steps().ListAttributes(from, at, size); }, list))
        return error;
    for (const QByteArray& name : list.split('\0')) {
        if (name.isEmpty())
            continue;
        int error = Sized([&](char* at, size_t size) { return Steps().GetAttribute(from, name, at, size); }, value);
        if (!error && Steps().SetAttribute(to, name, value.constData(), size_t(value.size())) != 0)
            error = errno;
        if (error && !BelongsToSystem(name))
            return error;
    }
    return 0;
}

constexpr const char* Prefix = ".gemforge-";
constexpr time_t LongestSave = 3600; // seconds; another machine's process may be at work in a shared folder

/// Takes away what saves that were killed have left beside their file.
void SweepFolder(const QByteArray& path)
{
    DIR* folder = opendir(path.isEmpty() ? "." : path.constData());
    if (!folder)
        return;
    while (const dirent* entry = readdir(folder))
        if (IsLeftover(dirfd(folder), entry->d_name, S_IFREG))
            unlinkat(dirfd(folder), entry->d_name, 0);
    closedir(folder);
}

} // namespace

QByteArray HiddenPrefix(pid_t process)
{
    return Prefix + QByteArray::number(process) + '-';
}

QByteArray NameBeside(const QByteArray& path)
{
    const QByteArray folder = FolderOf(path);
    beside::Note(folder);
    return folder + HiddenPrefix(getpid()) + QByteArray::number(QRandomGenerator::system()->generate64(), 16);
}

bool IsLeftover(int folder, QByteArrayView name, mode_t kind)
{
    if (!name.startsWith(Prefix))
        return false;
    const QByteArray rest = name.sliced(qsizetype(strlen(Prefix))).toByteArray();
    bool isNumber = false;
    const int process = rest.left(rest.indexOf('-')).toInt(&isNumber);
    FileFacts facts{};
    return isNumber && process > 0 && ::kill(process, 0) != 0 && errno == ESRCH &&
           fstatat(folder, name.toByteArray(), &facts, AT_SYMLINK_NOFOLLOW) == 0 && (facts.st_mode & S_IFMT) == kind &&
           facts.st_mtime < time(nullptr) - LongestSave;
}

int WriteAll(int file, QByteArrayView bytes, off_t at)
{
    while (!bytes.isEmpty()) {
        const size_t step = std::min(size_t(bytes.size()), LargestStep);
        const ssize_t written = Persist([&] { return Steps().Write(file, bytes.data(), step, at); });
        if (written < 0)
            return errno;
        if (written == 0)
            return EIO;
        bytes = bytes.sliced(written);
        at += written;
    }
    return 0;
}

int SyncFolderOf(const QByteArray& path)
{
    const QByteArray folder = FolderOf(path);
    const int file =
        Persist([&] { return Steps().Open(folder.isEmpty() ? "." : folder.constData(), O_RDONLY | O_DIRECTORY, 0); });
    if (file < 0) // one may write in a folder without being allowed to read it
        return errno == EACCES ? 0 : errno;
    const int error = Persist([&] { return Steps().Sync(file); }) == 0 ? 0 : errno;
    Steps().Close(file);
    return error == EINVAL || error == ENOTSUP ? 0 : error;
}

BesideFile::~BesideFile()
{
    if (file >= 0)
        Steps().Close(file);
    if (!name.isEmpty())
        Steps().Unlink(name);
}

int BesideFile::Open(const QByteArray& path, mode_t mode)
{
    target = path;
    SweepFolder(FolderOf(path));
    for (int attempt = 0; attempt < 100; ++attempt) {
        const QByteArray candidate = NameBeside(path);
        file = Persist([&] { return Steps().Open(candidate, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode); });
        if (file >= 0) {
            name = candidate;
            return 0;
        }
        if (errno != EEXIST)
            return errno;
    }
    return EEXIST;
}

int BesideFile::Put(QByteArrayView bytes, off_t at)
{
    return WriteAll(file, bytes, at);
}

int BesideFile::Append(QByteArrayView bytes)
{
    const int error = Put(bytes, size);
    size += bytes.size();
    return error;
}

int BesideFile::TakeOver(const QByteArray& model, const FileFacts& facts)
{
    // The owner first: changing it clears set-id bits, and the attributes may hold an access list.
    FileFacts own{};
    if (fstat(file, &own) != 0)
        return errno;
    const bool foreign = own.st_uid != facts.st_uid || own.st_gid != facts.st_gid;
    if (foreign && Steps().ChangeOwner(file, facts.st_uid, facts.st_gid) != 0)
        return errno;
    if (const int error = Mode(facts.st_mode))
        return error;
    return CopyAttributes(model, file);
}

int BesideFile::Mode(mode_t mode)
{
    return Steps().ChangeMode(file, mode & 07777) == 0 ? 0 : errno;
}

int BesideFile::Settle()
{
    if (Persist([&] { return Steps().Sync(file); }) != 0)
        return errno;
    // A close that a signal cut short has closed.
    const int error = Steps().Close(std::exchange(file, -1)) == 0 || errno == EINTR ? 0 : errno;
    return error;
}

int BesideFile::MovedBy(const std::function<int(const char*, const char*)>& rename)
{
    if (rename(name, target) != 0)
        return errno;
    name.clear();
    return 0;
}

int BesideFile::MoveOver()
{
    return MovedBy(Steps().Rename);
}

int BesideFile::MoveToNew()
{
    return MovedBy(Steps().RenameNew);
}
