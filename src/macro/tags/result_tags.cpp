#include "macro/language/run_state.h"
#include "macro/run_stage.h"
#include "macro/tags/families.h"

namespace {

/// A slot of the results as it stands.
template <Value RunResults::* Slot>
Value Result(RunState& run)
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
     Result<&RunResults::FindResult>},
    {"lastvarfind", "Left by varfind: the place, or 0.", Result<&RunResults::VarFind>},
    {"lastvarlen", "Left by varlen: the length.", Result<&RunResults::VarLen>},
    {"lastvarcount", "Left by varcount: how often.", Result<&RunResults::VarCount>},
    {"lastvarcountpos", "Left by varcountpos: the place.", Result<&RunResults::VarCountPos>},
    {"lastvarsplitleft", "Left by varsplit: the front.", Result<&RunResults::VarSplitLeft>},
    {"lastvarsplitright", "Left by varsplit: the rest.", Result<&RunResults::VarSplitRight>},
    {"lastvarsplitrightrev", "Left by varsplit: the last characters.", Result<&RunResults::VarSplitRightRev>},
    {"lastvarleft", "Left by varleft.", Result<&RunResults::VarLeft>},
    {"lastvarright", "Left by varright.", Result<&RunResults::VarRight>},
    {"lastvarmid", "Left by varmid.", Result<&RunResults::VarMid>},
    {"lastlineget", "Left by lineget: the line's text.", Result<&RunResults::LineGet>},
    {"lastlistchoice", "Left by listshow: the item chosen.", Result<&RunResults::ListChoice>},
    {"lastlistchoicenum", "Left by listshow: its number, from 1.", Result<&RunResults::ListChoiceNumber>},
    {"lastlistget", "Left by listget: the item.", Result<&RunResults::ListGet>},
    {"lastlistcheck", "Left by listcheck: true or false.", Result<&RunResults::ListCheck>},
    {"listcount", "Number of items in the list.", ListCount},
    {"lastpickelement", "Left by pickelement: what was picked.", Result<&RunResults::PickElement>},
    {"lastelement", "Left by element: the word.", Result<&RunResults::Element>},
    {"lastmessageresult", "Left by message: the button's caption. By the other dialogs: ok or cancel.",
     Result<&RunResults::MessageResult>},
    {"lastmessagenumber", "Left by message: the button's number, from 1.", Result<&RunResults::MessageNumber>},
    {"lastask", "Left by ask: what was typed.", Result<&RunResults::Ask>},
    {"lastrandom", "Left by random: the number.", Result<&RunResults::Random>},
    {"lastrandomword", "Left by randomword: the word.", Result<&RunResults::RandomWord>},
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
