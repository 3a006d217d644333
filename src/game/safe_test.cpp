#include "game/safe_test.h"

#include "frame/files/file_commands.h"
#include "frame/frame_events.h"
#include "frame/frame_state.h"
#include "game/game_messages.h"
#include "game/game_state.h"
#include "game/game_words.h"
#include "game/games.h"
#include "game/run_game.h"
#include "game/set_under_work.h"
#include "platform/files/paths.h"

namespace {

constexpr int WordsAfter = 500;                    // ms
constexpr qsizetype ReadOnce = qsizetype(1) << 20; // bytes

void StartTest()
{
    const auto wish = WishOfCurrentSet();
    if (!wish)
        return;
    auto set = PrepareSet(*wish);
    if (!set) {
        ShowFailure(set.error());
        return;
    }
    const GameEntry game = GameInUse();
    auto test = std::make_unique<SafeTest>(std::move(*set), paths::FileNameOfPath(wish->Folder.chopped(1)));
    if (const Result<> started = test->Start(game.Program, game.Arguments); !started) {
        ShowFailure(started.error());
        return;
    }
    TheGame.Test = std::move(test);
    // Not from inside the end: the test goes with it, and may be wanted again until then.
    QObject::connect(
        TheGame.Test.get(), &SafeTest::Ended, TheGame.Test.get(),
        [] {
            const bool again = TheGame.Test->StartsAgain();
            TheGame.Test.reset();
            if (again && !Frame.Closing && !Frame.Ending)
                StartTest();
            else
                CheckChangedOutside();
        },
        Qt::QueuedConnection);
}

} // namespace

SafeTest::SafeTest(PreparedSet preparedSet, QString setName)
    : set(std::move(preparedSet)),
      scope(RunKind::Beside, QStringLiteral("Test of ") + setName),
      reader(CurrentGameMarks())
{
    scope.OnStop = [this] { process.Stop(); };
    soon.setSingleShot(true);
    soon.setInterval(WordsAfter);
    connect(&soon, &QTimer::timeout, this, &SafeTest::ReadOn);
    connect(&process, &GameProcess::Spoken, &soon, [this] {
        scope.SetDetail(LastLineOf(process.Printed()));
        if (!soon.isActive())
            soon.start();
    });
    connect(&process, &GameProcess::Ended, this, &SafeTest::GameEnded);
}

SafeTest::~SafeTest()
{
    scope.OnStop = nullptr;
    disconnect(&process, nullptr, this, nullptr);
    process.End();
}

Result<> SafeTest::Start(const QString& program, const QStringList& arguments)
{
    Words().BeginRun();
    return process.Start({program, arguments + set.Arguments, set.Home.Home(), false, set.Home.HeldFile()});
}

void SafeTest::StartAgain()
{
    again = true;
    Stop();
}

void SafeTest::ReadOn()
{
    if (!reader.Read(process.Printed(), ReadOnce))
        soon.start();
    ShowWords();
}

void SafeTest::ShowWords()
{
    auto now = reader.Findings();
    if (shown == now)
        return;
    shown = now;
    ShowGameWords(std::move(now), set.From, [this](GameFinding& finding) { set.LeadBack(finding); });
}

void SafeTest::GameEnded()
{
    soon.stop();
    const QByteArray& printed = process.Printed();
    reader.Read(printed, printed.size());
    reader.ReadPiece(QByteArrayView(printed).sliced(printed.lastIndexOf('\n') + 1));
    ShowWords();
    if (!process.Stopped())
        TellTrouble(process.Crashed(), process.ExitCode());
    emit Ended();
}

void TestSetSafely()
{
    StopPreview();
    if (!IsRndPathSet())
        return;
    if (TheGame.Test)
        TheGame.Test->StartAgain();
    else
        StartTest();
}
