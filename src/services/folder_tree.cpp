#include "services/folder_tree.h"

#include <QFile>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

Result<> ReadError(const QString& path, int error)
{
    return Fail(path, qt_error_string(error));
}

using OpenFolder = std::unique_ptr<DIR, int (*)(DIR*)>;

/// Null, with errno, for what is no folder or has become a link.
OpenFolder OpenOf(const QString& path)
{
    const int file = open(QFile::encodeName(path), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    DIR* const folder = file < 0 ? nullptr : fdopendir(file);
    if (file >= 0 && !folder)
        close(file);
    return {folder, closedir};
}

bool IsSelfOrParent(const char* name)
{
    return qstrcmp(name, ".") == 0 || qstrcmp(name, "..") == 0;
}

/// A tree as far as it has been walked.
class TreeWalk
{
public:
    TreeWalk(const QString& folder, const CountedTurn& callback) : root(folder + QLatin1Char('/')), turn(callback) {}

    Result<std::vector<TreeEntry>> Walk()
    {
        FileFacts facts{};
        if (lstat(QFile::encodeName(root.chopped(1)), &facts) != 0)
            return Fail(root.chopped(1), qt_error_string(errno));
        device = facts.st_dev;
        if (Result<> read = ReadFolder({}); !read)
            return tl::unexpected(read.error());
        // What is found joins the end of the list, so that no depth needs a deeper call.
        for (size_t at = 0; at < found.size(); ++at) {
            if (!found[at].IsFolder())
                continue;
            if (Result<> read = ReadFolder(found[at].Path + QLatin1Char('/')); !read)
                return tl::unexpected(read.error());
        }
        return std::move(found);
    }

private:
    Result<> ReadFolder(const QString& below)
    {
        const QString path = root + below;
        const OpenFolder folder = OpenOf(path.chopped(1));
        if (!folder)
            return ReadError(path, errno);
        while (const dirent* entry = readdir(folder.get())) {
            if (IsSelfOrParent(entry->d_name))
                continue;
            TreeEntry next{below + QFile::decodeName(entry->d_name), {}};
            if (fstatat(dirfd(folder.get()), entry->d_name, &next.Facts, AT_SYMLINK_NOFOLLOW) != 0)
                return ReadError(root + next.Path, errno);
            if (next.Facts.st_dev != device)
                return Fail(root + next.Path, QStringLiteral("Another file system begins here."));
            found.push_back(std::move(next));
            if (turn && !turn(0, int(found.size())))
                return Stopped(root.chopped(1));
        }
        return {};
    }

    const QString root;
    const CountedTurn& turn;
    dev_t device = 0;
    std::vector<TreeEntry> found;
};

} // namespace

Result<std::vector<TreeEntry>> FolderTree(const QString& folder, const CountedTurn& turn)
{
    return TreeWalk(folder, turn).Walk();
}
