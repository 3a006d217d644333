#include "sets/first_levels.h"

#include "frame/media/media_lists.h"
#include "level/level_bytes.h"
#include "level/level_files.h"
#include "level/level_folder.h"
#include "level/level_header.h"
#include "platform/archives/zip_archive.h"
#include "platform/files/paths.h"
#include "sets/set_tree.h"

#include <algorithm>

namespace {

constexpr qint64 LargestZippedLevel = qint64(16) << 20;

/// The names of up to `most` levels go through `read`, which gives a level or nothing.
template <class Read>
std::vector<FirstLevel> ReadFirst(const QStringList& names, size_t most, Read read)
{
    std::vector<FirstLevel> levels;
    for (const QString& name : names) {
        if (levels.size() == most)
            break;
        Result<LevelRecord> level = read(name);
        if (level)
            levels.push_back({name, level->Info.Cavename, std::move(level->Map)});
    }
    return levels;
}

std::vector<FirstLevel> OfArchive(const SetNode& node, size_t most)
{
    const Result<ZipArchive> archive = ZipArchive::Open(node.Key);
    if (!archive)
        return {};
    QStringList names;
    QString top;
    for (const ZipEntry& entry : archive->Entries()) {
        const QString name = paths::FileNameOfPath(entry.Name);
        if (entry.Name.count(u'/') == 1 && name.endsWith(QLatin1String(".level"), Qt::CaseInsensitive)) {
            names << name;
            top = entry.Name.chopped(name.size());
        }
    }
    std::sort(names.begin(), names.end(), NaturallyBefore);
    return ReadFirst(names, most, [&](const QString& name) {
        return archive->Read(archive->Find(top + name), LargestZippedLevel).and_then([](const QByteArray& bytes) {
            return ParseLevel(bytes, ReadLevelOffsets);
        });
    });
}

} // namespace

std::vector<FirstLevel> FirstLevelsOf(const SetNode& node, size_t most)
{
    if (node.IsZipped())
        return OfArchive(node, most);
    return ReadFirst(LevelsIn(node.Key).value_or(QStringList()), most, [&](const QString& name) {
        return ReadLevelFile(paths::Closed(node.Key) + name).map([](LevelFile level) {
            return std::move(level.Record);
        });
    });
}
