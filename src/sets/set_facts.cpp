#include "sets/set_facts.h"

#include "frame/documents/documents.h"
#include "frame/frame_state.h"
#include "game/finding_places.h"
#include "platform/archives/zip_archive.h"
#include "platform/files/paths.h"
#include "sets/set_tree.h"
#include "text/encoding.h"

#include <QDirIterator>

namespace {

constexpr QLatin1StringView TapeEnd(".tape");
constexpr qint64 LargestLevelinfo = qint64(1) << 20;
const QString NotThere = QStringLiteral("not there any more");

/// One more file, by its path in the set.
void Count(const QString& path, qint64 bytes, SetFacts& facts)
{
    ++facts.Files;
    facts.Bytes += bytes;
    facts.Levels += path.endsWith(QLatin1String(".level"), Qt::CaseInsensitive) && !path.contains(u'/');
    const QString name = paths::FileNameOfPath(path);
    if (name.endsWith(TapeEnd, Qt::CaseInsensitive))
        facts.Tapes << name.chopped(TapeEnd.size());
}

void TakeLevelinfo(const QByteArray& bytes, SetFacts& facts)
{
    const ConfIndex index(FromFile(bytes, EncodingOf(bytes)));
    facts.Name = index.ValueOfKey(QStringLiteral("name"));
    facts.Author = index.ValueOfKey(QStringLiteral("author"));
}

SetFacts FactsOfFolder(const QString& folder)
{
    SetFacts facts;
    if (!paths::FolderExists(folder))
        facts.Trouble = NotThere;
    const QString top = paths::Closed(folder);
    TakeLevelinfo(paths::ReadWhole(top + Frame.ConfNames.at(ModeLvl), LargestLevelinfo).value_or(QByteArray()), facts);
    QDirIterator all(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext() && !facts.More) {
        const QString path = all.next();
        facts.More = facts.Files == MostCountedFiles;
        if (!facts.More)
            Count(path.mid(top.size()), all.fileInfo().size(), facts);
    }
    return facts;
}

SetFacts FactsOfArchive(const SetNode& node)
{
    SetFacts facts;
    const Result<ZipArchive> archive = ZipArchive::Open(node.Key);
    if (!archive) {
        facts.Trouble = paths::FileExists(node.Key) ? archive.error().Reason : NotThere;
        return facts;
    }
    for (const ZipEntry& entry : archive->Entries())
        if (!entry.IsFolder())
            Count(entry.Name.mid(entry.Name.indexOf(u'/') + 1), entry.Size, facts);
    const int conf = archive->Find(node.OwnName() + u'/' + Frame.ConfNames.at(ModeLvl));
    if (conf >= 0)
        TakeLevelinfo(archive->Read(conf, LargestLevelinfo).value_or(QByteArray()), facts);
    return facts;
}

} // namespace

SetFacts FactsOf(const SetNode& node)
{
    SetFacts facts = node.IsZipped() ? FactsOfArchive(node) : FactsOfFolder(node.Key);
    facts.Tapes.sort();
    facts.Tapes.removeDuplicates();
    return facts;
}
