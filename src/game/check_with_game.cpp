#include "game/check_with_game.h"

#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "frame/host_ports.h"
#include "frame/run_scope.h"
#include "game/game_state.h"
#include "game/game_words.h"
#include "game/games.h"
#include "game/set_under_work.h"

#include <QElapsedTimer>

namespace {

// With today's game all is said within a second or two; a game that never writes its state is ended by its silence.
constexpr qint64 CheckLimit = 60'000, Silence = 15'000, AfterMenu = 300; // ms

/// True when nothing more is to come: some time after the menu was reached, or at once on the error screen.
class SaidAll
{
public:
    explicit SaidAll(const PreparedSet& preparedSet) : set(preparedSet), marks(CurrentGameMarks()) {}

    bool operator()(QByteArrayView printed)
    {
        if (HasGivenUp(printed.sliced(seen), marks))
            return true;
        seen = printed.lastIndexOf('\n') + 1;
        if (!inMenu.isValid() && set.IsInMenu())
            inMenu.start();
        return inMenu.isValid() && inMenu.elapsed() >= AfterMenu;
    }

private:
    const PreparedSet& set;
    GameMarks marks;
    qsizetype seen = 0; ///< whole lines of what was printed
    QElapsedTimer inMenu;
};

void AddEnd(const GameReport& report, std::vector<GameFinding>& findings)
{
    if (report.End != GameEnd::ByItself)
        return;
    findings.push_back({GameSeverity::Fatal,
                        {},
                        {},
                        {},
                        report.Crashed ? QStringLiteral("the game has crashed")
                                       : QStringLiteral("the game ended with exit code %1").arg(report.ExitCode)});
}

QString CountText(const GameCheck& check)
{
    if (check.End == GameEnd::Stopped)
        return QStringLiteral("The check was stopped.");
    if (check.End == GameEnd::TimedOut)
        return QStringLiteral("The game did not come to its menu in time; it may have more to say.");
    if (check.Findings.empty())
        return QStringLiteral("The game has nothing to complain about.");
    return QStringLiteral("The game complains about ") + CountOf(check.Findings.size()) + u'.';
}

} // namespace

Result<GameCheck> CheckSet(const QString& program, const QStringList& arguments, const SetWish& wish, RunScope& scope,
                           qint64 limitMs, const ConfText& text)
{
    auto set = PrepareSet(wish);
    if (!set)
        return tl::unexpected(set.error());
    GameRun run;
    run.Program = program;
    run.Arguments = arguments + set->Arguments;
    run.Home = set->Home.Home();
    run.HeldFile = set->Home.HeldFile();
    run.Unseen = true;
    run.LimitMs = limitMs;
    run.SilenceMs = Silence;
    run.HasSaidAll = SaidAll(*set);
    const auto report = RunGame(run, scope);
    if (!report)
        return tl::unexpected(report.error());
    std::vector<GameFinding> findings = FindingsOf(report->Printed, CurrentGameMarks());
    for (GameFinding& finding : findings)
        set->LeadBack(finding);
    AddEnd(*report, findings);
    return GameCheck{PlaceFindings(std::move(findings), wish.Folder, text), report->End};
}

void CheckWithTheGame()
{
    if (!IsRndPathSet())
        return;
    const auto wish = WishOfCurrentSet();
    if (!wish)
        return;
    const GameEntry game = GameInUse();
    const auto check = [&] {
        RunScope scope(RunKind::Game, QStringLiteral("Check With The Game"));
        return CheckSet(game.Program, game.Arguments, {wish->Folder, wish->Level, wish->Texts, false}, scope,
                        CheckLimit, AuthorsText);
    }();
    if (!check) {
        ShowFailure(check.error());
        return;
    }
    Words().BeginRun();
    Words().Show(check->Findings, wish->Folder);
    ShowNotice(CountText(*check));
    Panes().FocusPane();
}
