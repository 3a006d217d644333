#include "platform/platform_state.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>

namespace {

int RenameToNew(const char* from, const char* to)
{
    if (renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return -1;
    // A file system without the flag: a hard link never replaces either, and where there are none, looking first
    // is all that is left.
    if (link(from, to) == 0)
        return unlink(from);
    if (errno == EEXIST)
        return -1;
    FileFacts facts;
    if (lstat(to, &facts) == 0) {
        errno = EEXIST;
        return -1;
    }
    return rename(from, to);
}

} // namespace

FileSteps FileSteps::OfSystem()
{
    FileSteps steps;
    steps.Open = [](const char* path, int flags, mode_t mode) { return ::open(path, flags | O_CLOEXEC, mode); };
    steps.Read = ::read;
    steps.ReadAt = ::pread;
    steps.Write = ::pwrite;
    steps.Truncate = ::ftruncate;
    steps.Sync = ::fsync;
    steps.SyncAll = ::syncfs;
    steps.Close = ::close;
    steps.Rename = ::rename;
    steps.RenameNew = RenameToNew;
    steps.Exchange = [](const char* a, const char* b) {
        return ::renameat2(AT_FDCWD, a, AT_FDCWD, b, RENAME_EXCHANGE);
    };
    steps.Unlink = ::unlink;
    steps.MakeFolder = ::mkdir;
    steps.RemoveFolder = ::rmdir;
    steps.Stat = [](const char* path, FileFacts* facts) { return ::stat(path, facts); };
    steps.ReadLink = ::readlink;
    steps.MayWrite = [](const char* path) { return ::faccessat(AT_FDCWD, path, W_OK, AT_EACCESS); };
    steps.ChangeMode = ::fchmod;
    steps.ChangeOwner = ::fchown;
    steps.ListAttributes = ::listxattr;
    steps.GetAttribute = ::getxattr;
    steps.SetAttribute = [](int file, const char* name, const void* value, size_t size) {
        return ::fsetxattr(file, name, value, size, 0);
    };
    return steps;
}

const FileSteps& Steps()
{
    return Platform.Steps;
}

FileStepsScope::FileStepsScope(FileSteps steps) : before(std::exchange(Platform.Steps, std::move(steps))) {}

FileStepsScope::~FileStepsScope()
{
    Platform.Steps = std::move(before);
}
