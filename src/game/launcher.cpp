#include "game/launcher.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/run_scope.h"
#include "game/game_folders.h"
#include "game/game_messages.h"
#include "game/game_state.h"
#include "game/game_words.h"
#include "game/games.h"
#include "game/scratch_home.h"
#include "platform/files/paths.h"

#include <QFile>
#include <array>

namespace {

constexpr qint64 DumpLimit = 60'000; // ms

constexpr std::array Dumps = {
    DumpRow{"graphics", ModeGfx}, DumpRow{"sounds", ModeSfx},   DumpRow{"music", ModeMus},
    DumpRow{"helptext", ModeHlt}, DumpRow{"helpanim", ModeHla}, DumpRow{"editor", ModeEdi},
};

/// The main window takes no input meanwhile.
class DisabledScope
{
public:
    explicit DisabledScope(bool keepEnabled) : disabled(!keepEnabled)
    {
        if (disabled)
            Busy().SetEnabled(false);
    }
    ~DisabledScope()
    {
        if (disabled)
            Busy().SetEnabled(true);
    }
    DisabledScope(const DisabledScope&) = delete;
    DisabledScope& operator=(const DisabledScope&) = delete;

private:
    bool disabled;
};

/// What an earlier run has left must not be taken for that of this one.
void EmptyOutputFiles()
{
    QFile::remove(PrintedFile());
    QFile::remove(ErrorLogFile());
}

void WriteOutputFile(const QString& path, const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return;
    if (const Result<> written = paths::WriteWhole(path, bytes); !written)
        ShowFailure(written.error());
}

void WriteOutputFiles(const GameReport& report)
{
    const GameOutput parted = PartedOutput(report.Printed, CurrentGameMarks());
    WriteOutputFile(PrintedFile(), parted.Printed);
    WriteOutputFile(ErrorLogFile(), parted.Messages + report.Errors);
}

void TellEnd(const GameReport& report)
{
    if (report.End == GameEnd::Stopped)
        ShowNotice(QStringLiteral("The game was ended."));
    else
        TellTrouble(report.Crashed, report.ExitCode);
}

Result<GameReport> Play(RunScope& scope)
{
    GameRun run;
    run.Program = Frame.Settings.RNDPath;
    run.Arguments = GameInUse().Arguments;
    return RunGame(run, scope);
}

} // namespace

QStringList CommandWords(const QString& line)
{
    QStringList words;
    QString word;
    bool quoted = false, begun = false;
    for (const QChar c : line) {
        if (c == u'"') {
            quoted = !quoted;
            begun = true;
        } else if (c.isSpace() && !quoted) {
            if (begun)
                words << std::exchange(word, {});
            begun = false;
        } else {
            word += c;
            begun = true;
        }
    }
    if (begun)
        words << word;
    return words;
}

const DumpRow& DumpOf(int dumpIndex)
{
    return Dumps.at(size_t(dumpIndex - 1));
}

Result<GameReport> RunDump(const QString& program, int dumpIndex, RunScope& scope, qint64 limitMs)
{
    const auto home = ScratchHome::Make();
    if (!home)
        return tl::unexpected(home.error());
    GameRun run;
    run.Program = program;
    run.Arguments = CommandWords(Frame.Settings.ComType.at(size_t(dumpIndex)));
    run.Home = home->Home();
    run.HeldFile = home->HeldFile();
    run.Unseen = true;
    run.LimitMs = limitMs;
    return RunGame(run, scope);
}

std::optional<GameReport> LaunchGame(int dumpIndex, bool keepEnabled)
{
    StopPreview();
    if (!IsRndPathSet())
        return {};
    const QString program = Frame.Settings.RNDPath;
    paths::ChangeToFolder(program);
    EmptyOutputFiles();
    Result<GameReport> report = [&] {
        RunScope scope(RunKind::Game, QStringLiteral("Rocks'n'Diamonds"));
        const DisabledScope disabled(keepEnabled);
        return dumpIndex > 0 ? RunDump(program, dumpIndex, scope, DumpLimit) : Play(scope);
    }();
    if (report)
        WriteOutputFiles(*report);
    else
        ShowFailure(report.error());
    if (dumpIndex == 0) {
        Panes().FocusPane();
        paths::ChangeToFolder(Frame.CurrentFolder);
    }
    if (!report)
        return {};
    if (dumpIndex == 0) {
        Words().BeginRun();
        ShowGameWords(FindingsOf(report->Printed, CurrentGameMarks()), SetFolderOf(Frame.CurrentFolder));
    }
    TellEnd(*report);
    return std::move(*report);
}

void RunGameCommand()
{
    LaunchGame(0, false);
}
