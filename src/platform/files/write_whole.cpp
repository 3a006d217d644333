#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"
#include "platform/files/whole_file.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>

namespace {

Result<> Written(const QString& path, QByteArrayView bytes, mode_t mode, const paths::BeforeReplace& before = {})
{
    WholeFile file;
    file.Before = before;
    return file.Open(path, mode).and_then([&] { return file.CommitAs(bytes); });
}

Result<> Unsynced(const QString& path, QByteArrayView bytes, int way)
{
    const int file =
        Persist([&] { return Steps().Open(QFile::encodeName(path), O_WRONLY | O_CREAT | O_NOFOLLOW | way, 0600); });
    int error = file < 0 ? errno : WriteAll(file, bytes, 0);
    if (file >= 0 && Steps().Close(file) != 0 && errno != EINTR && !error)
        error = errno;
    return error ? Fail(path, qt_error_string(error)) : Result<>();
}

} // namespace

namespace paths {

Result<> WriteScratch(const QString& path, QByteArrayView bytes)
{
    if (Steps().Unlink(QFile::encodeName(path)) != 0 && errno != ENOENT)
        return Fail(path, qt_error_string(errno));
    return Unsynced(path, bytes, O_EXCL);
}

Result<> AppendScratch(const QString& path, QByteArrayView bytes)
{
    return Unsynced(path, bytes, O_APPEND);
}

Result<> WriteWhole(const QString& path, QByteArrayView bytes, const BeforeReplace& before)
{
    return Written(path, bytes, 0666, before);
}

Result<> WriteWholePrivate(const QString& path, QByteArrayView bytes)
{
    folders::MakePrivate(FolderOfPath(path)); // if it cannot be made, the write tells why
    return Written(path, bytes, 0600);
}

} // namespace paths
