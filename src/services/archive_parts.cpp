#include "services/archive_parts.h"

#include "platform/files/byte_file.h"
#include "platform/files/paths.h"

#include <QHash>
#include <algorithm>

Result<std::optional<ZipArchive>> ArchiveToChange(const QString& path)
{
    if (!paths::FileExists(path))
        return std::optional<ZipArchive>();
    return ZipArchive::Open(path).and_then([&](ZipArchive archive) -> Result<std::optional<ZipArchive>> {
        const auto& entries = archive.Entries();
        if (std::any_of(entries.begin(), entries.end(), [](const ZipEntry& entry) { return entry.Encrypted; }))
            return Fail(path, QStringLiteral("The archive is encrypted."));
        const QByteArray start = ByteFile(path).Read(0, 4).value_or(QByteArray());
        if (start != "PK\3\4" && start != "PK\5\6") // what stands there, such as a program, would be lost
            return Fail(path, QStringLiteral("The archive begins with something else."));
        return std::optional<ZipArchive>(std::move(archive));
    });
}

std::vector<ZipPart> PartsWith(const std::optional<ZipArchive>& archive, std::vector<ZipPart> added,
                               Qt::CaseSensitivity letters)
{
    const auto key = [letters](const QString& name) {
        return letters == Qt::CaseSensitive ? name : name.toCaseFolded();
    };
    QHash<QString, size_t> places;
    std::vector<ZipPart> parts;
    const size_t kept = archive ? archive->Entries().size() : 0;
    for (size_t i = 0; i < kept; ++i) {
        parts.push_back({archive->Entries()[i].Name, KeptEntry{int(i)}});
        places.insert(key(parts.back().Name), i);
    }
    for (ZipPart& part : added) {
        const auto place = places.constFind(key(part.Name));
        if (place != places.cend()) {
            parts[*place] = std::move(part);
        } else {
            places.insert(key(part.Name), parts.size());
            parts.push_back(std::move(part));
        }
    }
    return parts;
}

std::vector<ZipPart> PartsWithout(const ZipArchive& archive, int entry)
{
    std::vector<ZipPart> parts;
    for (int i = 0; i < int(archive.Entries().size()); ++i)
        if (i != entry)
            parts.push_back({archive.Entries()[size_t(i)].Name, KeptEntry{i}});
    return parts;
}

Result<> WriteParts(const QString& path, const std::optional<ZipArchive>& archive, const std::vector<ZipPart>& parts,
                    const CountedTurn& turn)
{
    return WriteZip(path, parts, archive ? &*archive : nullptr, turn);
}
