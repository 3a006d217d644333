#include "sets/get_files.h"

#include "platform/files/paths.h"
#include "services/wildcard.h"

#include <QFile>
#include <QSet>
#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace {

/// A folder, whatever it is called.
using FolderIdentity = std::pair<quint64, quint64>;

struct Listing
{
    QStringList Files, Folders, LinkedFolders; ///< in the order of their names
};

class ScanWalk
{
public:
    ScanWalk(const FolderScan& wanted, const CountedTurn& callback) : scan(wanted), turn(callback) {}

    Result<> Walk(const QString& folder, bool byLink)
    {
        const std::optional<FolderIdentity> identity = IdentityOf(folder);
        if (!identity || (byLink && !MayFollow(*identity)))
            return {};
        if (turn && !turn(++seen, 0))
            return Stopped(folder);
        const Listing inner = List(folder);
        if (!inner.Files.isEmpty())
            found.push_back({folder, inner.Files});
        if (!scan.Recursive)
            return {};
        inside.push_back(*identity);
        for (const bool linked : {false, true})
            for (const QString& name : linked ? inner.LinkedFolders : inner.Folders) {
                if (scan.FirstFolderOnly && !found.empty())
                    return {};
                if (Result<> walked = Walk(folder + name + u'/', byLink || linked); !walked)
                    return walked;
            }
        inside.pop_back();
        return {};
    }

    std::vector<ScannedFolder> found;

private:
    static std::optional<FolderIdentity> IdentityOf(const QString& folder)
    {
        struct stat facts
        {
        };
        if (stat(QFile::encodeName(folder), &facts) != 0)
            return {};
        return FolderIdentity(quint64(facts.st_dev), quint64(facts.st_ino));
    }

    bool MayFollow(const FolderIdentity& identity)
    {
        if (std::find(inside.begin(), inside.end(), identity) != inside.end() || followed.contains(identity))
            return false;
        followed.insert(identity);
        return true;
    }

    Listing List(const QString& folder) const
    {
        Listing listing;
        const QByteArray path = QFile::encodeName(folder);
        const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(path), closedir);
        while (const dirent* entry = open ? readdir(open.get()) : nullptr) {
            if (entry->d_name[0] == '.') // what hides is nobody's game, our own work in progress above all
                continue;
            const QString name = QFile::decodeName(entry->d_name);
            unsigned char kind = entry->d_type;
            struct stat facts
            {
            };
            if (kind == DT_UNKNOWN && fstatat(dirfd(open.get()), entry->d_name, &facts, AT_SYMLINK_NOFOLLOW) == 0)
                kind = static_cast<unsigned char>(IFTODT(facts.st_mode));
            const bool isLink = kind == DT_LNK;
            if (isLink && fstatat(dirfd(open.get()), entry->d_name, &facts, 0) == 0)
                kind = static_cast<unsigned char>(IFTODT(facts.st_mode));
            if (kind == DT_DIR)
                (isLink ? listing.LinkedFolders : listing.Folders) << name;
            else if (kind == DT_REG && (listing.Files.isEmpty() || !scan.OneIsEnough) &&
                     FitsWildcard(name, scan.Pattern))
                listing.Files << name;
        }
        for (QStringList* names : {&listing.Files, &listing.Folders, &listing.LinkedFolders})
            names->sort();
        return listing;
    }

    const FolderScan& scan;
    const CountedTurn& turn;
    int seen = 0;
    std::vector<FolderIdentity> inside;
    QSet<FolderIdentity> followed;
};

} // namespace

Result<std::vector<ScannedFolder>> GetFiles(const QString& folder, const FolderScan& scan, const CountedTurn& turn)
{
    ScanWalk walk(scan, turn);
    return walk.Walk(paths::Closed(folder), false).map([&] { return std::move(walk.found); });
}

Result<std::vector<SetNode>> ScanSets(const QStringList& roots, const CountedTurn& turn)
{
    std::vector<SetNode> nodes;
    const FolderScan levels{QStringLiteral("*.level"), true, true}, zipped{QStringLiteral("*.levzip")};
    for (const QString& root : roots) {
        const auto games = GetFiles(root, levels, turn);
        const auto archives = games ? GetFiles(root, zipped, turn) : games;
        if (!archives)
            return tl::unexpected(archives.error());
        for (const ScannedFolder& game : *games)
            nodes.push_back(NodeOf(game.Folder.chopped(1), roots));
        for (const ScannedFolder& hit : *archives)
            for (const QString& name : hit.Files)
                nodes.push_back(NodeOf(hit.Folder + name, roots));
    }
    return nodes;
}
