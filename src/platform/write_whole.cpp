#include "platform/beside_file.h"
#include "platform/in_place.h"
#include "platform/paths.h"
#include "platform/standard_folders.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <limits.h>
#include <optional>

namespace {

/// What is to be replaced: where it really is, and its facts if there is such a file.
struct Target
{
    QByteArray Path;
    std::optional<FileFacts> Facts;
};

struct Attempt
{
    int Error = 0;
    bool ElseInPlace = false; ///< only the folder, or an owner that cannot be kept, stood in the way
    bool Replaced = false;    ///< the new bytes are there, what failed came after
};

/// Links at the end of a path followed by hand, since one may lead to a file that is yet to be made.
int FollowLinks(QByteArray& path)
{
    for (int link = 0; link < 40; ++link) {
        char text[PATH_MAX];
        const ssize_t size = Steps().ReadLink(path, text, sizeof text);
        if (size < 0)
            return errno == EINVAL || errno == ENOENT ? 0 : errno; // no link, or nothing there
        const QByteArray to(text, qsizetype(size));
        path = to.startsWith('/') ? to : path.left(path.lastIndexOf('/') + 1) + to;
    }
    return ELOOP;
}

int Look(Target& target)
{
    if (const int error = FollowLinks(target.Path))
        return error;
    FileFacts facts{};
    if (Steps().Stat(target.Path, &facts) != 0)
        return errno == ENOENT ? 0 : errno;
    if (S_ISDIR(facts.st_mode))
        return EISDIR;
    if (!S_ISREG(facts.st_mode))
        return ENODEV;
    // A rename would also replace a file that is to be read only.
    if (Steps().MayWrite(target.Path) != 0)
        return errno;
    target.Facts = facts;
    return 0;
}

bool FolderStandsInWay(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY || error == EXDEV;
}

Attempt Replace(const Target& target, QByteArrayView bytes, mode_t mode)
{
    BesideFile beside;
    if (const int error = beside.Open(target.Path, target.Facts ? 0600 : mode))
        return {error, FolderStandsInWay(error)};
    if (const int error = beside.Append(bytes))
        return {error};
    if (target.Facts) {
        if (const int error = beside.TakeOver(target.Path, *target.Facts))
            return {error, error == EPERM};
    }
    if (const int error = beside.Settle())
        return {error};
    if (const int error = beside.MoveOver())
        return {error, FolderStandsInWay(error)};
    return {SyncFolderOf(target.Path), false, true};
}

Result<> Written(const QString& told, QByteArrayView bytes, mode_t mode)
{
    const QString path = paths::ForWriting(told);
    if (paths::FileNameOfPath(path).isEmpty())
        return Fail(told, qt_error_string(path.isEmpty() ? ENOENT : EISDIR));
    Target target{QFile::encodeName(path), {}};
    if (const int error = Look(target))
        return Fail(path, qt_error_string(error));
    const Attempt attempt = Replace(target, bytes, mode);
    if (!attempt.Error)
        return {};
    if (attempt.ElseInPlace && target.Facts)
        return in_place::Write(QFile::decodeName(target.Path), bytes);
    const QString late =
        attempt.Replaced ? QStringLiteral(" (written, but its folder could not be synced)") : QString();
    return Fail(path, qt_error_string(attempt.Error) + late);
}

} // namespace

namespace paths {

Result<> WriteWhole(const QString& path, QByteArrayView bytes)
{
    return Written(path, bytes, 0666);
}

Result<> WriteWholePrivate(const QString& path, QByteArrayView bytes)
{
    folders::MakePrivate(FolderOfPath(path)); // if it cannot be made, the write tells why
    return Written(path, bytes, 0600);
}

} // namespace paths
