#include "level/element_names.h"
#include "level/level_files.h"
#include "macro/commands/level_condition.h"
#include "macro/language/run_state.h"
#include "macro/tags/families.h"
#include "platform/files/paths.h"

#include <QFile>

namespace {

/// A corner of the box, counted from 1.
template <qint32 LevelBox::*Corner>
Value BoxCorner(RunState& run)
{
    const qint64 corner = qint64(run.Levels.Box.*Corner) + 1;
    if (corner <= std::numeric_limits<qint32>::max())
        return Value(qint32(corner));
    run.Fail(RangeMessage);
    return {};
}

template <qint64 (LevelBox::*Side)() const>
Value BoxSide(RunState& run)
{
    const qint64 side = (run.Levels.Box.*Side)();
    if (side <= std::numeric_limits<qint32>::max())
        return Value(qint32(side));
    run.Fail(RangeMessage);
    return {};
}

template <int (LevelMap::*Side)() const>
Value ClipSide(RunState&)
{
    return Value(qint32((Level.LevelClip.*Side)()));
}

Value LastLevCount(RunState& run)
{
    return Value(run.Levels.LastLevelCount);
}

Value NextFreeLevel(RunState& run)
{
    constexpr int Beyond = 1000, Digits = 3, Base = 10;
    const QString name = paths::FileNameOfPath(Level.CurrentLevelPath);
    const QString base = name.first(qMax(name.lastIndexOf(u'.'), 0));
    const Value number(base);
    if (base.isEmpty() || !number.IsNumeric()) {
        run.Fail("[NextFreeLevel] only works when you have loaded an existing level with LevLoad.");
        return {};
    }
    const QString folder = paths::FolderOfPath(Level.CurrentLevelPath);
    for (qint64 n = qint64(TextToLong(run, number)) + 1; n < Beyond && !run.Failed(); ++n) {
        const QString candidate = folder + QStringLiteral("%1.level").arg(n, Digits, Base, QLatin1Char('0'));
        if (!QFile::exists(candidate))
            return Value(candidate);
    }
    if (!run.Failed())
        run.Fail("You have gone beyond the maximum amount of levels! 999......wow!");
    return {};
}

/// What [lvi:] tells of a level.
struct InfoRow
{
    const char* Key;
    QString (*Read)(const LevelInfo&);
};
template <QString LevelInfo::*Field>
QString AsItStands(const LevelInfo& info)
{
    return info.*Field;
}
constexpr InfoRow InfoRows[] = {
    {"version", AsItStands<&LevelInfo::Version>},
    {"name", AsItStands<&LevelInfo::Cavename>},
    {"author", AsItStands<&LevelInfo::Author>},
    {"width", AsItStands<&LevelInfo::Width>},
    {"height", AsItStands<&LevelInfo::Height>},
    {"size", AsItStands<&LevelInfo::Mapsize>},
    {"bit",
     [](const LevelInfo& info) { return CellBytes(info) == 2 ? QStringLiteral("4bit") : QStringLiteral("2bit"); }},
    {"time", AsItStands<&LevelInfo::Time>},
    {"count", AsItStands<&LevelInfo::Count>},
};

Value Lvi(RunState& run, TagArguments& in)
{
    const QString key = in.Shown(0).Text().toLower();
    if (run.Failed())
        return {};
    if (!HasLevel()) {
        run.Fail(NoLevelLoaded);
        return {};
    }
    for (const InfoRow& row : InfoRows)
        if (key == QLatin1String(row.Key))
            return Value(row.Read(Level.Info));
    return {};
}

Value Lvp(RunState& run, TagArguments& in)
{
    if (in.Count() < 2) {
        run.Fail("Level Peek uses the format:- [LVP:X:Y]");
        return {};
    }
    const qint32 x = in.Number(0), y = in.Number(1);
    if (run.Failed())
        return {};
    if (!HasLevel()) {
        run.Fail(NoLevelLoaded);
        return {};
    }
    if (x >= 1 && y >= 1 && Level.Map.Contains(x - 1, y - 1))
        return Value(Level.Map.At(x - 1, y - 1));
    return Value(QStringLiteral("outofbounds"));
}

Value NameOfElement(RunState& run, qint32 number)
{
    const ElementNames& names = NamesOfElements();
    if (number >= 0 && number <= names.Highest())
        return Value(names.Name(number));
    run.Fail(
        QStringLiteral("Map:%1 ,went over the current element total, which is %2").arg(number).arg(names.Highest()));
    return {};
}

Value Map(RunState& run, TagArguments& in)
{
    const Value key(in.Shown(0).Text().toLower());
    if (run.Failed())
        return {};
    if (key.IsNumeric()) {
        const qint32 number = TextToLong(run, key);
        return run.Failed() ? Value() : NameOfElement(run, number);
    }
    if (const std::optional<QString> value = NamesOfElements().Value(key.Text()))
        return Value(*value);
    run.Fail(QStringLiteral("The Map item ") + key.Text() + QStringLiteral(" doesn't exist."));
    return {};
}

constexpr PlainTag LevelRows[] = {
    {"lastboxx1", "The box of the level commands, from 1: first column.", BoxCorner<&LevelBox::X1>},
    {"lastboxx2", "Its second column.", BoxCorner<&LevelBox::X2>},
    {"lastboxy1", "Its first row.", BoxCorner<&LevelBox::Y1>},
    {"lastboxy2", "Its second row.", BoxCorner<&LevelBox::Y2>},
    {"lastboxwidth", "Its width.", BoxSide<&LevelBox::Width>},
    {"lastboxheight", "Its height.", BoxSide<&LevelBox::Height>},
    {"levclipwidth", "Width of what levcopy has copied.", ClipSide<&LevelMap::Width>},
    {"levclipheight", "Height of what levcopy has copied.", ClipSide<&LevelMap::Height>},
    {"lastlevcount", "Left by levcount: the number of cells.", LastLevCount},
    {"nextfreelevel", "Path of the first level behind the open one, in its folder, that is not there yet.",
     NextFreeLevel},
};

constexpr FunctionTag LevelFunctionRows[] = {
    {"map", "[map:N] [map:NAME]", "The name of element N, or the number of a name.", false, Map},
    {"lvi", "[lvi:version|name|author|width|height|size|bit|time|count]", "A field of the open level.", false, Lvi},
    {"lvp", "[lvp:X:Y]", "The element in a cell of the open level, counted from 1, or outofbounds.", true, Lvp},
};

} // namespace

std::span<const PlainTag> LevelTags()
{
    return LevelRows;
}

std::span<const FunctionTag> LevelFunctionTags()
{
    return LevelFunctionRows;
}
