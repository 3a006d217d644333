#include "platform/files/paths.h"
#include "services/archive_parts.h"
#include "services/archive_tool.h"

#include <algorithm>

namespace {

constexpr QLatin1StringView SourceName("basic.txt");

tl::unexpected<ResourceFailure> Fault(ResourceFault what, Failure why)
{
    return tl::unexpected(ResourceFailure{what, std::move(why)});
}

template <class T>
ResourceResult<T> Other(Result<T> result)
{
    return std::move(result).map_error([](Failure why) {
        return ResourceFailure{ResourceFault::Other, std::move(why)};
    });
}

/// Where the source stands first, an archive shows by its first bytes that it is a macro.
void PutSourceFirst(std::vector<ZipPart>& parts)
{
    const auto source = std::find_if(parts.begin(), parts.end(), [](const ZipPart& part) {
        return part.Name.compare(SourceName, Qt::CaseInsensitive) == 0;
    });
    if (source != parts.end())
        std::rotate(parts.begin(), source, source + 1);
}

Result<> Add(ZipPart part, const QString& archive)
{
    return ArchiveToChange(archive).and_then([&](const std::optional<ZipArchive>& old) {
        std::vector<ZipPart> added;
        added.push_back(std::move(part));
        std::vector<ZipPart> parts = PartsWith(old, std::move(added), Qt::CaseInsensitive);
        PutSourceFirst(parts);
        return WriteParts(archive, old, parts);
    });
}

/// The archive and the place of one resource in it.
struct Found
{
    ZipArchive Archive;
    int Entry;
};

ResourceResult<Found> Find(const QString& name, const QString& path)
{
    Result<ZipArchive> archive = ZipArchive::Open(path);
    if (!archive)
        return Fault(ResourceFault::Other, archive.error());
    const int entry = archive->Find(name);
    if (entry < 0 || archive->Entries()[size_t(entry)].IsFolder())
        return Fault(ResourceFault::NotFound, {path, QStringLiteral("No such entry: ") + name});
    return Found{std::move(*archive), entry};
}

} // namespace

ResourceResult<> AddToResource(const QString& told, const QString& archive)
{
    const QString file = paths::Existing(told);
    if (!paths::FileExists(file))
        return Fault(ResourceFault::CannotAdd, {told, qt_error_string(ENOENT)});
    if (paths::Canonical(file) == paths::Canonical(archive))
        return Fault(ResourceFault::CannotAdd, {file, QStringLiteral("An archive cannot hold itself.")});
    const Result<> added = Add({paths::FileNameOfPath(file), PackedFile{file}}, archive);
    if (added)
        return {};
    return Fault(added.error().Path == file ? ResourceFault::CannotAdd : ResourceFault::Other, added.error());
}

ResourceResult<> AddBytesToResource(const QString& name, const QByteArray& bytes, const QString& archive)
{
    return Other(Add({name, bytes}, archive));
}

ResourceResult<> ExtractFromResource(const QString& name, const QString& told, const QString& archive)
{
    const QString target = paths::ForWriting(told), folder = paths::FolderOfPath(target);
    if (!folder.isEmpty() && !paths::FolderExists(folder))
        return Fault(ResourceFault::NoOutputFolder, {folder, qt_error_string(ENOENT)});
    if (paths::FileNameOfPath(target).isEmpty())
        return Fault(ResourceFault::Other, {target, qt_error_string(EISDIR)});
    return Find(name, archive).and_then([&](const Found& found) {
        return Other(Unpack(found.Archive, {{found.Entry, paths::FileNameOfPath(target)}},
                            folder.isEmpty() ? QStringLiteral("./") : folder));
    });
}

ResourceResult<QByteArray> ReadResource(const QString& name, const QString& archive, qint64 limit)
{
    return Find(name, archive).and_then([&](const Found& found) {
        return Other(found.Archive.Read(found.Entry, limit));
    });
}

ResourceResult<> DeleteFromResource(const QString& name, const QString& path)
{
    Result<std::optional<ZipArchive>> archive = ArchiveToChange(path);
    if (!archive)
        return Fault(ResourceFault::Other, archive.error());
    const int entry = *archive ? (*archive)->Find(name) : -1;
    if (entry < 0)
        return Fault(ResourceFault::NotFound, {path, QStringLiteral("No such entry: ") + name});
    return Other(WriteParts(path, *archive, PartsWithout(**archive, entry)));
}

Result<ArchiveList> ListResource(const QString& path)
{
    return ZipArchive::Open(path).map([](const ZipArchive& archive) {
        ArchiveList names;
        for (const ZipEntry& entry : archive.Entries())
            if (!entry.IsFolder())
                names.append(entry.Name);
        return names;
    });
}
