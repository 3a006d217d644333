#include "test_support.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <csignal>
#include <sys/resource.h>

QString ProjectFile(const QString& name)
{
    return QStringLiteral(PROJECT_FOLDER "/") + name;
}

QString TestFolder::Path(const QString& name) const
{
    return folder.path() + QLatin1Char('/') + name;
}

QString TestFolder::Write(const QString& name, const QByteArray& bytes) const
{
    const QString path = Path(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

QByteArray TestFolder::Read(const QString& name) const
{
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<no such file>");
}

FileSizeLimit::FileSizeLimit(qint64 bytes)
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    before = limit.rlim_cur;
    std::signal(SIGXFSZ, SIG_IGN);
    limit.rlim_cur = rlim_t(bytes);
    setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit()
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = before;
    setrlimit(RLIMIT_FSIZE, &limit);
}
