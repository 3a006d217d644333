#include "windows/media/volumes.h"

#include "platform/files/paths.h"

#include <QDir>
#include <QFile>
#include <algorithm>

namespace {

constexpr const char* MediaFolders[] = {"/media/", "/run/media/", "/mnt/"};
constexpr int MountPointField = 4;

bool IsForPeople(const QString& folder)
{
    return std::ranges::any_of(MediaFolders,
                               [&](const char* begin) { return folder.startsWith(QLatin1StringView(begin)); });
}

/// A field of the system's table: blanks and the like stand as "\" and three octal digits.
QString Unescaped(const QByteArray& field)
{
    QByteArray plain;
    for (qsizetype i = 0; i < field.size(); ++i) {
        const bool coded = field[i] == '\\' && i + 3 < field.size();
        plain += coded ? char(field.mid(i + 1, 3).toInt(nullptr, 8)) : field[i];
        i += coded ? 3 : 0;
    }
    return QFile::decodeName(plain);
}

} // namespace

QList<Volume> MountedForPeople(const QByteArray& table)
{
    QList<Volume> volumes;
    for (const QByteArray& line : table.split('\n')) {
        const QString point = Unescaped(line.split(' ').value(MountPointField));
        if (IsForPeople(paths::Closed(point)))
            volumes << Volume{paths::FileNameOfPath(point), paths::Closed(point)};
    }
    return volumes;
}

QList<Volume> Volumes()
{
    // The table names them without a look at any: a server that is gone would be waited for.
    QFile table(QStringLiteral("/proc/self/mountinfo"));
    const QByteArray mounted = table.open(QIODevice::ReadOnly) ? table.readAll() : QByteArray();
    return QList<Volume>{{QStringLiteral("/"), QStringLiteral("/")},
                         {QStringLiteral("Home"), paths::Closed(QDir::homePath())}} +
           MountedForPeople(mounted);
}
