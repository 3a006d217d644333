#include "level/level_layout.h"

namespace {

constexpr qsizetype LongestLeadingText = 37;

/// A chunk's data lie after its name and its size.
constexpr qsizetype ChunkHead = 8;

/// From a chunk's name to the low half of its size.
constexpr qsizetype LowHalf = 6;

bool MarksStand(QByteArrayView bytes, const LevelOffsets& row)
{
    if (row.Mapsize == NoField)
        return true;
    return HasMark(bytes, row.Width - ChunkHead, "HEAD") && HasMark(bytes, row.Mapsize - LowHalf, "BODY") &&
           (row.Author == NoField || HasMark(bytes, row.Author - ChunkHead, "AUTH"));
}

} // namespace

QString LeadingText(QByteArrayView bytes)
{
    QString text;
    for (const char byte : bytes.first(qMin(bytes.size(), LongestLeadingText))) {
        if (quint8(byte) < 32)
            break;
        text += QLatin1Char(byte);
    }
    return text;
}

bool HasMark(QByteArrayView bytes, qsizetype at, const char* name)
{
    return at >= 0 && at <= bytes.size() - 4 && bytes.sliced(at, 4) == QByteArrayView(name, 4);
}

Result<LevelLayout> FindLayout(QByteArrayView bytes, const OffsetTable& table)
{
    const QString version = LeadingText(bytes);
    const bool current = version == QLatin1StringView("RND1");
    bool known = false;
    if (version != version.toUpper()) // the game minds the case, names of sections do not
        return Fail({}, QStringLiteral("it does not begin like a level"));
    for (const QString& section : {version, QString(version + QStringLiteral(" AUTH"))}) {
        const LevelOffsets row = table(section);
        if (row.Mapdata == 0)
            continue;
        known = true;
        if (MarksStand(bytes, row))
            return LevelLayout{row, current ? QStringLiteral("rnd1-2") : version.section(u'_', -1)};
    }
    if (!known)
        return Fail({}, QStringLiteral("it does not begin like a level"));
    if (current)
        return RecordLayout(bytes);
    return Fail({}, QStringLiteral("its chunks do not stand where this form has them"));
}
