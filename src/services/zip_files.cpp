#include "platform/files/paths.h"
#include "services/archive_parts.h"
#include "services/archive_tool.h"
#include "services/packing_list.h"
#include "services/wildcard.h"

#include <QFileInfo>
#include <QHash>
#include <algorithm>

namespace {

/// The folders of an entry's name and the name itself.
QStringList Parts(QString name)
{
    return name.replace(QLatin1Char('\\'), QLatin1Char('/')).split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

/// What of an archive a command means.
class Pattern
{
public:
    explicit Pattern(const QString& told)
        : parts(Parts(told)), tree(told.endsWith(QLatin1Char('/')) || told.endsWith(QLatin1Char('\\')))
    {
    }

    bool KeepsFolders() const { return tree; }
    bool Fits(const ZipEntry& entry) const
    {
        const QStringList name = Parts(entry.Name);
        if (tree)
            return name.size() + entry.IsFolder() > parts.size() && BeginsAlike(name);
        if (entry.IsFolder() || parts.isEmpty() || name.isEmpty())
            return false;
        if (parts.size() == 1)
            return FitsWildcard(name.last(), parts.first());
        return name.size() == parts.size() && BeginsAlike(name);
    }

private:
    bool BeginsAlike(const QStringList& name) const
    {
        return name.size() >= parts.size() &&
               std::equal(parts.begin(), parts.end(), name.begin(),
                          [](const QString& part, const QString& own) { return FitsWildcard(own, part); });
    }

    const QStringList parts;
    const bool tree;
};

std::vector<int> Chosen(const ZipArchive& archive, const QString& told, const Pattern& pattern)
{
    if (!pattern.KeepsFolders()) {
        QString name = told;
        const int exact = archive.Find(name.replace(QLatin1Char('\\'), QLatin1Char('/')));
        if (exact >= 0)
            return {exact};
    }
    std::vector<int> chosen;
    for (int i = 0; i < int(archive.Entries().size()); ++i)
        if (pattern.Fits(archive.Entries()[size_t(i)]))
            chosen.push_back(i);
    return chosen;
}

/// Where the entries go. Of two for one place the later counts.
Result<std::vector<Unpacked>> Destinations(const ZipArchive& archive, const std::vector<int>& chosen, bool keepFolders)
{
    std::vector<Unpacked> files;
    QHash<QString, size_t> places;
    for (const int entry : chosen) {
        const QString& name = archive.Entries()[size_t(entry)].Name;
        const std::optional<QString> safe = SafeName(name);
        if (!safe)
            return Fail(archive.Path(), QStringLiteral("The archive holds a name that leads elsewhere: ") + name);
        const QString path = keepFolders ? *safe : paths::FileNameOfPath(*safe);
        const auto place = places.constFind(path);
        if (place != places.cend()) {
            files[*place].Entry = entry;
        } else {
            places.insert(path, files.size());
            files.push_back({entry, path});
        }
    }
    return files;
}

Result<> WriteAdded(const QString& path, std::vector<ZipPart> added, const CountedTurn& turn)
{
    return ArchiveToChange(path).and_then([&](const std::optional<ZipArchive>& old) {
        return WriteParts(path, old, PartsWith(old, std::move(added), Qt::CaseSensitive), turn);
    });
}

} // namespace

Result<> ZipFiles(const QString& told, const QString& archive, const CountedTurn& turn, const UnpackLimits& limits)
{
    QString source = paths::Existing(told);
    while (source.size() > 1 && source.endsWith(QLatin1Char('/')))
        source.chop(1);
    const QFileInfo info(source);
    if (source.isEmpty() || !(info.isDir() || info.isFile()))
        return Fail(told, qt_error_string(source.isEmpty() ? ENOENT : ENODEV));
    if (info.isDir())
        return PackingList(source, archive, turn, limits).and_then([&](std::vector<ZipPart> parts) {
            return WriteAdded(archive, std::move(parts), turn);
        });
    if (paths::Canonical(source) == paths::Canonical(archive))
        return Fail(source, QStringLiteral("An archive cannot hold itself."));
    std::vector<ZipPart> parts;
    parts.push_back({info.fileName(), PackedFile{source}});
    return WriteAdded(archive, std::move(parts), turn);
}

Result<> UnzipFiles(const QString& told, const QString& path, const QString& target, const CountedTurn& turn,
                    const UnpackLimits& limits)
{
    const Result<ZipArchive> archive = ZipArchive::Open(path);
    if (!archive)
        return tl::unexpected(archive.error());
    const Pattern pattern(told);
    const std::vector<int> chosen = Chosen(*archive, told, pattern);
    if (chosen.empty())
        return Fail(path, QStringLiteral("No such entry: ") + told);
    return Destinations(*archive, chosen, pattern.KeepsFolders()).and_then([&](const std::vector<Unpacked>& files) {
        return Unpack(*archive, files, target, turn, limits);
    });
}

Result<ArchiveList> ListZip(const QString& path)
{
    return ZipArchive::Open(path).map([](const ZipArchive& archive) {
        ArchiveList names;
        for (const ZipEntry& entry : archive.Entries())
            names.append(entry.Name);
        const auto extension = [](const QString& name) { return QFileInfo(name).suffix().toCaseFolded(); };
        std::stable_sort(names.begin(), names.end(),
                         [&](const QString& left, const QString& right) { return extension(left) < extension(right); });
        return names;
    });
}
