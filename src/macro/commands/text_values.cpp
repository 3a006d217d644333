#include "macro/commands/families.h"
#include "macro/language/run_state.h"

namespace {

void VarLen(RunState& run, Arguments& in)
{
    const Value text = in.Raw(1);
    if (!run.Failed())
        run.Last.VarLen = Value(qint32(text.Text().size()));
}

void VarSplit(RunState& run, Arguments& in)
{
    const QString text = in.Raw(1).Text();
    const qint32 told = in.Number(2);
    if (run.Failed())
        return;
    const qsizetype count = qBound(qsizetype(0), qsizetype(told), text.size());
    run.Last.VarSplitLeft = Value(text.first(count));
    run.Last.VarSplitRight = Value(text.sliced(count));
    if (!text.isEmpty())
        run.Last.VarSplitRightRev = Value(text.last(count));
}

/// How many characters of a text an end has: at least one, if there is any.
qsizetype EndSize(qint32 told, const QString& text)
{
    return qMin<qsizetype>(qMax(told, 1), text.size());
}

void VarLeft(RunState& run, Arguments& in)
{
    const QString text = in.Text(1);
    const qint32 count = in.Number(2);
    if (!run.Failed())
        run.Last.VarLeft = Value(text.first(EndSize(count, text)));
}

void VarRight(RunState& run, Arguments& in)
{
    const QString text = in.Text(1);
    const qint32 count = in.Number(2);
    if (!run.Failed())
        run.Last.VarRight = Value(text.last(EndSize(count, text)));
}

void VarMid(RunState& run, Arguments& in)
{
    const QString text = in.Text(1);
    const qint32 start = in.Number(2), count = in.Number(3);
    if (!run.Failed())
        run.Last.VarMid = Value(text.mid(qMax(start, 1) - 1, qMax(count, 1)));
}

void VarFind(RunState& run, Arguments& in)
{
    const QString text = in.Text(1), what = in.Text(2);
    if (run.Failed())
        return;
    const qsizetype at = text.isEmpty() ? -1 : text.indexOf(what);
    run.Last.VarFind = Value(qint32(at + 1));
    run.Last.FindResult = Value::Truth(at >= 0);
}

/// Hits may overlap.
void VarCount(RunState& run, Arguments& in)
{
    const QString text = in.Text(1), what = in.Text(2);
    if (run.Failed())
        return;
    std::vector<qsizetype>& positions = run.Last.VarCountPositions;
    positions.clear();
    for (qsizetype at = text.indexOf(what); at >= 0 && at < text.size(); at = text.indexOf(what, at + 1))
        positions.push_back(at + 1);
    run.Last.VarCount = Value(qint32(positions.size()));
}

void VarCountPos(RunState& run, Arguments& in)
{
    const qint32 index = in.Number(1);
    if (run.Failed())
        return;
    const std::vector<qsizetype>& positions = run.Last.VarCountPositions;
    const auto count = qint32(positions.size());
    if (count == 0)
        run.Fail("The last VarCount executed didn't find anything so the array 'VarCountPos' is empty. Use "
                 "[LastVarCount] to check for this");
    else if (index < 1 || index > count)
        run.Fail(QStringLiteral("VarCountPos went out of range! The last VarCount range was 1-%1").arg(count));
    else
        run.Last.VarCountPos = Value(qint32(positions[size_t(index - 1)]));
}

constexpr CommandWord TextValueRows[] = {
    {"varlen", Exactly(1), NoWordFlags, "TEXT", "Length of a text: [lastvarlen].", VarLen},
    {"varsplit", ExactlyAny(2), NoWordFlags, "TEXT N",
     "The first N characters, [lastvarsplitleft], the rest, [lastvarsplitright], and the last N, "
     "[lastvarsplitrightrev].",
     VarSplit},
    {"varleft", ExactlyAny(2), NoWordFlags, "TEXT N", "The first N characters: [lastvarleft].", VarLeft},
    {"varright", ExactlyAny(2), NoWordFlags, "TEXT N", "The last N characters: [lastvarright].", VarRight},
    {"varmid", ExactlyAny(3), NoWordFlags, "TEXT START COUNT",
     "COUNT characters from START (1: the first) on: "
     "[lastvarmid].",
     VarMid},
    {"varfind", ExactlyAny(2), NoWordFlags, "TEXT WHAT",
     "Where WHAT stands in TEXT, from 1, or 0: [lastvarfind]; [lastfindresult] is true or false. Letter case counts.",
     VarFind},
    {"varcount", ExactlyAny(2), NoWordFlags, "TEXT WHAT",
     "How often WHAT stands in TEXT, overlaps included: [lastvarcount]; varcountpos gives the places.", VarCount},
    {"varcountpos", ExactlyAny(1), NoWordFlags, "N",
     "The place of the N-th hit of the last varcount: "
     "[lastvarcountpos].",
     VarCountPos},
};

} // namespace

std::span<const CommandWord> TextValueCommands()
{
    return TextValueRows;
}
