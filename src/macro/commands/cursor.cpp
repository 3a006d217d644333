#include "frame/messages/asker.h"
#include "frame/run_scope.h"
#include "macro/commands/families.h"
#include "macro/commands/repeats.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "text/document_text.h"

int RepeatCount(RunState& run, Arguments& in)
{
    if (!run.BranchIsLive())
        return 0;
    if (in.Count() == 0) {
        run.Fail("Missing command or value in this line.");
        return 0;
    }
    if (in.Written(1).isEmpty()) {
        run.Fail("This commands need a number");
        return 0;
    }
    constexpr qint32 TooMany = 1'048'576;
    const qint32 count = in.Number(1);
    if (!run.Failed() && count >= TooMany)
        run.Fail("This command's number is a range of 1 to 1048576");
    return run.Failed() ? 0 : qMax(count, 1);
}

void RepeatOnTarget(RunState& run, int number, int count)
{
    constexpr int Slice = 4096;
    DocumentText& text = run.Text();
    for (int left = count; left > 0; left -= Slice) {
        const int now = qMin(left, Slice);
        if (text.Repeat(number, now) < now)
            return;
        if (left > Slice && !run.Scope.Turn())
            return;
    }
}

namespace {

template <int Number>
void Repeated(RunState& run, Arguments& in)
{
    RepeatOnTarget(run, Number, RepeatCount(run, in));
}

/// The whole frame of a repeated command, and no action.
void RepeatedNothing(RunState& run, Arguments& in)
{
    RepeatCount(run, in);
}

bool HasSelection(const Range& range)
{
    return range.StartLine != range.EndLine || range.StartCol != range.EndCol;
}

/// Vertical steps, each with a look at the line where the selection starts in front of it. `mayStep` fails the run and
/// says no at the text's edge; `safe` steps do not reach it.
template <class MayStep>
void StepVertically(RunState& run, int number, int count, int safe, MayStep mayStep)
{
    DocumentText& text = run.Text();
    const int together = HasSelection(text.GetSel(true)) ? 0 : qBound(0, safe, count);
    RepeatOnTarget(run, number, together);
    for (int done = together; done < count; ++done) {
        if (!mayStep(text.GetSel(true).StartLine))
            return;
        text.ExecuteCmd(number);
    }
}

template <int Number>
void Up(RunState& run, Arguments& in)
{
    const int count = RepeatCount(run, in);
    StepVertically(run, Number, count, run.Text().CaretLine(), [&run](int line) {
        if (line == 0)
            run.FailAndStop("The cursor attempted to go up past line 1. Ending.");
        return line != 0;
    });
}

template <int Number>
void Down(RunState& run, Arguments& in)
{
    const int count = RepeatCount(run, in);
    const int last = run.Text().LineCount() - 1;
    StepVertically(run, Number, count, last - run.Text().CaretLine(), [&run, last](int line) {
        if (line == last)
            run.Fail("The cursor attempted to go beyond the length of the file. Ending.");
        return line != last;
    });
}

template <int Number>
void Once(RunState& run, Arguments&)
{
    run.Text().ExecuteCmd(Number);
}

/// Asks for a line as a person counts them, from 1; -2 if the question was cancelled.
int AskLine(RunState& run)
{
    const int here = run.Text().CaretLine(), count = qMax(run.Text().LineCount(), 1);
    run.Stage.ShowTarget(true);
    const auto told = AskText(InputQuestion{QStringLiteral("Goto Line Number"),
                                            QStringLiteral("Line (1 to %1):").arg(count), QString::number(here + 1)});
    run.Stage.ShowTarget(false);
    bool fine = false;
    const int line = told.value_or(QString()).toInt(&fine);
    return fine ? qBound(1, line, count) - 1 : -2;
}

void GotoTextLine(RunState& run, Arguments& in)
{
    const qint32 line = in.Count() > 0 ? in.Number(1) : -1;
    if (run.Failed())
        return;
    const qint32 wanted = line == -1 ? AskLine(run) : line;
    run.Text().ExecuteCmd(CmdGotoLine, wanted);
}

void SelectBlock(RunState& run, Arguments& in)
{
    const qint32 x = in.Number(1), y = in.Number(2), width = in.Number(3), height = in.Number(4);
    if (run.Failed())
        return;
    const qint64 right = qint64(x) + width, bottom = qint64(y) + height;
    constexpr qint64 Largest = std::numeric_limits<int>::max();
    const Range block{y, x, int(qBound(-Largest, bottom, Largest)), int(qBound(-Largest, right, Largest)), true};
    if (!run.Text().SetSel(block, true))
        run.Fail(QStringLiteral("SelectBlock's lowest Y position went past the current line count.^^Linecount = "
                                "%1^SelectBlock's Y = %2")
                     .arg(run.Text().LineCount() - 1)
                     .arg(bottom));
}

constexpr const char* MovesHelp = "Moves the caret N times.";
constexpr const char* ExtendsHelp = "Moves the caret N times and selects what it passes.";

constexpr CommandWord CursorRows[] = {
    {"cursorright", AtLeastAny(0), OwnFrame, "N", MovesHelp, Repeated<CmdCharRight>},
    {"cursorleft", AtLeastAny(0), OwnFrame, "N", MovesHelp, Repeated<CmdCharLeft>},
    {"cursorrightex", AtLeastAny(0), OwnFrame, "N", ExtendsHelp, Repeated<CmdCharRightExtend>},
    {"cursorleftex", AtLeastAny(0), OwnFrame, "N", ExtendsHelp, Repeated<CmdCharLeftExtend>},
    {"cursorup", AtLeastAny(0), OwnFrame, "N", "Moves the caret up N lines. Beyond the first line the macro fails.",
     Up<CmdLineUp>},
    {"cursordown", AtLeastAny(0), OwnFrame, "N", "Moves the caret down N lines. Beyond the last line the macro fails.",
     Down<CmdLineDown>},
    {"cursorupex", AtLeastAny(0), OwnFrame, "N", "As cursorup, and selects what the caret passes.",
     Up<CmdLineUpExtend>},
    {"cursordownex", AtLeastAny(0), OwnFrame, "N", "As cursordown, and selects what the caret passes.",
     Down<CmdLineDownExtend>},
    {"wordright", AtLeastAny(0), OwnFrame, "N", "Moves the caret N words right.", Repeated<CmdWordRight>},
    {"wordleft", AtLeastAny(0), OwnFrame, "N", "Moves the caret N words left.", Repeated<CmdWordLeft>},
    {"wordrightex", AtLeastAny(0), OwnFrame, "N", "As wordright, and selects what the caret passes.",
     Repeated<CmdWordRightExtend>},
    {"wordleftex", AtLeastAny(0), OwnFrame, "N", "As wordleft, and selects what the caret passes.",
     Repeated<CmdWordLeftExtend>},
    {"blockdown", AtLeastAny(0), OwnFrame, "N", "Moves the caret to the N-th next paragraph.",
     Repeated<CmdParagraphDown>},
    {"blockup", AtLeastAny(0), OwnFrame, "N", "Moves the caret to the N-th paragraph above.", Repeated<CmdParagraphUp>},
    {"pageup", AtLeastAny(0), OwnFrame, "N", "Moves the caret N pages up.", Repeated<CmdPageUp>},
    {"pagedown", AtLeastAny(0), OwnFrame, "N", "Moves the caret N pages down.", Repeated<CmdPageDown>},
    {"pageupex", AtLeastAny(0), OwnFrame, "N", "As pageup, and selects what the caret passes.",
     Repeated<CmdPageUpExtend>},
    {"pagedownex", AtLeastAny(0), OwnFrame, "N", "As pagedown, and selects what the caret passes.",
     Repeated<CmdPageDownExtend>},
    {"insert", AtLeastAny(0), OwnFrame, "N", "Does nothing.", RepeatedNothing},
    {"charleft", AtLeastAny(0), OwnFrame, "N", "Does nothing; [charleft] is the character left of the caret.",
     RepeatedNothing},
    {"charright", AtLeastAny(0), OwnFrame, "N", "Does nothing; [charright] is the second character right of the caret.",
     RepeatedNothing},
    {"charabove", AtLeastAny(0), OwnFrame, "N", "Does nothing; [charabove] is the character above the caret.",
     RepeatedNothing},
    {"charbelow", AtLeastAny(0), OwnFrame, "N", "Does nothing; [charbelow] is the character below the caret.",
     RepeatedNothing},
    {"docend", Exactly(0), NoWordFlags, "", "Caret to the text's end.", Once<CmdDocumentEnd>},
    {"docstart", Exactly(0), NoWordFlags, "", "Caret to the text's start.", Once<CmdDocumentStart>},
    {"docendex", Exactly(0), NoWordFlags, "", "Selects from the caret to the text's end.", Once<CmdDocumentEndExtend>},
    {"docstartex", Exactly(0), NoWordFlags, "", "Selects from the caret to the text's start.",
     Once<CmdDocumentStartExtend>},
    {"lineend", Exactly(0), NoWordFlags, "", "Caret to the line's end.", Once<CmdLineEnd>},
    {"lineendex", Exactly(0), NoWordFlags, "", "Selects from the caret to the line's end.", Once<CmdLineEndExtend>},
    {"linestart", Exactly(0), NoWordFlags, "", "Caret to the line's start.", Once<CmdLineStart>},
    {"linestartex", Exactly(0), NoWordFlags, "", "Selects from the caret to the line's start.",
     Once<CmdLineStartExtend>},
    {"unselect", Exactly(0), NoWordFlags, "", "Clears the selection; the caret stays.", Once<CmdClearSelection>},
    {"lineselect", Exactly(0), NoWordFlags, "", "Selects the caret's line without its end.", Once<CmdSelectLine>},
    {"selectall", Exactly(0), NoWordFlags, "", "Selects the whole text.", Once<CmdSelectAll>},
    {"gototextline", AtLeastAny(0), NoWordFlags, "[N]",
     "Caret to the start of line N, counted from 0. Without N a dialog asks.", GotoTextLine},
    {"selectblock", ExactlyAny(4), NoWordFlags, "X Y WIDTH HEIGHT",
     "Selects a rectangle from column X, line Y on; both count from 0.", SelectBlock},
};

} // namespace

std::span<const CommandWord> CursorCommands()
{
    return CursorRows;
}
