#include "macro/language/group_items.h"
#include "macro/language/run_state.h"
#include "macro/tags/families.h"
#include "text/encoding.h"

#include <cmath>

namespace {

constexpr int CodeCount = 256;

Value Chr(RunState& run, TagArguments& in)
{
    const qint32 code = in.Number(0);
    if (run.Failed())
        return {};
    if (code < 0 || code >= CodeCount) {
        run.Fail("Chr number is a range of 0-255");
        return {};
    }
    return Value(QString::fromUtf8(FromFile(QByteArray(1, char(code)), FileEncoding::Windows1252)));
}

/// In the code page of eight bits where the character has a place there.
Value Asc(RunState& run, TagArguments& in)
{
    const QString text = in.Shown(0).Text();
    if (run.Failed() || text.isEmpty())
        return {};
    const auto coded = ToFile(text.first(1).toUtf8(), FileEncoding::Windows1252);
    return Value(qint32(coded && coded->size() == 1 ? uchar(coded->at(0)) : text.at(0).unicode()));
}

Value Hex(RunState&, TagArguments& in)
{
    constexpr int Sixteen = 16;
    return Value(QString::number(quint32(in.Number(0)), Sixteen).toUpper());
}

Value Dec(RunState& run, TagArguments& in)
{
    const Value coded(QString(QStringLiteral("&H") + in.Shown(0).Text()));
    if (run.Failed())
        return {};
    const qint32 number = TextToLong(run, coded);
    constexpr qint64 Half = 32768;
    const qint64 value = number < 0 ? qAbs(number + Half) + Half : number;
    if (value > std::numeric_limits<qint32>::max()) {
        run.Fail(RangeMessage);
        return {};
    }
    return Value(qint32(value));
}

Value Abs(RunState& run, TagArguments& in)
{
    const qint64 number = qAbs(qint64(in.Number(0)));
    if (number <= std::numeric_limits<qint32>::max())
        return Value(qint32(number));
    run.Fail(RangeMessage);
    return {};
}

Value Sgn(RunState&, TagArguments& in)
{
    const qint32 number = in.Number(0);
    return Value(qint32((number > 0) - (number < 0)));
}

Value Sin(RunState& run, TagArguments& in)
{
    if (in.Count() < 3) {
        run.Fail("Sin uses the format:- Position:Speed:Height");
        return {};
    }
    const qint32 position = in.Number(0), speed = in.Number(1), height = in.Number(2);
    if (run.Failed() || speed == 0)
        return {};
    const double wave = std::sin(double(position) / double(speed)) * double(height);
    return Value(qint32(std::nearbyint(wave)));
}

Value Dir(RunState& run, TagArguments& in)
{
    const qint32 index = in.Number(0);
    if (run.Failed())
        return {};
    const QStringList& files = run.Last.Files;
    if (index >= 1 && index <= files.size())
        return Value(files.at(index - 1));
    run.Fail(QStringLiteral("The last DIR called was in the range of 1 to %1. Use [LastDirCount] to check for this.")
                 .arg(files.size()));
    return {};
}

Value Rnd(RunState& run, TagArguments& in)
{
    if (in.Count() < 2) {
        run.Fail("RND: Random uses the format:- [RND:low:hi]");
        return {};
    }
    const qint32 low = in.Number(0), high = in.Number(1);
    return run.Failed() ? Value() : Value(qint32(run.Random.Between(low, high)));
}

Value Grp(RunState& run, TagArguments& in)
{
    if (in.Count() < 2) {
        run.Fail("The command GRP uses the format:- [GRP:?GroupName:$Variable] or [GRP:?GroupName:count]");
        return {};
    }
    const QString name = in.Shown(0).Text();
    const Group* group = run.Failed() ? nullptr : GroupOrFail(run, name);
    if (!group)
        return {};
    const Value told = in.Raw(1);
    const qint32 position = run.Failed() ? 0 : TextToLong(run, told);
    if (run.Failed())
        return {};
    if (!told.IsNumeric() && told.Text().compare(QLatin1String("count"), Qt::CaseInsensitive) == 0)
        return Value(qint32(group->Count()));
    if (group->Count() == 0) {
        run.Fail("This group is empty!");
        return {};
    }
    if (position >= 1 && position <= group->Count())
        return group->Item(position);
    run.Fail(QStringLiteral("Group went out of bounds!^^%1 has a range of 1 to %2^^Last Group call: %3")
                 .arg(name)
                 .arg(group->Count())
                 .arg(position));
    return {};
}

constexpr FunctionTag FunctionRows[] = {
    {"chr", "[chr:N]", "The character with code N, 0 to 255.", false, Chr},
    {"asc", "[asc:TEXT]", "Code of the text's first character.", false, Asc},
    {"hex", "[hex:N]", "N in hexadecimal digits.", false, Hex},
    {"dec", "[dec:DIGITS]", "The number that hexadecimal digits stand for.", false, Dec},
    {"abs", "[abs:N]", "N without its sign.", false, Abs},
    {"sgn", "[sgn:N]", "-1, 0 or 1: the sign of N.", false, Sgn},
    {"sin", "[sin:P:S:H]", "The sine of P/S, times H, as a whole number.", true, Sin},
    {"dir", "[dir:N]", "The N-th entry of the last dir.", false, Dir},
    {"rnd", "[rnd:LOW:HIGH]", "A random whole number from LOW to HIGH.", true, Rnd},
    {"grp", "[grp:?NAME:N] [grp:?NAME:count]", "The N-th item of a group, or how many it has.", true, Grp},
};

} // namespace

std::span<const FunctionTag> FunctionTags()
{
    return FunctionRows;
}
