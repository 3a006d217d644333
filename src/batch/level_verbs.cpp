#include "batch/level_verbs.h"

#include "batch/parsed_arguments.h"
#include "graphics/picture_files.h"
#include "level/level_bytes.h"
#include "level/level_diff.h"
#include "level/level_folder.h"
#include "level/level_palette.h"
#include "level/palette_maker.h"
#include "platform/files/paths.h"

#include <QDir>
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
    for (const auto& [key, value] : FieldsOf(level))
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

/// A text for one column of a table.
QString InColumn(QString text)
{
    return text.replace(u'\t', u' ');
}

void ListOne(const QString& name, const LevelRecord& level, QTextStream& out)
{
    const LevelInfo& info = level.Info;
    const QStringList columns = {LevelNumber(name),
                                 InColumn(info.Cavename),
                                 InColumn(info.Author),
                                 info.Width,
                                 info.Height,
                                 info.Time,
                                 info.Count,
                                 level.Form};
    out << columns.join(u'\t') << '\n';
}

/// The palette that a picture is wanted with; without a wish that of the level's folder.
Result<QImage> WantedPalette(const ParsedArguments& parsed, const QString& level)
{
    if (parsed.Has("--palette"))
        return ReadPalette(parsed.Options.value(QStringLiteral("--palette")));
    if (parsed.Has("--set"))
        return PaletteOfSet(parsed.Options.value(QStringLiteral("--set")), false).map([](const SetPalette& made) {
            return made.Palette;
        });
    const QString own = FindPalette(PaletteName(QDir::current().absoluteFilePath(level)));
    return ReadPalette(own.isEmpty() ? DefaultPalette() : own);
}

} // namespace

VerbResult LevelPictureVerb(const QStringList& arguments, VerbStreams& streams)
{
    const ParsedArguments parsed = ParseArguments(arguments, {{"--palette", true}, {"--set", true}});
    const bool ends = parsed.Plain.size() == 2 && FormOfName(parsed.Plain.at(1)) == PictureForm::Png;
    const QString wrong = !parsed.Wrong.isEmpty() ? parsed.Wrong
                          : !ends                 ? QStringLiteral("a level and a file that ends in .png are wanted")
                          : parsed.Has("--palette") && parsed.Has("--set")
                              ? QStringLiteral("one of --palette and --set is enough")
                              : QString();
    if (!wrong.isEmpty())
        return WrongUsage("level picture", wrong, streams);
    const Result<LevelFile> level = ReadLevelFile(parsed.Plain.first());
    if (!level)
        return Failed(level.error(), streams);
    const Result<QImage> palette = WantedPalette(parsed, parsed.Plain.first());
    if (!palette)
        return Failed(palette.error(), streams);
    const QImage picture = MapPicture(level->Record.Map, *palette);
    const Result<> written = WritePicture(parsed.Plain.at(1), picture, PcxDepth::Full);
    return written ? VerbDone : Failed(written.error(), streams);
}

VerbResult LevelListVerb(const QStringList& arguments, VerbStreams& streams)
{
    if (arguments.size() != 1)
        return WrongUsage("level list", QStringLiteral("one folder is wanted"), streams);
    const Result<QStringList> names = LevelsIn(arguments.first());
    if (!names)
        return Failed(names.error(), streams);
    VerbResult result = VerbDone;
    for (const QString& name : *names) {
        const Result<LevelFile> level = ReadLevelFile(paths::Closed(arguments.first()) + name);
        if (level) {
            ListOne(name, level->Record, streams.Out);
        } else {
            Failed(level.error(), streams);
            result = VerbFound;
        }
    }
    return result;
}

VerbResult LevelDiffVerb(const QStringList& arguments, VerbStreams& streams)
{
    if (arguments.size() != 2)
        return WrongUsage("level diff", QStringLiteral("two files are wanted"), streams);
    const Result<LevelFile> before = ReadLevelFile(arguments.first()), after = ReadLevelFile(arguments.last());
    for (const Result<LevelFile>* level : {&before, &after})
        if (!*level)
            return Failed(level->error(), streams);
    const QStringList lines = LevelDifferences(*before, *after);
    for (const QString& line : lines)
        streams.Out << line << '\n';
    return lines.isEmpty() ? VerbDone : VerbFound;
}

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
