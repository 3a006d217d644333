#include "level/level_layout.h"

#include <QtEndian>
#include <algorithm>

namespace {

/// Where the chunks begin: after "RND1", a size of 0 and "CAVE", which has no size.
constexpr qsizetype FirstChunk = 12;
constexpr qsizetype CellSize = 2;

struct Chunk
{
    QByteArrayView Name;
    qsizetype Start = 0, Size = 0; ///< of its data
};

/// The record kinds of "INFO" that are fields. All have values of two bytes; of width and height the low one is used.
struct RecordRow
{
    quint8 Kind;
    qint8 Skip;
    qint32 LevelOffsets::*Offset;
};
constexpr RecordRow FieldRecords[] = {
    {0x41, 1, &LevelOffsets::Width},
    {0x42, 1, &LevelOffsets::Height},
    {0x43, 0, &LevelOffsets::Time},
    {0x44, 0, &LevelOffsets::Count},
};

bool IsName(QByteArrayView name)
{
    return std::all_of(name.begin(), name.end(),
                       [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

Result<Chunk> ChunkAt(QByteArrayView bytes, qsizetype at)
{
    if (at > bytes.size() - 8)
        return Fail({}, QStringLiteral("it ends before its map"));
    const Chunk chunk{bytes.sliced(at, 4), at + 8, qsizetype(qFromBigEndian<quint32>(bytes.data() + at + 4))};
    if (!IsName(chunk.Name))
        return Fail({}, QStringLiteral("its chunks do not stand where this form has them"));
    if (chunk.Size > bytes.size() - chunk.Start)
        return Fail({}, QStringLiteral("it ends inside its chunk %1").arg(QLatin1StringView(chunk.Name)));
    return chunk;
}

/// The two top bits of a kind tell the size of its value, 3 standing for a size of 16 bits in front of the value.
/// Gives where the value ends; past `bytes` if it is cut off.
qsizetype ValueEnd(QByteArrayView bytes, qsizetype at, int sizeBits)
{
    if (sizeBits < 3)
        return at + (qsizetype(1) << sizeBits);
    return at > bytes.size() - 2 ? bytes.size() + 1 : at + 2 + qFromBigEndian<quint16>(bytes.data() + at);
}

/// Offsets of the records that are fields. Of two records of one kind the last rules, as in the game.
Result<> ReadRecords(QByteArrayView bytes, const Chunk& info, LevelOffsets& offsets)
{
    const QByteArrayView records = bytes.first(info.Start + info.Size);
    for (qsizetype at = info.Start; at < records.size();) {
        const quint8 kind = quint8(records[at]);
        const qsizetype value = at + 1;
        at = ValueEnd(records, value, kind >> 6);
        if (at > records.size())
            return Fail({}, QStringLiteral("its chunk INFO ends inside a record"));
        for (const RecordRow& row : FieldRecords) {
            if (kind != row.Kind)
                continue;
            if (row.Skip && records[value] != 0)
                return Fail({}, QStringLiteral("its map is larger than a level's"));
            offsets.*row.Offset = qint32(value) + row.Skip;
        }
    }
    return {};
}

bool IsWhole(const LevelOffsets& offsets)
{
    for (const RecordRow& row : FieldRecords)
        if (offsets.*row.Offset == NoField)
            return false;
    return offsets.Cavename != NoField;
}

} // namespace

Result<LevelLayout> RecordLayout(QByteArrayView bytes)
{
    if (!HasMark(bytes, FirstChunk - 4, "CAVE"))
        return Fail({}, QStringLiteral("it does not begin like a level"));
    LevelOffsets offsets{NoField, NoField, NoField, NoField, NoField, NoField, NoField, NoField, NoField};
    Chunk chunk;
    for (qsizetype at = FirstChunk; chunk.Name != "BODY"; at = chunk.Start + chunk.Size) {
        const Result<Chunk> found = ChunkAt(bytes, at);
        if (!found)
            return tl::unexpected(found.error());
        chunk = *found;
        if (chunk.Name == "NAME" && chunk.Size == 32)
            offsets.Cavename = qint32(chunk.Start);
        else if (chunk.Name == "AUTH" && chunk.Size == 32)
            offsets.Author = qint32(chunk.Start);
        else if (chunk.Name == "INFO") {
            const Result<> read = ReadRecords(bytes, chunk, offsets);
            if (!read)
                return tl::unexpected(read.error());
        }
    }
    if (!IsWhole(offsets))
        return Fail({}, QStringLiteral("a chunk or record that every level has is missing"));
    if (chunk.Size != CellSize * quint8(bytes[offsets.Width]) * quint8(bytes[offsets.Height]))
        return Fail({}, QStringLiteral("its chunk BODY does not have the size of its map"));
    offsets.Mapsize = qint32(chunk.Start) - 2;
    offsets.Mapdata = qint32(chunk.Start);
    return LevelLayout{offsets, QStringLiteral("rnd1-3"), LevelFamily::Records};
}
