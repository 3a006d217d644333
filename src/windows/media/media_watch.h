#pragma once

#include "platform/files/folder_watch.h"

#include <QElapsedTimer>
#include <QTimer>

/// Tells when files come to or go from some folders: not for each file, but within a second of the first. Nothing runs
/// while nothing happens there. Files replaced by a save count.
class MediaWatch : public QObject
{
    Q_OBJECT

public:
    explicit MediaWatch(QObject* parent);

    /// In place of the folders before. One that does not exist is watched once it does.
    void Follow(const QStringList& folders) { watcher.Follow(folders); }

signals:
    void Changed();

private:
    void Tell();

    FolderWatch watcher;
    QTimer soon;
};
