#include "conf/comments.h"
#include "frame/frame_state.h"
#include "macro/commands/families.h"
#include "macro/commands/repeats.h"
#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "text/document_text.h"
#include "text/line_text.h"

namespace {

template <int Number>
void RepeatedEdit(RunState& run, Arguments& in)
{
    RepeatOnTarget(run, Number, RepeatCount(run, in));
}

template <int Number>
void OneEdit(RunState& run, Arguments&)
{
    run.Text().ExecuteCmd(Number);
}

void LineClear(RunState& run, Arguments&)
{
    run.Text().ExecuteCmd(CmdDeleteLine);
    run.Text().ExecuteCmd(CmdOpenLineAbove);
}

void LineGet(RunState& run, Arguments& in)
{
    const qint32 line = in.Number(1);
    if (!run.Failed())
        run.Last.LineGet = Value(run.Text().GetLine(line));
}

/// A search and whether it moved the selection, which is all that [lastfindresult] tells.
void SearchBy(RunState& run, int number)
{
    DocumentText& text = run.Text();
    const Range before = text.GetSel(true);
    text.ExecuteCmd(number);
    const Range after = text.GetSel(true);
    const bool same = before.StartLine == after.StartLine && before.StartCol == after.StartCol &&
                      before.EndLine == after.EndLine && before.EndCol == after.EndCol;
    run.Last.FindResult = Value::Truth(!same);
}

/// As the find commands of a pane do, the text goes to the history; a macro that looks for one thing all the time
/// does so once.
void SetFindText(RunState& run, const QString& text)
{
    if (run.Text().FindText() != text)
        Frame.Globals.AddFind(text);
    run.Text().ExecuteCmd(CmdSetFindText, text);
}

template <int Number>
void Find(RunState& run, Arguments& in)
{
    const QString text = in.Text(1);
    if (run.Failed())
        return;
    SetFindText(run, text);
    SearchBy(run, Number);
}

template <int Number>
void Replace(RunState& run, Arguments& in)
{
    const QString find = in.Text(1), with = in.Text(2);
    if (run.Failed())
        return;
    SetFindText(run, find);
    if (run.Text().ReplaceText() != with)
        Frame.Globals.AddReplace(with);
    run.Text().ExecuteCmd(CmdSetReplaceText, with);
    SearchBy(run, Number);
}

void Overtype(RunState& run, Arguments& in)
{
    const QString word = in.Written(1).toLower();
    if (word == QLatin1String("on") || word == QLatin1String("off"))
        run.Overtype = word == QLatin1String("on");
    else
        run.Fail("Overtype only uses ON or OFF");
}

void Clipboard(RunState& run, Arguments& in)
{
    const QString word = in.Written(1).toLower();
    TextClipboard& clipboard = run.Stage.Clipboard();
    if (word == QLatin1String("clipclear"))
        clipboard.SetText({});
    else if (word == QLatin1String("clipbackup"))
        run.ClipboardBackup = clipboard.Text();
    else if (word == QLatin1String("cliprestore"))
        clipboard.SetText(run.ClipboardBackup);
    else
        run.Fail("Clipboard uses Clear,Backup or Restore");
}

void CommentLine(RunState& run, Arguments& in)
{
    const QString title = in.Text(1), icon = in.Text(2);
    if (!run.Failed())
        InsertCommentSeparator(run.Text(), title, icon);
}

constexpr CommandWord EditingRows[] = {
    {"delete", AtLeastAny(0), OwnFrame, "N", "Deletes N characters right of the caret, first of all the selection.",
     RepeatedEdit<CmdDeleteRight>},
    {"backspace", AtLeastAny(0), OwnFrame, "N", "Deletes N characters left of the caret, first of all the selection.",
     RepeatedEdit<CmdDeleteLeft>},
    {"lineinsert", AtLeastAny(0), OwnFrame, "N", "Breaks the line at the caret N times.", RepeatedEdit<CmdBreakLine>},
    {"lineinsertabove", AtLeastAny(0), OwnFrame, "N", "Opens N new lines above.", RepeatedEdit<CmdOpenLineAbove>},
    {"lineinsertbelow", AtLeastAny(0), OwnFrame, "N", "Opens N new lines below.", RepeatedEdit<CmdOpenLineBelow>},
    {"linedelete", AtLeastAny(0), OwnFrame, "N", "Deletes N lines from the caret's on.", RepeatedEdit<CmdDeleteLine>},
    {"linedeleteright", Exactly(0), NoWordFlags, "", "Deletes from the caret to the line's end.",
     OneEdit<CmdDeleteToLineEnd>},
    {"linedeleteleft", Exactly(0), NoWordFlags, "", "Deletes from the line's start to the caret.",
     OneEdit<CmdDeleteToLineStart>},
    {"lineclear", Exactly(0), NoWordFlags, "", "Empties the caret's line.", LineClear},
    {"lineget", ExactlyAny(1), NoWordFlags, "N", "The text of line N, counted from 0: [lastlineget].", LineGet},
    {"wordswap", Exactly(0), NoWordFlags, "", "Swaps the word at the caret with the next.", OneEdit<CmdSwapWords>},
    {"charswap", Exactly(0), NoWordFlags, "", "Swaps the characters at the caret.", OneEdit<CmdSwapChars>},
    {"cut", Exactly(0), NoWordFlags, "", "Cuts the selection to the clipboard.", OneEdit<CmdCut>},
    {"cutappend", Exactly(0), NoWordFlags, "", "Cuts the selection and puts it behind the clipboard's text.",
     OneEdit<CmdCutAppend>},
    {"linecut", Exactly(0), NoWordFlags, "", "Cuts the caret's line to the clipboard.", OneEdit<CmdCutLine>},
    {"copy", Exactly(0), NoWordFlags, "", "Copies the selection to the clipboard.", OneEdit<CmdCopy>},
    {"paste", Exactly(0), NoWordFlags, "", "Inserts the clipboard's text.", OneEdit<CmdPaste>},
    {"clipboard", Exactly(1), NoWordFlags, "clipclear | clipbackup | cliprestore",
     "Empties the clipboard, keeps its text, or brings the kept text back.", Clipboard},
    {"findnext", ExactlyAny(1), TakesTime, "TEXT",
     "Selects the next place of a text. [lastfindresult] is true if the selection moved.", Find<CmdFindNext>},
    {"findprevious", ExactlyAny(1), TakesTime, "TEXT",
     "Selects the place of a text above. [lastfindresult] is true if the selection moved.", Find<CmdFindPrevious>},
    {"replaceall", ExactlyAny(2), TakesTime, "FIND WITH", "Replaces every FIND in the text.", Replace<CmdReplaceAll>},
    {"replaceselect", ExactlyAny(2), TakesTime, "FIND WITH", "Replaces every FIND in the selection.",
     Replace<CmdReplaceAllInSelection>},
    {"overtype", Exactly(1), NoWordFlags, "on | off", "Does print write over what stands behind the caret?", Overtype},
    {"commentline", ExactlyAny(2), NoWordFlags, "TITLE ICON", "Puts a comment separator above the caret's line.",
     CommentLine},
};

} // namespace

std::span<const CommandWord> EditingCommands()
{
    return EditingRows;
}
