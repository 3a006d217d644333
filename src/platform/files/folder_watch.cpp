#include "platform/files/folder_watch.h"

#include "platform/files/file_steps.h"
#include "platform/files/paths.h"

#include <QFile>
#include <sys/stat.h>
#include <utility>

namespace {

quint64 NumberOf(const QString& folder)
{
    FileFacts facts{};
    return stat(QFile::encodeName(folder).constData(), &facts) == 0 && S_ISDIR(facts.st_mode) ? facts.st_ino : 0;
}

/// The folder that holds `folder`, closed by a slash.
QString Above(const QString& folder)
{
    return paths::FolderOfPath(folder.chopped(folder.endsWith(u'/') ? 1 : 0));
}

} // namespace

FolderWatch::FolderWatch(QObject* parent) : QObject(parent)
{
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, &FolderWatch::Look);
}

void FolderWatch::Follow(const QStringList& folders)
{
    QStringList wanted;
    QHash<QString, quint64> now;
    for (const QString& folder : folders) {
        if (folder.isEmpty())
            continue;
        wanted << folder << Above(folder);
        now.insert(folder, followed.value(folder));
    }
    wanted.removeAll(QString());
    wanted.removeDuplicates();
    const QStringList before = watcher.directories();
    for (const QString& folder : before)
        if (!wanted.contains(folder))
            watcher.removePath(folder);
    for (const QString& folder : std::as_const(wanted))
        if (!before.contains(folder))
            watcher.addPath(folder);
    followed = now;
    for (const QString& folder : folders)
        if (!folder.isEmpty())
            IsReplaced(folder);
}

/// Watches what stands there now.
bool FolderWatch::IsReplaced(const QString& folder)
{
    const quint64 number = NumberOf(folder);
    if (std::exchange(followed[folder], number) == number)
        return false;
    watcher.removePath(folder);
    if (number != 0)
        watcher.addPath(folder);
    return true;
}

void FolderWatch::Look(const QString& changed)
{
    bool tells = followed.contains(changed);
    const QStringList all = followed.keys();
    for (const QString& folder : all)
        tells = IsReplaced(folder) || tells;
    if (tells)
        emit Changed();
}
