#include "batch/set_verbs.h"

#include "batch/parsed_arguments.h"
#include "frame/frame_state.h"
#include "frame/run_scope.h"
#include "game/game_messages.h"
#include "game/game_program.h"
#include "game/launcher.h"
#include "platform/files/paths.h"
#include "sets/get_files.h"
#include "sets/make_set.h"
#include "sets/set_archives.h"

#include <QFileInfo>
#include <algorithm>
#include <map>

namespace {

constexpr qint64 SetDumpLimit = 60'000; // ms

/// Nothing has changed, and why.
VerbResult Unchanged(const Failure& failure, VerbStreams& streams)
{
    Failed(failure, streams);
    return VerbFound;
}

QString AbsoluteFolder(const QString& told)
{
    const QString existing = paths::Existing(told);
    return QFileInfo(existing.isEmpty() ? told : existing).absoluteFilePath();
}

/// Ticks what the words of "--with" name; the word that names nothing, or an empty text.
QString TakeExtras(const ParsedArguments& call, NewSet& set)
{
    const auto& rows = SetExtras();
    if (!call.Has("--with")) {
        std::transform(rows.begin(), rows.end(), set.Extras.begin(),
                       [](const SetExtraRow& row) { return row.DumpIndex == 0; });
        return {};
    }
    set.Extras.fill(false);
    for (const QString& word : call.Options.value(QStringLiteral("--with")).split(u',', Qt::SkipEmptyParts)) {
        const auto row = std::find_if(rows.begin(), rows.end(), [&](const SetExtraRow& one) {
            return word.trimmed() == QLatin1String(one.Word);
        });
        if (row == rows.end())
            return word;
        set.Extras.at(size_t(row - rows.begin())) = true;
    }
    return {};
}

/// What is too long for the wizard's fields too; empty if nothing is.
QString TooLong(const NewSet& set)
{
    const struct
    {
        const char* Option;
        const QString& Text;
        int Longest;
    } texts[] = {{"--title", set.GameName, LongestGameName},
                 {"--short", set.ShortName, LongestShortName},
                 {"--author", set.Author, LongestAuthor}};
    for (const auto& [option, text, longest] : texts)
        if (text.size() > longest)
            return QStringLiteral("%1 takes %2 characters at most").arg(QLatin1StringView(option)).arg(longest);
    return {};
}

/// What a call of "set new" wants; false: what is wrong was told.
bool TakeNewSet(const QStringList& arguments, NewSet& set, QString& program, VerbStreams& streams)
{
    const ParsedArguments call = ParseArguments(
        arguments,
        {{"--title", true}, {"--short", true}, {"--author", true}, {"--in", true}, {"--with", true}, {"--game", true}});
    const auto value = [&](const char* option) { return call.Options.value(QLatin1StringView(option)); };
    set.GameName = NewSetText(value("--title"));
    set.ShortName = FilterFileName(NewSetText(value("--short")));
    set.Author = NewSetText(value("--author"));
    set.Path = value("--in").isEmpty() ? QString() : AbsoluteFolder(value("--in"));
    const QString unknown = TakeExtras(call, set);
    const QString wrong = !call.Wrong.isEmpty() ? call.Wrong
                          : !set.IsFinished() || !call.Plain.isEmpty()
                              ? QStringLiteral("--title, --short, --author and --in are wanted, and nothing else")
                          : unknown.isEmpty() ? TooLong(set)
                                              : unknown + QStringLiteral(": there is no such extra");
    if (!wrong.isEmpty()) {
        WrongUsage("set new", wrong, streams);
        return false;
    }
    if (const QString game = value("--game"); !game.isEmpty()) {
        program = AbsoluteFolder(game);
        UseGame(program); // in memory only: settings are read only here
    }
    return true;
}

/// Lets the game print all that is wanted before anything is made.
Result<std::map<int, QByteArray>> PrintDumps(const NewSet& set, const QString& program)
{
    std::map<int, QByteArray> printed;
    for (size_t extra = 0; extra < set.Extras.size(); ++extra) {
        const int index = SetExtras().at(extra).DumpIndex;
        if (!set.Extras.at(extra) || index == 0)
            continue;
        if (program.isEmpty())
            return Fail(QStringLiteral("RNDPath"), QStringLiteral("no game is set; name one with --game"));
        RunScope scope(RunKind::Game, QStringLiteral("Extract"));
        const auto report = RunDump(program, index, scope, SetDumpLimit);
        if (!report)
            return tl::unexpected(report.error());
        printed[index] = PartedOutput(report->Printed, CurrentGameMarks()).Printed;
        if (!report->Succeeded() || printed[index].isEmpty())
            return Fail(program,
                        QStringLiteral("the game printed no such conf: ") + QLatin1String(SetExtras().at(extra).Word));
    }
    return printed;
}

} // namespace

VerbResult SetNewVerb(const QStringList& arguments, VerbStreams& streams)
{
    NewSet set;
    QString program = Frame.Settings.RNDPath;
    if (!TakeNewSet(arguments, set, program, streams))
        return VerbFailed;
    const auto printed = PrintDumps(set, program);
    if (!printed)
        return Unchanged(printed.error(), streams);
    const auto made = MakeSet(set, [&](int index) { return Result<QByteArray>(printed->at(index)); });
    if (!made)
        return Unchanged(made.error(), streams);
    streams.Out << made->Folder << '\n';
    return VerbDone;
}

namespace {

/// The one path that a verb works on; empty if what is wrong was told.
QString TakePath(const char* verb, const QStringList& arguments, VerbStreams& streams)
{
    if (arguments.size() != 1 || arguments.first().isEmpty()) {
        WrongUsage(verb, QStringLiteral("one path is wanted"), streams);
        return {};
    }
    const QString path = AbsoluteFolder(arguments.first());
    return path.size() > 1 && path.endsWith(u'/') ? path.chopped(1) : path;
}

VerbResult TellSwapped(const Result<SwappedSet>& swapped, const QString& now, VerbStreams& streams)
{
    if (!swapped)
        return Unchanged(swapped.error(), streams);
    streams.Out << now << '\n';
    return swapped->OldFormStays ? Failed(swapped->Why, streams) : VerbDone;
}

/// Does a folder hold levels, or say of itself that it is a set? No other one is packed and removed.
bool IsLevelSet(const QString& folder)
{
    const FolderScan scan{QStringLiteral("*.level"), false, true};
    const auto levels = GetFiles(folder, scan);
    return paths::FileExists(paths::Closed(folder) + Frame.ConfNames.at(ModeLvl)) || (levels && !levels->empty());
}

} // namespace

VerbResult SetListVerb(const QStringList& arguments, VerbStreams& streams)
{
    const QString folder = TakePath("set list", arguments, streams);
    if (folder.isEmpty())
        return VerbFailed;
    if (!QFileInfo(folder).isDir())
        return Failed({folder, qt_error_string(ENOTDIR)}, streams);
    SetTree tree;
    tree.Fill(ScanSets({paths::Closed(folder)}).value_or(std::vector<SetNode>()));
    for (const SetNode& node : tree.Nodes())
        streams.Out << (node.IsZipped() ? "zip\t" : "folder\t") << node.Key << '\t' << node.Text << '\n';
    return VerbDone;
}

VerbResult SetZipVerb(const QStringList& arguments, VerbStreams& streams)
{
    const QString folder = TakePath("set zip", arguments, streams);
    if (folder.isEmpty())
        return VerbFailed;
    const QString archive = folder + QStringLiteral(".levzip");
    if (!QFileInfo(folder).isDir())
        return Failed({folder, qt_error_string(ENOTDIR)}, streams);
    if (QFileInfo::exists(archive))
        return Unchanged({archive, qt_error_string(EEXIST)}, streams);
    if (!IsLevelSet(folder))
        return Unchanged({folder, QStringLiteral("no level set: neither a level nor a levelinfo.conf in it")}, streams);
    return TellSwapped(ZipSet(folder, archive), archive, streams);
}

VerbResult SetUnzipVerb(const QStringList& arguments, VerbStreams& streams)
{
    const QString archive = TakePath("set unzip", arguments, streams);
    if (archive.isEmpty())
        return VerbFailed;
    if (!SetNode{archive, {}}.IsZipped() || !QFileInfo(archive).isFile())
        return Failed({archive, QStringLiteral("this is no .levzip file")}, streams);
    const QString folder = UnzippedFolder(archive);
    if (QFileInfo::exists(folder))
        return Unchanged({folder, qt_error_string(EEXIST)}, streams);
    return TellSwapped(UnzipSet(archive, false), folder, streams);
}
