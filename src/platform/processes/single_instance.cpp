#include "platform/processes/single_instance.h"

#include "platform/files/file_steps.h"
#include "platform/files/standard_folders.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

/// Others must not be able to put a lock there, or a link.
bool IsOurs(const QString& folder)
{
    FileFacts facts{};
    return lstat(QFile::encodeName(folder), &facts) == 0 && S_ISDIR(facts.st_mode) && facts.st_uid == geteuid() &&
           (facts.st_mode & 022) == 0 && access(QFile::encodeName(folder), W_OK) == 0;
}

QString LockFolder()
{
    QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (runtime.startsWith(QLatin1Char('/')) && IsOurs(runtime))
        return runtime;
    const QString temporary = QDir::tempPath() + QLatin1String("/gemforge-") + QString::number(geteuid());
    folders::MakePrivate(temporary);
    return IsOurs(temporary) ? temporary : folders::State();
}

} // namespace

SingleInstance::SingleInstance(const QString& name)
{
    const QString path = LockFolder() + QLatin1Char('/') + name + QLatin1String(".lock");
    // The file stays when the lock goes: removing it would let two starts hold locks on two files of one name.
    Lock(open(QFile::encodeName(path), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
}

SingleInstance::~SingleInstance()
{
    for (const int file : held)
        close(file);
}

void SingleInstance::Claim(const QString& folder)
{
    FileFacts facts{};
    if (stat(QFile::encodeName(folder), &facts) == 0 && facts.st_uid == geteuid())
        Lock(open(QFile::encodeName(folder), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

void SingleInstance::Lock(int file)
{
    if (file < 0)
        return;
    held.push_back(file);
    another = another || (flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK);
}
