#pragma once

#include <cerrno>
#include <functional>
#include <sys/stat.h>
#include <sys/types.h>

/// What the system knows about a file.
using FileFacts = struct stat;

/// The system calls by which files are read and changed, as a table. Each entry has the shape and the errors (-1 and
/// `errno`) of its call; tests exchange them, so that any single step can fail or end the process.
struct FileSteps
{
    std::function<int(const char* path, int flags, mode_t mode)> Open;
    std::function<ssize_t(int file, void* to, size_t size)> Read;
    std::function<ssize_t(int file, void* to, size_t size, off_t at)> ReadAt;
    std::function<ssize_t(int file, const void* from, size_t size, off_t at)> Write;
    std::function<int(int file, off_t size)> Truncate;
    std::function<int(int file)> Sync;    ///< files and folders
    std::function<int(int file)> SyncAll; ///< the whole file system that holds it
    std::function<int(int file)> Close;
    std::function<int(const char* from, const char* to)> Rename;
    std::function<int(const char* from, const char* to)> RenameNew; ///< EEXIST if there is such a name
    std::function<int(const char* a, const char* b)>
        Exchange; ///< of two names at once; EINVAL where that cannot be done
    std::function<int(const char* path)> Unlink;
    std::function<int(const char* path, mode_t mode)> MakeFolder;
    std::function<int(const char* path)> RemoveFolder;           ///< an empty one
    std::function<int(const char* path, FileFacts* facts)> Stat; ///< follows links
    std::function<ssize_t(const char* path, char* to, size_t size)> ReadLink;
    std::function<int(const char* path)> MayWrite; ///< 0 if the process may write to it
    std::function<int(int file, mode_t mode)> ChangeMode;
    std::function<int(int file, uid_t owner, gid_t group)> ChangeOwner;
    std::function<ssize_t(const char* path, char* list, size_t size)> ListAttributes;
    std::function<ssize_t(const char* path, const char* name, void* value, size_t size)> GetAttribute;
    std::function<int(int file, const char* name, const void* value, size_t size)> SetAttribute;

    static FileSteps OfSystem();

    /// Calls `visit` with every entry, for tests that wrap them all.
    template <class Visit>
    void ForEach(Visit visit)
    {
        visit(Open), visit(Read), visit(ReadAt), visit(Write), visit(Truncate), visit(Sync), visit(SyncAll);
        visit(Close), visit(Rename), visit(RenameNew), visit(Exchange), visit(Unlink), visit(MakeFolder),
            visit(RemoveFolder), visit(Stat), visit(ReadLink);
        visit(MayWrite), visit(ChangeMode);
        visit(ChangeOwner), visit(ListAttributes), visit(GetAttribute), visit(SetAttribute);
    }
};

/// The table in force: that of the system, or of the innermost scope.
const FileSteps& Steps();

/// Puts another table in force for a scope. Only while no other thread writes files.
class FileStepsScope
{
public:
    explicit FileStepsScope(FileSteps steps);
    ~FileStepsScope();
    FileStepsScope(const FileStepsScope&) = delete;
    FileStepsScope& operator=(const FileStepsScope&) = delete;

private:
    FileSteps before;
};

/// Repeats a call that a signal cut short.
template <class Call>
auto Persist(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}
