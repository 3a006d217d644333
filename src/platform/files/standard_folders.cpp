#include "platform/files/standard_folders.h"

#include "platform/files/file_steps.h"

#include <QDir>
#include <QFile>

namespace {

/// A relative folder in the variable is to be ignored, says the base directory standard.
QString Own(const char* variable, QLatin1StringView below)
{
    QString base = qEnvironmentVariable(variable);
    if (!base.startsWith(QLatin1Char('/')))
        base = QDir::homePath() + QLatin1Char('/') + below;
    QString folder = QDir::cleanPath(base) + QLatin1String("/gemforge/");
    folders::MakePrivate(folder);
    return folder;
}

} // namespace

namespace folders {

QString Config()
{
    return Own("XDG_CONFIG_HOME", QLatin1StringView(".config"));
}

QString Data()
{
    return Own("XDG_DATA_HOME", QLatin1StringView(".local/share"));
}

QString State()
{
    return Own("XDG_STATE_HOME", QLatin1StringView(".local/state"));
}

QString Cache()
{
    return Own("XDG_CACHE_HOME", QLatin1StringView(".cache"));
}

bool MakePrivate(const QString& folder)
{
    const QByteArray path = QFile::encodeName(QDir::cleanPath(folder));
    FileFacts facts{};
    if (stat(path, &facts) == 0)
        return S_ISDIR(facts.st_mode);
    int error = 0; // the first that stood in the way
    const auto make = [&error](const QByteArray& part) {
        if (mkdir(part, 0700) != 0 && errno != EEXIST && error == 0)
            error = errno;
    };
    for (qsizetype end = path.indexOf('/', 1); end > 0; end = path.indexOf('/', end + 1))
        make(path.left(end));
    make(path);
    if (stat(path, &facts) == 0 && S_ISDIR(facts.st_mode))
        return true;
    errno = error ? error : ENOTDIR;
    return false;
}

} // namespace folders
