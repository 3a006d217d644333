#include "services/packing_list.h"

#include "platform/files/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <dirent.h>
#include <memory>

namespace {

/// A name in the folder that is not in the encoding of the system, as old ones are; lists leave it out. Empty if all
/// names can be told.
QString NameInOtherEncoding(const QString& folder)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(QFile::encodeName(folder)), closedir);
    while (const dirent* entry = open ? readdir(open.get()) : nullptr)
        if (QFile::encodeName(QFile::decodeName(entry->d_name)) != entry->d_name)
            return QString::fromLatin1(entry->d_name);
    return {};
}

class FolderWalk
{
public:
    FolderWalk(const QString& folder, const QString& archive, const CountedTurn& callback, const UnpackLimits& most)
        : top(paths::Canonical(folder)), own(paths::Canonical(archive)), turn(callback), limits(most)
    {
    }

    Result<> Walk(const QString& folder, const QString& name)
    {
        const QString real = paths::Canonical(folder);
        if (inside.contains(real))
            return Fail(folder, QStringLiteral("The link leads to a folder that it lies in."));
        inside.append(real);
        parts.push_back({name, EmptyFolder{}});
        const QDir dir(folder);
        if (!dir.isReadable())
            return Fail(folder, qt_error_string(EACCES));
        if (const QString other = NameInOtherEncoding(folder); !other.isEmpty())
            return Fail(folder, QStringLiteral("The name of a file in it is not in this system's encoding: ") + other);
        const auto all = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
        for (const QFileInfo& entry : dir.entryInfoList(all, QDir::Name))
            if (Result<> taken = Take(entry, name); !taken)
                return taken;
        inside.removeLast();
        return {};
    }

    std::vector<ZipPart> parts;

private:
    Result<> Take(const QFileInfo& entry, const QString& above)
    {
        const QString path = entry.filePath();
        if (turn && !turn(0, 1))
            return Stopped(path);
        if (entry.fileName().contains(u'\\')) // it would come out as a folder
            return Fail(path, QStringLiteral("A name with a backslash cannot stand in an archive."));
        if (entry.isSymLink() && !paths::Closed(paths::Canonical(path)).startsWith(paths::Closed(top)))
            return Fail(path, QStringLiteral("The link leads out of the folder."));
        if (entry.isDir())
            return Walk(path, above + entry.fileName() + QLatin1Char('/'));
        if (!entry.isFile())
            return Fail(path, qt_error_string(entry.exists() ? ENODEV : ENOENT));
        if (paths::FileNameOfPath(own) == entry.fileName() && paths::Canonical(path) == own)
            return {};
        bytes += entry.size();
        parts.push_back({above + entry.fileName(), PackedFile{path}});
        if (bytes > limits.Bytes || parts.size() > size_t(limits.Entries))
            return Fail(top, QStringLiteral("The folder is too large for an archive."));
        return {};
    }

    const QString top, own;
    const CountedTurn& turn;
    const UnpackLimits& limits;
    qint64 bytes = 0;
    QStringList inside; ///< the folders that the walk is in, without links
};

} // namespace

Result<std::vector<ZipPart>> PackingList(const QString& folder, const QString& archive, const CountedTurn& turn,
                                         const UnpackLimits& limits)
{
    FolderWalk walk(folder, archive, turn, limits);
    return walk.Walk(folder, QDir(folder).dirName() + QLatin1Char('/')).map([&] { return std::move(walk.parts); });
}
