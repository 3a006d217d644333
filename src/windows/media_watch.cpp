#include "windows/media_watch.h"

namespace {

constexpr int Least = 250, Most = 900; // milliseconds from the first change to the telling
constexpr int Rest = 20;               // times the cost of the last telling

} // namespace

MediaWatch::MediaWatch(QObject* parent) : QObject(parent)
{
    soon.setSingleShot(true);
    soon.setInterval(Least);
    connect(&soon, &QTimer::timeout, this, &MediaWatch::Tell);
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, [this] {
        if (!soon.isActive())
            soon.start();
    });
}

void MediaWatch::Follow(const QStringList& folders)
{
    const QStringList before = watcher.directories();
    for (const QString& folder : before)
        if (!folders.contains(folder))
            watcher.removePath(folder);
    for (const QString& folder : folders)
        if (!folder.isEmpty() && !before.contains(folder))
            watcher.addPath(folder);
}

void MediaWatch::Tell()
{
    QElapsedTimer cost;
    cost.start();
    emit Changed();
    soon.setInterval(qBound(Least, int(cost.elapsed()) * Rest, Most));
}
