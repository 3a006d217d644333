#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// A place where a tree of folders begins.
struct Volume
{
    QString Caption;
    QString Folder; ///< with "/" at its end

    bool operator==(const Volume&) const = default;
};

/// The root, the home folder and what is mounted for people to use: disks and sticks, not the system's own mounts.
QList<Volume> Volumes();

/// Of these the mounted ones, from the text of the system's mount table.
QList<Volume> MountedForPeople(const QByteArray& table);
