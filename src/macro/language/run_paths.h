#pragma once

#include <QHash>
#include <QString>

/// Paths of one run. Its current folder is its own; letter case that a tag took from a path is remembered.
class RunPaths
{
public:
    const QString& Folder() const { return folder; } ///< current folder, with "/" at its end
    void SetFolder(const QString& path);

    /// A path as a macro tells it, made absolute and as it stands on disk, or as given where nothing stands. One that
    /// begins with "\" (an entry of `dir`) is looked for in the current folder first.
    QString Resolve(const QString& told) const;
    bool Exists(const QString& told) const; ///< a file or a folder

    /// The same for what is to be removed or moved, or where it is moved to: one that begins with "\" is only ever
    /// below the current folder. Empty for a path that could mean two names, for "." and ".." and for the folder
    /// itself.
    QString ResolveToRemove(const QString& told) const;

    /// The path as the language's tags give it: lower case.
    QString Lowered(const QString& path);

private:
    QString folder;
    QHash<QString, QString> trueCase; ///< by what Lowered gave
};
