#include "level/level_header.h"

#include "frame/settings/settings.h"
#include "level/level_fields.h"

namespace {

const QString Compatibility = QStringLiteral("Compatibility");

/// The number at a text's start; 0 if there is none.
qint32 ValueOf(const QString& text)
{
    qsizetype end = text.startsWith(u'-') ? 1 : 0;
    while (end < text.size() && text[end].isDigit())
        ++end;
    return text.first(end).toInt();
}

} // namespace

QString ReadLevelHeader(const QString& section, const QString& key)
{
    const QString value = ReadIni(section, key, QStringLiteral("levelheader"));
    return value == QLatin1StringView("NA") ? QString::number(NoField) : value;
}

LevelOffsets ReadLevelOffsets(const QString& section)
{
    LevelOffsets offsets;
    for (const FieldRow& row : LevelFields)
        offsets.*row.Offset = ValueOf(ReadLevelHeader(section, QString::fromLatin1(row.Key)));
    offsets.Mapdata = ValueOf(ReadLevelHeader(section, QStringLiteral("Mapdata")));
    return offsets;
}

LevelFamily FamilyOfTail(QByteArrayView tail)
{
    const QString name = QString::fromLatin1(tail.first(qMin(tail.size(), qsizetype(4))));
    return CustomMarks(LevelFamily::Records).contains(name) ? LevelFamily::Records : LevelFamily::Classic;
}

QStringList CustomMarks(LevelFamily family)
{
    if (family == LevelFamily::Classic)
        return {ReadLevelHeader(Compatibility, QStringLiteral("Envelope")),
                ReadLevelHeader(Compatibility, QStringLiteral("Custom"))};
    return ReadLevelHeader(Compatibility, QStringLiteral("Records")).split(u',', Qt::SkipEmptyParts);
}
