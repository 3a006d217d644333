#pragma once

#include "platform/files/file_steps.h"

#include <QByteArray>

/// A new file beside the one it is to replace: hidden, under a name of its own (".gemforge-", process, "-", number),
/// gone again unless it is moved to its place. Every routine gives back 0 or the system's error number.
class BesideFile
{
public:
    BesideFile() = default;
    ~BesideFile();
    BesideFile(const BesideFile&) = delete;
    BesideFile& operator=(const BesideFile&) = delete;

    [[nodiscard]] int Open(const QByteArray& target, mode_t mode);
    [[nodiscard]] int Put(QByteArrayView bytes, off_t at);
    [[nodiscard]] int Append(QByteArrayView bytes); ///< where the last one ended
    /// Owner, permissions and extended attributes of `model`, whose facts are `facts`. EPERM: the owner must be
    /// another's and cannot be.
    [[nodiscard]] int TakeOver(const QByteArray& model, const FileFacts& facts);
    [[nodiscard]] int Mode(mode_t mode);
    [[nodiscard]] int Settle(); ///< synced and closed
    [[nodiscard]] int MoveOver();
    [[nodiscard]] int MoveToNew(); ///< EEXIST if the target has appeared

    bool IsOpen() const { return file >= 0; }
    QByteArray Name() const { return name; } ///< empty: there is none (any more)

private:
    int MovedBy(const std::function<int(const char*, const char*)>& rename);

    QByteArray target;
    QByteArray name;
    int file = -1;
    off_t size = 0;
};

/// How the hidden names of a process begin.
QByteArray HiddenPrefix(pid_t process);

/// A hidden name of this process's own for something beside `path` that stands there only for a while.
QByteArray NameBeside(const QByteArray& path);

/// Is this name in `folder` one of NameBeside, of a process that ended, and long ago? `kind`: S_IFREG or S_IFDIR.
bool IsLeftover(int folder, QByteArrayView name, mode_t kind);

/// Writes all bytes from `at` on. 0 or the system's error number.
[[nodiscard]] int WriteAll(int file, QByteArrayView bytes, off_t at);

/// Syncs the folder that holds `path`. 0 or the system's error number; a folder that cannot be synced at all is none.
[[nodiscard]] int SyncFolderOf(const QByteArray& path);
