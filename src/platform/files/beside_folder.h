#pragma once

#include "platform/result.h"

#include <QString>

/// A hidden folder beside others, in which something is made before it takes its place, or where it is taken before it
/// goes. It is gone with its scope, with all that is in it. What a killed process has left is swept when the next one
/// makes such a folder, so nothing may lie in it that is not whole elsewhere.
class BesideFolder
{
public:
    /// Makes one in the folder `above`.
    [[nodiscard]] static Result<BesideFolder> Make(const QString& above);

    BesideFolder(BesideFolder&& other) noexcept;
    BesideFolder& operator=(BesideFolder&& other) noexcept;
    ~BesideFolder();

    const QString& Path() const { return path; } ///< "/" at the end

    /// Moves `name`, which lies in it, to a path of the same file system that is free, and syncs the folder there.
    [[nodiscard]] Result<> MoveToNew(const QString& name, const QString& target) const;

    /// The same where a folder may stand; that one is in here afterwards. At once, where the file system can; else
    /// there is a moment in which nothing stands at `target`.
    [[nodiscard]] Result<> MoveOver(const QString& name, const QString& target) const;

    /// Takes a folder in, by its own name. That one has to be free in here.
    [[nodiscard]] Result<> Take(const QString& folder) const;

    /// A failure of work in here as people know the place: by the folder above, where what is made is to stand.
    Failure InOpenWords(Failure failure) const;

private:
    BesideFolder() = default;
    QString path;
};

/// Removes a folder and what is in it; links in it go, what they lead to stays. Fails for a link itself.
[[nodiscard]] Result<> RemoveTree(const QString& folder);
