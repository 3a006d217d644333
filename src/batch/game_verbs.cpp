#include "batch/game_verbs.h"

#include "frame/frame_state.h"
#include "frame/run_scope.h"
#include "game/check_with_game.h"
#include "game/extract.h"
#include "game/game_messages.h"
#include "game/game_program.h"
#include "game/game_words.h"
#include "game/games.h"
#include "game/launcher.h"
#include "game/set_under_work.h"
#include "platform/files/paths.h"
#include "text/encoding.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

namespace {

/// What every verb of the game is called with.
struct GameCall
{
    QStringList Words; ///< arguments that are no options
    QString Program, Version;
    QStringList Arguments;
    qint64 MaxMs = 60'000;
    QElapsedTimer Began;

    qint64 Left() const { return qMax<qint64>(1, MaxMs - Began.elapsed()); }
    bool OutOfTime() const { return Began.elapsed() >= MaxMs; }
};

VerbResult OutOfTime(const GameCall& call, VerbStreams& streams)
{
    streams.Err << call.Program << ": not done after " << call.MaxMs / 1000 << " seconds\n";
    return VerbStopped;
}

/// The words and options of a call; false: what is wrong was told.
bool TakeOptions(const char* verb, const QStringList& arguments, qsizetype words, GameCall& call, VerbStreams& streams)
{
    call.Began.start();
    call.Program = Frame.Settings.RNDPath;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& word = arguments.at(i);
        if (!word.startsWith(QLatin1StringView("--"))) {
            call.Words << word;
            continue;
        }
        bool fine = ++i < arguments.size();
        if (fine && word == QLatin1StringView("--game"))
            call.Program = arguments.at(i);
        else if (fine && word == QLatin1StringView("--max-seconds"))
            call.MaxMs = arguments.at(i).toInt(&fine) * qint64(1000);
        else
            fine = false;
        if (!fine || call.MaxMs <= 0) {
            WrongUsage(verb, word + QStringLiteral(": this option is unknown, or its value is missing or wrong"),
                       streams);
            return false;
        }
    }
    if (call.Words.size() == words)
        return true;
    WrongUsage(verb, QStringLiteral("%1 arguments are wanted besides the options").arg(words), streams);
    return false;
}

/// Takes the call and proves the game. Anything but VerbDone was told.
VerbResult Prepare(const char* verb, const QStringList& arguments, qsizetype words, GameCall& call,
                   VerbStreams& streams)
{
    if (!TakeOptions(verb, arguments, words, call, streams))
        return VerbFailed;
    if (call.Program.isEmpty())
        return Failed({QStringLiteral("RNDPath"), QStringLiteral("no game is set; name one with --game")}, streams);
    const QString existing = paths::Existing(call.Program);
    call.Program = QFileInfo(existing.isEmpty() ? call.Program : existing).absoluteFilePath();
    UseGame(call.Program); // in memory only: settings are read only here
    call.Arguments = GameInUse().Arguments;
    const auto version = ProveGame(call.Program, call.Left());
    if (!version && call.OutOfTime())
        return OutOfTime(call, streams);
    if (!version)
        return Failed(version.error(), streams);
    call.Version = *version;
    return VerbDone;
}

int DumpIndexOf(const QString& kind)
{
    for (int index = 1; index <= DumpCount; ++index)
        if (kind == QLatin1String(DumpOf(index).Kind))
            return index;
    return 0;
}

QString FileText(const QByteArray& bytes)
{
    return QString::fromUtf8(FromFile(bytes, EncodingOf(bytes)));
}

QString FindingText(const PlacedFinding& placed, const QString& folder)
{
    const GameFinding& finding = placed.Finding;
    const QString file = finding.File.startsWith(folder) ? finding.File.mid(folder.size()) : finding.File;
    return (file.isEmpty() ? QStringLiteral("-") : file) + u':' + QString::number(placed.Line + 1) +
           QStringLiteral(": ") + finding.Key + QStringLiteral(": ") + finding.Text;
}

} // namespace

VerbResult GameInfoVerb(const QStringList& arguments, VerbStreams& streams)
{
    GameCall call;
    if (const VerbResult ready = Prepare("game info", arguments, 0, call, streams); ready != VerbDone)
        return ready;
    const bool hasLevels = paths::FolderExists(Frame.Settings.LevelsFolder);
    streams.Out << "version: " << call.Version
                << "\ndata: " << (hasLevels ? Frame.Settings.RndFolder : QStringLiteral("NA")) << '\n';
    return VerbDone;
}

VerbResult GameExtractVerb(const QStringList& arguments, VerbStreams& streams)
{
    GameCall call;
    if (const VerbResult ready = Prepare("game extract", arguments, 1, call, streams); ready != VerbDone)
        return ready;
    const int index = DumpIndexOf(call.Words.first());
    if (index == 0)
        return WrongUsage("game extract", QStringLiteral("there is no such kind of conf"), streams);
    RunScope scope(RunKind::Game, QStringLiteral("Extract"));
    const auto report = RunDump(call.Program, index, scope, call.Left());
    if (!report)
        return Failed(report.error(), streams);
    if (report->End == GameEnd::TimedOut)
        return OutOfTime(call, streams);
    const GameOutput parted = PartedOutput(report->Printed, CurrentGameMarks());
    if (!report->Succeeded() || parted.Printed.isEmpty())
        return Failed({call.Program, QStringLiteral("the game printed no such conf")}, streams);
    streams.Out << FileText(LiveEntries(parted.Printed));
    return VerbDone;
}

VerbResult GameCheckVerb(const QStringList& arguments, VerbStreams& streams)
{
    GameCall call;
    if (const VerbResult ready = Prepare("game check", arguments, 1, call, streams); ready != VerbDone)
        return ready;
    const QString folder = paths::Closed(QFileInfo(paths::Inside(call.Words.first())).absoluteFilePath());
    if (!paths::FileExists(folder + Frame.ConfNames.at(ModeLvl)))
        return Failed({folder, QStringLiteral("this folder holds no levelinfo.conf")}, streams);
    if (IsGroupOfSets(folder))
        return Failed({folder, QStringLiteral("this folder is a group of level sets")}, streams);
    RunScope scope(RunKind::Game, QStringLiteral("Check"));
    const SetWish wish{folder, {}, {}, false};
    const auto check = CheckSet(call.Program, call.Arguments, wish, scope, call.Left(), AuthorsText);
    if (!check)
        return Failed(check.error(), streams);
    for (const PlacedFinding& finding : check->Findings)
        streams.Out << FindingText(finding, folder) << '\n';
    if (check->End == GameEnd::TimedOut)
        return OutOfTime(call, streams);
    return check->Findings.empty() ? VerbDone : VerbFound;
}
