#include "platform/files/beside_folder.h"

#include "platform/files/beside_file.h"
#include "platform/files/paths.h"

#include <QFile>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <utility>
#include <vector>

namespace {

constexpr mode_t OwnersAlone = 0700;

Result<> Outcome(const QString& path, int error)
{
    return error ? Fail(path, qt_error_string(error)) : Result<>();
}

bool IsDots(const char* name)
{
    return qstrcmp(name, ".") == 0 || qstrcmp(name, "..") == 0;
}

struct Inner
{
    QByteArray Path;
    bool IsFolder;
};

int ListInner(const QByteArray& folder, std::vector<Inner>& inner)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder), closedir);
    if (!open)
        return errno;
    while (const dirent* entry = readdir(open.get())) {
        if (IsDots(entry->d_name))
            continue;
        FileFacts facts{};
        if (fstatat(dirfd(open.get()), entry->d_name, &facts, AT_SYMLINK_NOFOLLOW) != 0)
            return errno;
        inner.push_back({folder + '/' + entry->d_name, S_ISDIR(facts.st_mode)});
    }
    return 0;
}

/// 0 or the system's error number, `failed` then the path it is about.
int RemoveBelow(const QByteArray& folder, QByteArray& failed)
{
    std::vector<Inner> inner;
    failed = folder;
    if (const int error = ListInner(folder, inner))
        return error;
    for (const Inner& one : inner) {
        if (one.IsFolder) {
            if (const int error = RemoveBelow(one.Path, failed))
                return error;
            continue;
        }
        if (Steps().Unlink(one.Path) != 0) {
            failed = one.Path;
            return errno;
        }
    }
    failed = folder;
    return Steps().RemoveFolder(folder) == 0 ? 0 : errno;
}

QByteArray WithoutSlash(const QString& folder)
{
    return QFile::encodeName(folder.size() > 1 && folder.endsWith(u'/') ? folder.chopped(1) : folder);
}

/// Takes away what killed processes have left.
void SweepFolders(const QByteArray& above)
{
    std::vector<QByteArray> left;
    {
        const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(above), closedir);
        while (const dirent* entry = open ? readdir(open.get()) : nullptr)
            if (IsLeftover(dirfd(open.get()), entry->d_name, S_IFDIR))
                left.push_back(above + entry->d_name);
    }
    QByteArray failed;
    for (const QByteArray& folder : left)
        RemoveBelow(folder, failed);
}

} // namespace

Result<BesideFolder> BesideFolder::Make(const QString& told)
{
    const QByteArray above = QFile::encodeName(paths::Closed(told));
    SweepFolders(above);
    BesideFolder made;
    const QByteArray name = NameBeside(above);
    if (Steps().MakeFolder(name, OwnersAlone) != 0)
        return Fail(told, qt_error_string(errno));
    made.path = QFile::decodeName(name) + u'/';
    return made;
}

BesideFolder::BesideFolder(BesideFolder&& other) noexcept : path(std::exchange(other.path, {})) {}

BesideFolder& BesideFolder::operator=(BesideFolder&& other) noexcept
{
    std::swap(path, other.path);
    return *this;
}

BesideFolder::~BesideFolder()
{
    QByteArray failed;
    if (!path.isEmpty())
        RemoveBelow(WithoutSlash(path), failed);
}

Result<> BesideFolder::MoveToNew(const QString& name, const QString& target) const
{
    const QByteArray to = WithoutSlash(target);
    const QByteArray from = QFile::encodeName(path + name);
    if (Steps().RenameNew(from, to) != 0)
        return Outcome(target, errno);
    const int error = SyncFolderOf(to);
    if (error) // what is told to have failed must not be there
        Steps().RenameNew(to, from);
    return Outcome(target, error);
}

Result<> BesideFolder::MoveOver(const QString& name, const QString& target) const
{
    const QByteArray from = QFile::encodeName(path + name), to = WithoutSlash(target);
    FileFacts facts{};
    if (lstat(to, &facts) != 0)
        return errno == ENOENT ? MoveToNew(name, target) : Outcome(target, errno);
    if (!S_ISDIR(facts.st_mode)) // a link, above all
        return Outcome(target, ENOTDIR);
    if (Steps().Exchange(from, to) == 0) {
        const int error = SyncFolderOf(to);
        if (error)
            Steps().Exchange(from, to);
        return Outcome(target, error);
    }
    if (errno != EINVAL && errno != ENOSYS)
        return Outcome(target, errno);
    const QByteArray old = QFile::encodeName(path) + "old";
    if (Steps().Rename(to, old) != 0)
        return Outcome(target, errno);
    Result<> moved = MoveToNew(name, target);
    if (!moved)
        static_cast<void>(Steps().RenameNew(old, to));
    return moved;
}

Result<> BesideFolder::Take(const QString& folder) const
{
    const QByteArray from = WithoutSlash(folder);
    FileFacts facts{};
    if (lstat(from, &facts) != 0)
        return Outcome(folder, errno);
    if (!S_ISDIR(facts.st_mode))
        return Outcome(folder, ENOTDIR);
    const QByteArray to = QFile::encodeName(path + paths::FileNameOfPath(QFile::decodeName(from)));
    return Outcome(folder, Steps().RenameNew(from, to) == 0 ? 0 : errno);
}

Failure BesideFolder::InOpenWords(Failure failure) const
{
    const QString own = path.chopped(1), above = paths::FolderOfPath(own).chopped(1);
    failure.Path.replace(own, above);
    failure.Reason.replace(own, above);
    return failure;
}

Result<> RemoveTree(const QString& folder)
{
    const QByteArray top = WithoutSlash(folder);
    FileFacts facts{};
    if (lstat(top, &facts) != 0)
        return Outcome(folder, errno);
    if (!S_ISDIR(facts.st_mode))
        return Outcome(folder, ENOTDIR);
    QByteArray failed;
    const int error = RemoveBelow(top, failed);
    return Outcome(QFile::decodeName(failed), error);
}
