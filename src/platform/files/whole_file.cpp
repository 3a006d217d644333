#include "platform/files/whole_file.h"

#include "platform/files/in_place.h"
#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"

#include <QFile>
#include <cerrno>
#include <limits.h>
#include <utility>

namespace {

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

bool FolderStandsInWay(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY || error == EXDEV;
}

} // namespace

int WholeFile::Look()
{
    if (const int error = FollowLinks(target))
        return error;
    FileFacts found{};
    if (Steps().Stat(target, &found) != 0)
        return errno == ENOENT ? 0 : errno;
    if (S_ISDIR(found.st_mode))
        return EISDIR;
    if (!S_ISREG(found.st_mode))
        return ENODEV;
    // A rename would also replace a file that is to be read only.
    if (Steps().MayWrite(target) != 0)
        return errno;
    facts = found;
    inPlace = found.st_nlink > 1; // a rename would leave its other names with the old bytes
    return 0;
}

Result<> WholeFile::Open(const QString& told, mode_t mode)
{
    path = paths::ForWriting(told);
    if (paths::FileNameOfPath(path).isEmpty())
        return Fail(told, qt_error_string(path.isEmpty() ? ENOENT : EISDIR));
    target = QFile::encodeName(path);
    if (const int error = Look())
        return Fail(path, qt_error_string(error));
    if (inPlace)
        return {};
    if (const int error = beside.Open(target, facts ? 0600 : mode)) {
        if (!facts || !FolderStandsInWay(error))
            return Fail(path, qt_error_string(error));
        inPlace = true;
    }
    return {};
}

int WholeFile::OpenSpool()
{
    const QString folder = in_place::Folder();
    if (!folders::MakePrivate(folder))
        return errno;
    return beside.Open(QFile::encodeName(folder + QLatin1String("spool")), 0600);
}

Result<> WholeFile::Put(QByteArrayView bytes, off_t at)
{
    int error = inPlace && !beside.IsOpen() ? OpenSpool() : 0;
    if (!error)
        error = beside.Put(bytes, at);
    return error ? Result<>(Fail(path, qt_error_string(error))) : Result<>();
}

WholeFile::Attempt WholeFile::Place()
{
    if (facts) {
        if (const int error = beside.TakeOver(target, *facts))
            return {error, error == EPERM};
    }
    if (const int error = beside.Settle())
        return {error};
    if (const Result<> ready = RunBefore(); !ready)
        return {.Error = ECANCELED, .Refused = ready.error()};
    if (const int error = beside.MoveOver())
        return {error, FolderStandsInWay(error)};
    return {SyncFolderOf(target), false, true};
}

/// Once, whatever way the write takes.
Result<> WholeFile::RunBefore()
{
    const auto before = std::exchange(Before, {});
    return before ? before() : Result<>();
}

/// `bytes`: the whole, where it is at hand.
Result<> WholeFile::Settle(std::optional<QByteArrayView> bytes)
{
    if (!inPlace) {
        const Attempt attempt = Place();
        if (!attempt.Error)
            return {};
        if (attempt.Refused)
            return tl::unexpected(*attempt.Refused);
        if (!attempt.ElseInPlace || !facts)
            return Fail(path, qt_error_string(attempt.Error) +
                                  (attempt.Replaced ? QStringLiteral(" (written, but its folder could not be synced)")
                                                    : QString()));
    }
    const QString file = QFile::decodeName(target);
    if (bytes || beside.Name().isEmpty()) // nothing was put
        return in_place::Write(file, bytes.value_or(QByteArrayView()), [this] { return RunBefore(); });
    return paths::ReadWhole(QFile::decodeName(beside.Name()), paths::LargestDocument)
        .and_then(
            [&](const QByteArray& whole) { return in_place::Write(file, whole, [this] { return RunBefore(); }); });
}

Result<> WholeFile::Commit()
{
    return Settle({});
}

Result<> WholeFile::CommitAs(QByteArrayView bytes)
{
    if (inPlace)
        return Settle(bytes);
    return Put(bytes, 0).and_then([&] { return Settle(bytes); });
}
