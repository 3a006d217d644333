#include "platform/files/regular_file.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

RegularFile::RegularFile(const QString& path, quint64 mostBytes)
    : Handle(open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC))
{
    struct stat facts = {};
    if (Handle < 0 || fstat(Handle, &facts) != 0)
        Error = errno;
    else if (!S_ISREG(facts.st_mode))
        Error = S_ISDIR(facts.st_mode) ? EISDIR : ENODEV;
    else if (quint64(facts.st_size) > mostBytes)
        Error = EFBIG;
}

RegularFile::~RegularFile()
{
    if (Handle >= 0)
        close(Handle);
}
