#include "windows/media/media_watch.h"

namespace {

constexpr int Least = 250, Most = 900; // milliseconds from the first change to the telling
constexpr int Rest = 20;               // times the cost of the last telling

} // namespace

MediaWatch::MediaWatch(QObject* parent) : QObject(parent)
{
    soon.setSingleShot(true);
    soon.setInterval(Least);
    connect(&soon, &QTimer::timeout, this, &MediaWatch::Tell);
    connect(&watcher, &FolderWatch::Changed, this, [this] {
        if (!soon.isActive())
            soon.start();
    });
}

void MediaWatch::Tell()
{
    QElapsedTimer cost;
    cost.start();
    emit Changed();
    soon.setInterval(qBound(Least, int(cost.elapsed()) * Rest, Most));
}
