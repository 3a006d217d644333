#pragma once

#include <QFileSystemWatcher>
#include <QHash>
#include <QStringList>

/// Tells when files come to or go from some folders, also when a folder itself is replaced by another of its name: the
/// system watches the folder that was there, whatever it is called now, so the folder above is watched too. Nothing
/// runs while nothing happens.
class FolderWatch : public QObject
{
    Q_OBJECT

public:
    explicit FolderWatch(QObject* parent = nullptr);

    /// In place of the folders before. One that does not exist is watched once it does.
    void Follow(const QStringList& folders);

signals:
    void Changed(); ///< for each change that the system tells

private:
    void Look(const QString& changed);
    bool IsReplaced(const QString& folder);

    QFileSystemWatcher watcher;
    QHash<QString, quint64> followed; ///< folder: the number that its file system has for it, 0 without one
};
