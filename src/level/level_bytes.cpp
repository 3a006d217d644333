#include "level/level_bytes.h"

#include "level/level_fields.h"

#include <QtEndian>

namespace {

/// Both reader and writer refuse before they touch anything outside.
bool Fits(qsizetype size, qint32 offset, qsizetype length)
{
    return offset >= 0 && offset <= size - length;
}

QString TextAt(QByteArrayView field)
{
    const auto end = std::find_if(field.begin(), field.end(), [](char byte) { return quint8(byte) < 32; });
    return QString::fromLatin1(field.first(end - field.begin()));
}

int NumberAt(QByteArrayView field)
{
    return field.size() == 1 ? quint8(field[0]) : qFromBigEndian<quint16>(field.data());
}

void PutNumber(char* to, int bytes, int number)
{
    if (bytes == 1)
        *to = char(number);
    else
        qToBigEndian(quint16(number), to);
}

Result<> ReadField(QByteArrayView bytes, const FieldRow& row, LevelRecord& level)
{
    QString& text = level.Info.*row.Text;
    const qint32 offset = level.Offsets.*row.Offset;
    if (offset == NoField && row.Missing) {
        text = QString::fromLatin1(row.Missing);
        return {};
    }
    if (!Fits(bytes.size(), offset, row.Bytes))
        return Fail({}, QStringLiteral("it ends before its map"));
    const QByteArrayView field = bytes.sliced(offset, row.Bytes);
    if (row.IsText()) {
        text = TextAt(field);
        return {};
    }
    const int number = NumberAt(field);
    text = QString::number(number);
    if (number < row.Low || number > row.High)
        return Fail({}, QStringLiteral("its %1 is %2").arg(QString::fromLatin1(row.Key).toLower(), text));
    return {};
}

Result<> ReadMap(QByteArrayView bytes, LevelRecord& level)
{
    const int size = CellBytes(level.Info);
    level.Map = LevelMap(level.Info.Width.toInt(), level.Info.Height.toInt());
    std::vector<qint32>& cells = level.Map.Cells();
    const qsizetype length = qsizetype(cells.size()) * size;
    if (!Fits(bytes.size(), level.Offsets.Mapdata, length))
        return Fail({}, QStringLiteral("it ends inside its map"));
    level.MapEnd = level.Offsets.Mapdata + length;
    const char* from = bytes.data() + level.Offsets.Mapdata;
    for (qint32& cell : cells) {
        cell = NumberAt(QByteArrayView(from, size));
        from += size;
    }
    return {};
}

Result<> WriteText(const QString& name, QString text, char* to)
{
    text.truncate(TextBytes);
    if (text == TextAt(QByteArrayView(to, TextBytes)))
        return {};
    for (const QChar letter : text)
        if (letter.unicode() < 32 || letter.unicode() > 255)
            return Fail({}, QStringLiteral("a level's %1 can not hold the character U+%2")
                                .arg(name, QString::number(letter.unicode(), 16).toUpper()));
    const QByteArray latin = text.toLatin1();
    std::copy(latin.begin(), latin.end(), to);
    if (latin.size() < TextBytes)
        to[latin.size()] = 0;
    return {};
}

Result<> WriteField(const FieldRow& row, const LevelRecord& level, QByteArray& bytes)
{
    const qint32 offset = level.Offsets.*row.Offset;
    const QString name = QString::fromLatin1(row.Key).toLower();
    const QString& text = level.Info.*row.Text;
    if (offset == NoField && row.Missing)
        return {};
    if (!Fits(bytes.size(), offset, row.Bytes))
        return Fail({}, QStringLiteral("the level's working file has lost its %1").arg(name));
    char* to = bytes.data() + offset;
    if (row.IsText())
        return WriteText(name, text, to);
    bool fine = false;
    const int number = text.toInt(&fine);
    if (!fine || number < row.Low || number > row.High)
        return Fail({}, QStringLiteral("the level's %1 is %2, which is not from %3 to %4")
                            .arg(name, text, QString::number(row.Low), QString::number(row.High)));
    PutNumber(to, row.Bytes, number);
    return {};
}

Result<> WriteMap(const LevelRecord& level, QByteArray& bytes)
{
    const LevelMap& map = level.Map;
    if (map.Width() != level.Info.Width.toInt() || map.Height() != level.Info.Height.toInt())
        return Fail({}, QStringLiteral("the level's map does not have the size that its header gives"));
    if (!Fits(bytes.size(), level.Offsets.Mapdata, 0))
        return Fail({}, QStringLiteral("the level's working file has lost its map"));
    const int size = CellBytes(level.Info);
    const int most = size == 1 ? 255 : 65535;
    bytes.resize(level.Offsets.Mapdata + qsizetype(map.Cells().size()) * size);
    char* to = bytes.data() + level.Offsets.Mapdata;
    for (int y = 0; y < map.Height(); ++y) {
        for (int x = 0; x < map.Width(); ++x) {
            const qint32 cell = map.At(x, y);
            if (cell < 0 || cell > most)
                return Fail({}, QStringLiteral("the level's cell %1, %2 is %3, which is not from 0 to %4")
                                    .arg(x + 1)
                                    .arg(y + 1)
                                    .arg(cell)
                                    .arg(most));
            PutNumber(to, size, cell);
            to += size;
        }
    }
    return {};
}

} // namespace

Result<LevelRecord> ParseLevel(QByteArrayView bytes, const OffsetTable& table)
{
    const Result<LevelLayout> layout = FindLayout(bytes, table);
    if (!layout)
        return tl::unexpected(layout.error());
    LevelRecord level;
    level.Offsets = layout->Offsets;
    level.Form = layout->Form;
    level.Family = layout->Family;
    level.Info.Version = LeadingText(bytes);
    for (const FieldRow& row : LevelFields)
        if (const Result<> read = ReadField(bytes, row, level); !read)
            return tl::unexpected(read.error());
    if (const Result<> read = ReadMap(bytes, level); !read)
        return tl::unexpected(read.error());
    return level;
}

Result<QByteArray> PatchLevel(const LevelRecord& level, QByteArrayView working)
{
    QByteArray bytes = working.toByteArray();
    for (const FieldRow& row : LevelFields)
        if (const Result<> written = WriteField(row, level, bytes); !written)
            return tl::unexpected(written.error());
    if (const Result<> written = WriteMap(level, bytes); !written)
        return tl::unexpected(written.error());
    return bytes;
}
