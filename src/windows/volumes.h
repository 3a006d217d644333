#pragma once

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
