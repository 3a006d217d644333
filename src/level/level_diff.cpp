#include "level/level_diff.h"

#include "level/level_bytes.h"

namespace {

QString Change(const QString& what, const QString& before, const QString& after)
{
    return what + QStringLiteral(": ") + before + QStringLiteral(" -> ") + after;
}

QString Counted(qsizetype bytes, bool others = false)
{
    return QString::number(bytes) + (others ? QStringLiteral(" other bytes") : QStringLiteral(" bytes"));
}

/// What stands in front of the map, with the fields of `other` in place of its own.
QByteArray HeadWith(const LevelFile& level, const LevelRecord& other)
{
    LevelRecord mixed = level.Record;
    mixed.Info = other.Info;
    mixed.Map = other.Map;
    const Result<QByteArray> bytes = PatchLevel(mixed, QByteArrayView(level.Bytes).first(level.Record.MapEnd));
    return bytes ? bytes->first(qMin(bytes->size(), qsizetype(level.Record.Offsets.Mapdata))) : QByteArray();
}

/// Bytes that stand in no field. Two forms have none in common.
void CompareSettings(const LevelFile& before, const LevelFile& after, QStringList& found)
{
    const LevelOffsets& offsets = before.Record.Offsets;
    if (!(offsets == after.Record.Offsets) || before.Record.Form != after.Record.Form)
        return;
    const QByteArray old = HeadWith(before, after.Record), now = HeadWith(after, after.Record);
    qsizetype different = qAbs(old.size() - now.size());
    for (qsizetype at = 0; at < qMin(old.size(), now.size()); ++at)
        different += old[at] != now[at];
    if (different)
        found << Change(QStringLiteral("settings"), Counted(different), Counted(different, true));
}

void CompareTails(const LevelFile& before, const LevelFile& after, QStringList& found)
{
    const QByteArray old = before.Bytes.sliced(before.Record.MapEnd), now = after.Bytes.sliced(after.Record.MapEnd);
    if (old != now)
        found << Change(QStringLiteral("customs"), Counted(old.size()), Counted(now.size(), old.size() == now.size()));
}

} // namespace

QList<std::pair<QString, QString>> FieldsOf(const LevelRecord& level)
{
    const LevelInfo& info = level.Info;
    return {
        {QStringLiteral("version"), info.Version},
        {QStringLiteral("name"), info.Cavename},
        {QStringLiteral("author"), info.Author},
        {QStringLiteral("width"), info.Width},
        {QStringLiteral("height"), info.Height},
        {QStringLiteral("size"), info.Mapsize},
        {QStringLiteral("bit"), CellBytes(info) == 2 ? QStringLiteral("4bit") : QStringLiteral("2bit")},
        {QStringLiteral("time"), info.Time},
        {QStringLiteral("count"), info.Count},
        {QStringLiteral("form"), level.Form},
    };
}

QStringList LevelDifferences(const LevelFile& before, const LevelFile& after)
{
    QStringList found;
    const auto old = FieldsOf(before.Record), now = FieldsOf(after.Record);
    for (qsizetype i = 0; i < old.size(); ++i)
        if (old.at(i).second != now.at(i).second)
            found << Change(old.at(i).first, old.at(i).second, now.at(i).second);
    const LevelMap &was = before.Record.Map, &is = after.Record.Map;
    for (int y = 0; y < qMin(was.Height(), is.Height()); ++y)
        for (int x = 0; x < qMin(was.Width(), is.Width()); ++x)
            if (was.At(x, y) != is.At(x, y))
                found << Change(QStringLiteral("%1,%2").arg(x + 1).arg(y + 1), QString::number(was.At(x, y)),
                                QString::number(is.At(x, y)));
    CompareSettings(before, after, found);
    CompareTails(before, after, found);
    return found;
}
