#include "windows/volumes.h"

#include "platform/paths.h"

#include <QDir>
#include <QStorageInfo>
#include <algorithm>

namespace {

constexpr const char* MediaFolders[] = {"/media/", "/run/media/", "/mnt/"};

bool IsForPeople(const QString& mountPoint)
{
    return std::ranges::any_of(MediaFolders, [&](const char* folder) {
        const QString begin = QString::fromLatin1(folder);
        return paths::Closed(mountPoint) == begin || mountPoint.startsWith(begin);
    });
}

} // namespace

QList<Volume> Volumes()
{
    QList<Volume> volumes = {{QStringLiteral("/"), QStringLiteral("/")},
                             {QStringLiteral("Home"), paths::Closed(QDir::homePath())}};
    for (const QStorageInfo& mounted : QStorageInfo::mountedVolumes())
        if (IsForPeople(mounted.rootPath()))
            volumes << Volume{mounted.displayName(), paths::Closed(mounted.rootPath())};
    return volumes;
}
