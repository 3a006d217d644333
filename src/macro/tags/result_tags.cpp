#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "macro/tags/families.h"

namespace {

/// A slot of the results as it stands.
template <Value RunResults::*Slot>
Value LeftBy(RunState& run)
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
     LeftBy<&RunResults::FindResult>},
    {"lastvarfind", "Left by varfind: the place, or 0.", LeftBy<&RunResults::VarFind>},
    {"lastvarlen", "Left by varlen: the length.", LeftBy<&RunResults::VarLen>},
    {"lastvarcount", "Left by varcount: how often.", LeftBy<&RunResults::VarCount>},
    {"lastvarcountpos", "Left by varcountpos: the place.", LeftBy<&RunResults::VarCountPos>},
    {"lastvarsplitleft", "Left by varsplit: the front.", LeftBy<&RunResults::VarSplitLeft>},
    {"lastvarsplitright", "Left by varsplit: the rest.", LeftBy<&RunResults::VarSplitRight>},
    {"lastvarsplitrightrev", "Left by varsplit: the last characters.", LeftBy<&RunResults::VarSplitRightRev>},
    {"lastvarleft", "Left by varleft.", LeftBy<&RunResults::VarLeft>},
    {"lastvarright", "Left by varright.", LeftBy<&RunResults::VarRight>},
    {"lastvarmid", "Left by varmid.", LeftBy<&RunResults::VarMid>},
    {"lastlineget", "Left by lineget: the line's text.", LeftBy<&RunResults::LineGet>},
    {"lastlistchoice", "Left by listshow: the item chosen.", LeftBy<&RunResults::ListChoice>},
    {"lastlistchoicenum", "Left by listshow: its number, from 1.", LeftBy<&RunResults::ListChoiceNumber>},
    {"lastlistget", "Left by listget: the item.", LeftBy<&RunResults::ListGet>},
    {"lastlistcheck", "Left by listcheck: true or false.", LeftBy<&RunResults::ListCheck>},
    {"listcount", "Number of items in the list.", ListCount},
    {"lastpickelement", "Left by pickelement: what was picked.", LeftBy<&RunResults::PickElement>},
    {"lastelement", "Left by element: the word.", LeftBy<&RunResults::Element>},
    {"lastmessageresult", "Left by message: the button's caption. By the other dialogs: ok or cancel.",
     LeftBy<&RunResults::MessageResult>},
    {"lastmessagenumber", "Left by message: the button's number, from 1.", LeftBy<&RunResults::MessageNumber>},
    {"lastask", "Left by ask: what was typed.", LeftBy<&RunResults::Ask>},
    {"lastrandom", "Left by random: the number.", LeftBy<&RunResults::Random>},
    {"lastrandomword", "Left by randomword: the word.", LeftBy<&RunResults::RandomWord>},
    {"newrandom", "Another number between the bounds of the last random.", NewRandom},
    {"lastdircount", "Left by dir: the number of entries.", DirCount},
    {"loopnumber", "Where the loop stands between its start and its end.", LoopNumber},
    {"progbarval", "Where the progress bar stands.", ProgressValue},
};

} // namespace

std::span<const PlainTag> ResultTags()
{
    return ResultRows;
}
