#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "macro/tags/families.h"

namespace {

/// A slot of the results as it stands.
template <Value RunResults::*Slot>
Value Kept(RunState& run)
{
    return run.Last.*Slot;
}

Value ListCount(RunState& run)
{
    return Value(qint32(run.ListItems.size()));
}

Value DirCount(RunState& run)
{
    return Value(qint32(run.Last.Files.size()));
}

Value NewRandom(RunState& run)
{
    return Value(qint32(run.Random.Between(run.Last.RandomLow, run.Last.RandomHigh)));
}

Value LoopNumber(RunState& run)
{
    const qint64 number = qAbs(qint64(run.Block.LoopLimit) - run.Block.LoopRemaining);
    if (number <= std::numeric_limits<qint32>::max())
        return Value(qint32(number));
    run.Fail(RangeMessage);
    return {};
}

Value ProgressValue(RunState& run)
{
    return Value(qint32(run.Stage.Bar().Value()));
}

constexpr PlainTag ResultRows[] = {
    {"lastfindresult", "Left by findnext, findprevious, replaceall, replaceselect and varfind: true or false.",
     Kept<&RunResults::FindResult>},
    {"lastvarfind", "Left by varfind: the place, or 0.", Kept<&RunResults::VarFind>},
    {"lastvarlen", "Left by varlen: the length.", Kept<&RunResults::VarLen>},
    {"lastvarcount", "Left by varcount: how often.", Kept<&RunResults::VarCount>},
    {"lastvarcountpos", "Left by varcountpos: the place.", Kept<&RunResults::VarCountPos>},
    {"lastvarsplitleft", "Left by varsplit: the front.", Kept<&RunResults::VarSplitLeft>},
    {"lastvarsplitright", "Left by varsplit: the rest.", Kept<&RunResults::VarSplitRight>},
    {"lastvarsplitrightrev", "Left by varsplit: the last characters.", Kept<&RunResults::VarSplitRightRev>},
    {"lastvarleft", "Left by varleft.", Kept<&RunResults::VarLeft>},
    {"lastvarright", "Left by varright.", Kept<&RunResults::VarRight>},
    {"lastvarmid", "Left by varmid.", Kept<&RunResults::VarMid>},
    {"lastlineget", "Left by lineget: the line's text.", Kept<&RunResults::LineGet>},
    {"lastlistchoice", "Left by listshow: the item chosen.", Kept<&RunResults::ListChoice>},
    {"lastlistchoicenum", "Left by listshow: its number, from 1.", Kept<&RunResults::ListChoiceNumber>},
    {"lastlistget", "Left by listget: the item.", Kept<&RunResults::ListGet>},
    {"lastlistcheck", "Left by listcheck: true or false.", Kept<&RunResults::ListCheck>},
    {"listcount", "Number of items in the list.", ListCount},
    {"lastpickelement", "Left by pickelement: what was picked.", Kept<&RunResults::PickElement>},
    {"lastelement", "Left by element: the word.", Kept<&RunResults::Element>},
    {"lastmessageresult", "Left by message: the button's caption. By the other dialogs: ok or cancel.",
     Kept<&RunResults::MessageResult>},
    {"lastmessagenumber", "Left by message: the button's number, from 1.", Kept<&RunResults::MessageNumber>},
    {"lastask", "Left by ask: what was typed.", Kept<&RunResults::Ask>},
    {"lastrandom", "Left by random: the number.", Kept<&RunResults::Random>},
    {"lastrandomword", "Left by randomword: the word.", Kept<&RunResults::RandomWord>},
    {"newrandom", "Another number between the bounds of the last random.", NewRandom},
    {"lastkeyget", "Left by keyget: the key's name, or nothing.", Kept<&RunResults::KeyGet>},
    {"lastfileinzip", "Left by ziplist: the entry chosen.", Kept<&RunResults::FileInZip>},
    {"lastpeek", "Left by peek: the value, -1 if it failed.", Kept<&RunResults::Peek>},
    {"lastdircount", "Left by dir: the number of entries.", DirCount},
    {"loopnumber", "Where the loop stands between its start and its end.", LoopNumber},
    {"progbarval", "Where the progress bar stands.", ProgressValue},
};

} // namespace

std::span<const PlainTag> ResultTags()
{
    return ResultRows;
}
