#include "macro/commands/families.h"
#include "macro/language/close_changed.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "text/document_text.h"

#include <array>

namespace {

constexpr qsizetype LongestPrint = 100'000'000; ///< what a repeat may build, so that it cannot take all memory

/// Appends "&n" more of what came before. False: the run has failed.
bool RepeatPrevious(RunState& run, const QString& told, const QString& previous, QString& line)
{
    const qint32 count = TextToLong(run, EvaluateText(run, told));
    if (run.Failed())
        return false;
    if (count > 0 && previous.size() * count > LongestPrint - line.size()) {
        run.Fail("Print can't write more than 100000000 characters.");
        return false;
    }
    line += previous.repeated(qMax(count, 0));
    return true;
}

/// The text that the arguments of `print` make; worth nothing after failing. It stands in a place of the run's own,
/// since most macros print line after line.
const QString& PrintedText(RunState& run, Arguments& in)
{
    QString& line = run.PrintedLine;
    QString previous;
    line.resize(0);
    for (int i = 1; i <= in.Count(); ++i) {
        const QString item = in.Text(i);
        if (run.Failed())
            return line;
        if (i > 1 && item.startsWith(u'&')) {
            if (!RepeatPrevious(run, item.sliced(1), previous, line))
                return line;
        } else {
            line += item;
            previous = item;
        }
    }
    return line;
}

/// Writes over as many characters behind the caret as the line still has.
void PrintOver(DocumentText& text, const QString& printed)
{
    const Range selected = text.GetSel(true);
    text.SetSel({selected.EndLine, selected.EndCol, selected.EndLine, selected.EndCol}, false);
    const qsizetype rest = text.GetLineLength(selected.EndLine) - selected.EndCol;
    text.Repeat(CmdCharRightExtend, int(qMin(rest, printed.size())));
    text.ReplaceSel(printed);
}

void Print(RunState& run, Arguments& in)
{
    if (!run.BranchIsLive())
        return;
    if (in.Count() == 0) {
        run.Fail("Nothing after Print statement!");
        return;
    }
    const QString& printed = PrintedText(run, in);
    if (run.Failed())
        return;
    run.Stage.Printed(printed);
    if (run.Overtype)
        PrintOver(run.Text(), printed);
    else
        run.Text().ReplaceSel(printed);
}

void Locate(RunState& run, Arguments& in)
{
    const qint32 x = in.Number(1), y = in.Number(2);
    if (!run.Failed() && !run.Text().SetSel({y, x, y, x}, false))
        run.Fail(QStringLiteral("Locate went out of bounds:-^^X=%1  Y=%2").arg(x).arg(y));
}

void Colour(RunState& run, Arguments& in)
{
    std::array<qint32, 6> parts{};
    for (size_t i = 0; i < parts.size(); ++i) {
        parts[i] = in.Number(int(i) + 1);
        if (run.Failed())
            return;
        if (parts[i] > 255) {
            run.Fail("RGB ranges are 0-255");
            return;
        }
    }
    const auto mixed = [&parts](size_t first) { // in 24 bits, whatever a part below 0 does to them
        return int((parts[first] + 256LL * parts[first + 1] + 65536LL * parts[first + 2]) & 0xFFFFFF);
    };
    constexpr size_t Ground = 3;
    run.Stage.Screen().SetColor(PrintSlot, mixed(0));
    run.Stage.Screen().SetColor(GroundSlot, mixed(Ground));
}

void ForceTerminal9(RunState& run, Arguments&)
{
    constexpr double Points = 9;
    run.Stage.Screen().SetFont(QStringLiteral("Terminal"), Points);
}

void Refresh(RunState& run, Arguments&)
{
    run.Stage.ShowNow();
}

void Clear(RunState& run, Arguments&)
{
    if (!run.FileProtection || ConfirmCloseChanged(run))
        run.Text().SetText({});
}

constexpr CommandWord ScreenRows[] = {
    {"print", AtLeastAny(0), OwnFrame, "VALUE [VALUE ...]",
     "Writes the values at the caret, one behind the other. &N behind a value repeats it N more times.", Print},
    {"locate", ExactlyAny(2), NoWordFlags, "X Y", "Caret to column X of line Y; both count from 0.", Locate},
    {"colour", ExactlyAny(6), NoWordFlags, "R G B R G B",
     "Colours of text on the screen and of what it stands on, red, green and blue from 0 to 255. They are the pane's "
     "slots 16 and 17, which colour what stands between two characters of code 8.",
     Colour},
    {"forceterminal9", Exactly(0), NoWordFlags, "", "A font of equal widths, 9 points high, until the macro ends.",
     ForceTerminal9},
    {"refresh", Exactly(0), TakesTime, "", "Shows the text as it stands for a moment.", Refresh},
    {"clear", Exactly(0), NoWordFlags, "",
     "Empties the text. With file protection on it asks about changes that are not saved.", Clear},
};

} // namespace

std::span<const CommandWord> ScreenCommands()
{
    return ScreenRows;
}
