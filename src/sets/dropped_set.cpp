#include "sets/dropped_set.h"

#include "frame/documents/documents.h"
#include "frame/frame_state.h"
#include "platform/archives/zip_archive.h"
#include "platform/files/paths.h"
#include "sets/set_archives.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <unistd.h>

namespace {

/// The one folder that an archive consists of, with a levelinfo.conf right in it.
Result<QString> FolderOfSet(const QString& path)
{
    const Result<ZipArchive> archive = ZipArchive::Open(path);
    if (!archive)
        return tl::unexpected(archive.error());
    const auto& entries = archive->Entries();
    const QString top = entries.front().Name.section(u'/', 0, 0);
    const bool isAlone = std::all_of(entries.begin(), entries.end(),
                                     [&](const ZipEntry& entry) { return entry.Name.startsWith(top + u'/'); });
    if (!isAlone || archive->Find(top + u'/' + Frame.ConfNames.at(ModeLvl)) < 0)
        return Fail(path, QStringLiteral("This archive is no level set: one folder with a levelinfo.conf in it."));
    return top;
}

} // namespace

Result<QString> TakeDroppedSet(const QString& path, const QStringList& roots)
{
    const auto isIn = [&](const QString& root) {
        return paths::Canonical(path).startsWith(paths::Canonical(root) + u'/');
    };
    if (path.endsWith(QLatin1String(".levzip"), Qt::CaseInsensitive) && std::any_of(roots.begin(), roots.end(), isIn))
        return path;
    const auto root = std::find_if(roots.rbegin(), roots.rend(),
                                   [](const QString& folder) { return access(QFile::encodeName(folder), W_OK) == 0; });
    if (root == roots.rend())
        return Fail(path, QStringLiteral("No folder of levels can be written."));
    return FolderOfSet(path).and_then([&](const QString& name) -> Result<QString> {
        const QString archive = *root + name + QStringLiteral(".levzip");
        if (QFileInfo::exists(archive) || QFileInfo::exists(UnzippedFolder(archive)))
            return Fail(archive, QStringLiteral("There is already a game with that name."));
        return paths::CopyFileTo(path, archive).map([&] { return archive; });
    });
}
