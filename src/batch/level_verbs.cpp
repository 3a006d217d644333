#include "batch/level_verbs.h"

#include "level/level_bytes.h"
#include "level/level_files.h"

#include <algorithm>

namespace {

/// Reads the one level that a verb works on and hands it on.
VerbResult OnLevel(const char* verb, const QStringList& arguments, VerbStreams& streams,
                   void (*print)(const LevelRecord&, QTextStream&))
{
    if (arguments.size() != 1)
        return WrongUsage(verb, QStringLiteral("one file is wanted"), streams);
    const Result<LevelFile> level = ReadLevelFile(arguments.first());
    if (!level)
        return Failed(level.error(), streams);
    print(level->Record, streams.Out);
    return VerbDone;
}

void PrintInfo(const LevelRecord& level, QTextStream& out)
{
    const LevelInfo& info = level.Info;
    const std::pair<const char*, QString> lines[] = {
        {"version", info.Version},
        {"name", info.Cavename},
        {"author", info.Author},
        {"width", info.Width},
        {"height", info.Height},
        {"size", info.Mapsize},
        {"bit", CellBytes(info) == 2 ? QStringLiteral("4bit") : QStringLiteral("2bit")},
        {"time", info.Time},
        {"count", info.Count},
        {"form", level.Form},
    };
    for (const auto& [key, value] : lines)
        out << key << ": " << value << '\n';
}

void PrintMap(const LevelRecord& level, QTextStream& out)
{
    for (int y = 0; y < level.Map.Height(); ++y)
        for (int x = 0; x < level.Map.Width(); ++x)
            out << level.Map.At(x, y) << (x + 1 < level.Map.Width() ? ' ' : '\n');
}

/// What a save of the unchanged level would write.
Result<QByteArray> SavedBytes(const LevelFile& level)
{
    const qsizetype mapEnd = level.Record.MapEnd;
    Result<QByteArray> saved = PatchLevel(level.Record, QByteArrayView(level.Bytes).first(mapEnd));
    if (saved)
        saved->append(QByteArrayView(level.Bytes).sliced(mapEnd));
    return saved;
}

struct VerifyCount
{
    int Same = 0, Different = 0, NoLevel = 0;
};

void VerifyOne(const QString& path, VerifyCount& count, QTextStream& out)
{
    const Result<LevelFile> level = ReadLevelFile(path);
    const Result<QByteArray> saved = level ? SavedBytes(*level) : tl::unexpected(level.error());
    if (!saved) {
        ++count.NoLevel;
        out << path << ": no level: " << saved.error().Reason << '\n';
        return;
    }
    if (*saved == level->Bytes) {
        ++count.Same;
        return;
    }
    ++count.Different;
    const auto [from, other] =
        std::mismatch(saved->cbegin(), saved->cend(), level->Bytes.cbegin(), level->Bytes.cend());
    out << path << ": differs from byte " << from - saved->cbegin() << " on\n";
}

} // namespace

VerbResult LevelInfoVerb(const QStringList& arguments, VerbStreams& streams)
{
    return OnLevel("level info", arguments, streams, PrintInfo);
}

VerbResult LevelMapVerb(const QStringList& arguments, VerbStreams& streams)
{
    return OnLevel("level map", arguments, streams, PrintMap);
}

VerbResult LevelVerifyVerb(const QStringList& arguments, VerbStreams& streams)
{
    if (arguments.isEmpty())
        return WrongUsage("level verify", QStringLiteral("a file is wanted"), streams);
    VerifyCount count;
    for (const QString& path : arguments)
        VerifyOne(path, count, streams.Out);
    streams.Out << arguments.size() << " files: " << count.Same << " the same, " << count.Different << " different, "
                << count.NoLevel << " no level\n";
    return count.NoLevel ? VerbFailed : count.Different ? VerbFound : VerbDone;
}
