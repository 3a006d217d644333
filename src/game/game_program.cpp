#include "game/game_program.h"

#include "conf/line_pass.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/run_scope.h"
#include "game/game_folders.h"
#include "game/run_game.h"
#include "game/scratch_home.h"
#include "platform/files/paths.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

namespace {

Result<> MayRun(const QString& program)
{
    const QFileInfo file(program);
    if (!file.exists())
        return Fail(program, qt_error_string(ENOENT));
    return file.isFile() && file.isExecutable() ? Result<>() : Fail(program, QStringLiteral("the file is no program"));
}

void KeepProof(const QByteArray& printed)
{
    const QString name = GameCompat(QStringLiteral("FileNameCheck3"));
    if (!name.isEmpty() && !Frame.SettingsReadOnly)
        static_cast<void>(paths::WriteWhole(Frame.DataFolder + name, printed)); // nobody reads it but a person
}

QStringList UsualFolders()
{
    QStringList folders = qEnvironmentVariable("PATH").split(u':', Qt::SkipEmptyParts);
    folders << QStringLiteral("/usr/games") << QStringLiteral("/usr/local/games") << QStringLiteral("/usr/local/bin")
            << QStringLiteral("/usr/bin");
    for (int i = 1;; ++i) {
        const QString told = paths::Inside(GameCompat(QStringLiteral("GameFolder%1").arg(i)));
        if (told.isEmpty())
            return folders;
        if (told.startsWith(u'/'))
            folders << told;
    }
}

} // namespace

QString VersionIn(const QByteArray& printed, const QString& banner)
{
    const QRegularExpression form(u'^' + QRegularExpression::escape(banner) + QStringLiteral(" (\\d+(?:\\.\\d+)*)"));
    qsizetype from = 0;
    while (from < printed.size()) {
        const auto match = form.match(QString::fromUtf8(TakeLine(printed, from).Text));
        if (match.hasMatch())
            return match.captured(1);
    }
    return {};
}

Result<QString> ProveGame(const QString& program, qint64 limitMs)
{
    if (const Result<> may = MayRun(program); !may)
        return tl::unexpected(may.error());
    const auto home = ScratchHome::Make();
    if (!home)
        return tl::unexpected(home.error());
    GameRun run;
    run.Program = program;
    run.Arguments = {GameCompat(QStringLiteral("FileNameCheck2"), QStringLiteral("--version"))};
    run.Home = home->Home();
    run.Unseen = true;
    run.HeldFile = home->HeldFile();
    run.LimitMs = limitMs;
    RunScope scope(RunKind::Game, QStringLiteral("Is this Rocks'n'Diamonds?"));
    const auto report = RunGame(run, scope);
    if (!report)
        return tl::unexpected(report.error());
    KeepProof(report->Printed);
    if (report->End == GameEnd::TimedOut)
        return Fail(program, QStringLiteral("the program does not tell its version, and was ended"));
    if (report->End == GameEnd::Stopped)
        return Fail(program, QStringLiteral("the question for its version was stopped"));
    QString version = VersionIn(report->Printed, GameCompat(QStringLiteral("Banner")));
    if (version.isEmpty())
        return Fail(program, QStringLiteral("the program is not Rocks'n'Diamonds, or older than its release 4.0"));
    return version;
}

QStringList GameCandidates()
{
    const QString name = GameCompat(QStringLiteral("FileNameCheck1"));
    QStringList found;
    QSet<QString> seen;
    for (const QString& folder : UsualFolders()) {
        const QString path = paths::Closed(folder) + name;
        const QString real = paths::Canonical(path);
        if (name.isEmpty() || !path.startsWith(u'/') || !MayRun(path) || seen.contains(real))
            continue;
        seen.insert(real);
        found << path;
    }
    return found;
}

QString FindGame()
{
    for (const QString& path : GameCandidates())
        if (ProveGame(path))
            return path;
    return {};
}

void UseGame(const QString& program)
{
    Frame.Settings.RNDPath = program;
    WriteIni(program, QStringLiteral("Misc"), QStringLiteral("RNDPath"));
    DeriveGameFolders();
}

void FindGameAtStart()
{
    if (!Frame.Settings.RNDPath.isEmpty())
        return;
    const QString found = FindGame();
    if (found.isEmpty() || !Frame.Settings.RNDPath.isEmpty())
        return;
    UseGame(found);
    ShowNotice(QStringLiteral("Rocks'n'Diamonds was found: ") + paths::Native(found));
}
