#include "macro/language/run_loop.h"

#include "frame/run_scope.h"
#include "level/level_files.h"
#include "macro/language/group_items.h"
#include "macro/language/run_state.h"
#include "macro/language/source_text.h"
#include "macro/started_windows.h"
#include "platform/files/byte_file.h"
#include "platform/screen/other_windows.h"
#include "text/document_text.h"

namespace {

constexpr int LinesPerTurn = 512; ///< between two looks at the clock

/// For the run panel.
void TellLine(RunState& run)
{
    run.Scope.SetDetail(QStringLiteral("line %1").arg(run.CurrentLine));
}

/// Lets events run if it is time. False: a stop is wanted.
bool GiveTurn(RunState& run)
{
    run.TurnWanted = false;
    TellLine(run);
    if (!run.Scope.Turn())
        run.RequestStop();
    return !run.StopRequested;
}

void PromptForStep(RunState& run)
{
    switch (run.Stage.Step(run)) {
    case StepAnswer::Next:
        break;
    case StepAnswer::Continue:
        run.Stage.WantSteps(false);
        run.Stage.ShowTarget(false);
        break;
    case StepAnswer::Break:
        run.Stage.WantSteps(false);
        run.RequestStop();
        break;
    }
}

/// What a person has to say in front of a line of a test run. False: the run ends there; a prompt's "Break" still runs
/// the line.
bool MayRunLine(RunState& run)
{
    if (run.Stage.StepsLines()) {
        PromptForStep(run);
        return true;
    }
    run.Stage.BeforeLine(run);
    return !run.StopRequested;
}

/// To the next line that is neither empty nor a comment. False: there is none; the last entry of the program never
/// runs.
bool Advance(RunState& run)
{
    run.CurrentLine = run.Code.NextFrom[size_t(run.CurrentLine) + 1];
    return run.CurrentLine < run.Code.LastLine;
}

/// After what a line has asked for. False: the run is over.
bool GoesOn(RunState& run)
{
    run.Attention = false;
    return !run.Failed() && !run.StopRequested && (!run.TurnWanted || GiveTurn(run));
}

void RunLines(RunState& run)
{
    ProgramLine* const lines = run.Code.Lines.data();
    const int* const nextFrom = run.Code.NextFrom.data();
    const int last = run.Code.LastLine;
    int left = 0;
    do {
        if (--left < 0) {
            left = LinesPerTurn;
            if (!GiveTurn(run))
                return;
        }
        ProgramLine& line = lines[run.CurrentLine];
        line.Run(run, line);
        if (run.Attention && !GoesOn(run))
            return;
        run.CurrentLine = nextFrom[run.CurrentLine + 1];
    } while (run.CurrentLine < last);
}

/// The same with what a person sees of a test run.
void RunWatchedLines(RunState& run)
{
    do {
        if (!GiveTurn(run))
            return;
        if (!MayRunLine(run))
            return;
        ProgramLine& line = run.Code.Lines[size_t(run.CurrentLine)];
        line.Run(run, line);
        if (run.Failed())
            return;
        const bool more = Advance(run);
        if (run.Stage.Watches())
            run.Stage.Watch(run, false);
        if (!more)
            return;
    } while (!run.StopRequested);
}

/// Bytes that were poked, safe on the disk. False: they are not, and the run has failed.
bool SettleBytes(RunState& run)
{
    if (!run.SetBytes || run.SetBytes->Sync())
        return true;
    run.Fail("Couldn't Poke at file, it's possibly locked or shared.");
    return false;
}

/// What the user must have back: the main window and the mouse.
class BorrowedDesktop
{
public:
    explicit BorrowedDesktop(RunState& ofRun) : run(ofRun) {}
    ~BorrowedDesktop()
    {
        StartedWindows.LetDown();
        if (run.MainHidden)
            run.Stage.ShowMainWindow(true);
        for (const mouse::Button button : {mouse::Button::Left, mouse::Button::Middle, mouse::Button::Right})
            if (run.ButtonsDown & (1 << int(button)))
                mouse::Release(button);
    }
    BorrowedDesktop(const BorrowedDesktop&) = delete;
    BorrowedDesktop& operator=(const BorrowedDesktop&) = delete;

private:
    RunState& run;
};

/// What a run borrows of the screen and puts back.
class BorrowedScreen
{
public:
    explicit BorrowedScreen(RunStage& ofRun)
        : stage(ofRun),
          font(stage.Screen().FontName()),
          points(stage.Screen().FontSize()),
          print(stage.Screen().GetColor(PrintSlot)),
          ground(stage.Screen().GetColor(GroundSlot))
    {
    }
    ~BorrowedScreen()
    {
        TextScreen& screen = stage.Screen();
        if (screen.FontName() != font || screen.FontSize() != points)
            screen.SetFont(font, points);
        PutBack(PrintSlot, print);
        PutBack(GroundSlot, ground);
        stage.Bar().Hide();
    }
    BorrowedScreen(const BorrowedScreen&) = delete;
    BorrowedScreen& operator=(const BorrowedScreen&) = delete;

private:
    void PutBack(int slot, int colour) const
    {
        if (stage.Screen().GetColor(slot) != colour)
            stage.Screen().SetColor(slot, colour);
    }

    RunStage& stage;
    const QString font;
    const double points;
    const int print, ground;
};

MacroError Report(RunState& run, const MacroError& error)
{
    run.RequestStop();
    StartedWindows.LetDown(); // the user must see what follows
    run.Stage.ShowTarget(true);
    run.Stage.ReportError(error);
    return error;
}

void RunWithoutFrame(RunState& run, ProgramLine& line)
{
    Arguments in(run, line);
    line.Word->Run(run, in);
}

void RunInFrame(RunState& run, ProgramLine& line)
{
    if (run.BranchIsLive())
        RunWithoutFrame(run, line);
}

/// A command of the wrong shape.
void RunMisshapen(RunState& run, ProgramLine& line)
{
    if (run.BranchIsLive())
        run.Fail(line.ShapeFault);
}

/// For commands that ask first or take long.
void RunWithCare(RunState& run, ProgramLine& line)
{
    TellLine(run); // it may wait long at this one
    const quint8 flags = line.Word->Flags;
    if ((flags & SafeGate) && !SystemSafeCheck(run, line))
        return;
    if (flags & OwnFrame)
        RunWithoutFrame(run, line);
    else
        (line.ShapeFault.isEmpty() ? RunInFrame : RunMisshapen)(run, line);
    if (flags & TakesTime)
        run.WantTurn();
}

void AddGroupItem(RunState& run, const ProgramLine& line)
{
    const Token& item = line.Tokens.front();
    if (item.Written.startsWith(u'?')) {
        AddGroupToGroup(run, *run.OpenGroup, item.Written);
        return;
    }
    Value scratch, shown;
    const Value& value = ShownValue(item, Evaluate(run, item, scratch), shown);
    if (!run.Failed())
        AddItemToGroup(run, *run.OpenGroup, value);
}

void RunUnknownWord(RunState& run, ProgramLine& line)
{
    if (IsBlankLine(line.Written)) // the first line of a program
        return;
    if (run.OpenGroup)
        AddGroupItem(run, line);
    else
        run.Fail(QStringLiteral("Unrecognised command: ") + line.Tokens.front().Written);
}

void ReadLine(RunState& run, ProgramLine& line)
{
    const QStringList tokens = line.Written.split(u' ');
    line.Word = FindCommand(tokens.front());
    for (const QString& token : tokens)
        line.Tokens.push_back(ReadToken(token, run.Variables));
    line.Run = RunUnknownWord;
    if (!line.Word)
        return;
    line.ShapeFault = ShapeFault(tokens, line.Word->Form);
    const quint8 flags = line.Word->Flags;
    if (flags & (SafeGate | TakesTime))
        line.Run = RunWithCare;
    else if (flags & OwnFrame)
        line.Run = RunWithoutFrame;
    else
        line.Run = line.ShapeFault.isEmpty() ? RunInFrame : RunMisshapen;
    if (line.Word->Prepare)
        line.Word->Prepare(run, line);
}

} // namespace

void RunForTheFirstTime(RunState& run, ProgramLine& line)
{
    ReadLine(run, line);
    line.Run(run, line);
}

std::optional<MacroError> RunProgram(RunState& run, const PreparedSource& source)
{
    const BorrowedScreen borrowed(run.Stage);
    const BorrowedDesktop desktop(run);
    StartedWindows.CloseAll();
    CloseLevel();
    if (!source.ErrorText.isEmpty())
        return Report(run, {source.ErrorLine, source.ErrorText, true});
    run.Code.Take(source.Lines);
    if (const ProgramFault fault = PrePass(run.Code); !fault.Text.isEmpty())
        return Report(run, {fault.Line, fault.Text, true});
    if (run.Code.Lines.empty())
        return std::nullopt;
    {
        const EditBatch batch(run.Text());
        if (run.TestRun) {
            RunWatchedLines(run);
            run.Stage.Watch(run, true);
        } else
            RunLines(run);
    }
    std::optional<MacroError> error;
    if (run.Failed() || !SettleBytes(run))
        error = Report(run, {run.CurrentLine, run.ErrorText, false});
    CloseLevel();
    return error;
}
