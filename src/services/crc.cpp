#include "services/crc.h"

#include "platform/files/paths.h"

#include <array>
#include <limits>

namespace {

constexpr quint32 Reflected32 = 0xEDB88320, Polynomial16 = 0x1021;
constexpr qsizetype Step = 8; ///< bytes of a CRC-32 at a time

using CrcTable = std::array<quint32, 256>;

/// Table 0 is the algorithm's own; table n takes a byte n places further on.
constexpr std::array<CrcTable, Step> Tables32 = [] {
    std::array<CrcTable, Step> tables{};
    for (quint32 i = 0; i < 256; ++i) {
        quint32 entry = i;
        for (int bit = 0; bit < 8; ++bit)
            entry = (entry >> 1) ^ (entry & 1 ? Reflected32 : 0);
        tables[0][i] = entry;
    }
    for (size_t n = 1; n < tables.size(); ++n)
        for (size_t i = 0; i < 256; ++i)
            tables[n][i] = (tables[n - 1][i] >> 8) ^ tables[0][tables[n - 1][i] & 0xFF];
    return tables;
}();

constexpr CrcTable Table16 = [] {
    CrcTable table{};
    for (quint32 i = 0; i < 256; ++i) {
        quint32 entry = i << 8;
        for (int bit = 0; bit < 8; ++bit)
            entry = (entry << 1) ^ (entry & 0x8000 ? Polynomial16 : 0);
        table[i] = entry & 0xFFFF;
    }
    return table;
}();

quint32 Crc32(quint32 value, QByteArrayView bytes)
{
    const auto* at = reinterpret_cast<const uchar*>(bytes.data());
    const auto* const end = at + bytes.size();
    const auto word = [](const uchar* from) {
        return quint32(from[0]) | quint32(from[1]) << 8 | quint32(from[2]) << 16 | quint32(from[3]) << 24;
    };
    for (; end - at >= Step; at += Step) {
        const quint32 low = value ^ word(at), high = word(at + 4);
        value = Tables32[7][low & 0xFF] ^ Tables32[6][low >> 8 & 0xFF] ^ Tables32[5][low >> 16 & 0xFF] ^
                Tables32[4][low >> 24] ^ Tables32[3][high & 0xFF] ^ Tables32[2][high >> 8 & 0xFF] ^
                Tables32[1][high >> 16 & 0xFF] ^ Tables32[0][high >> 24];
    }
    for (; at < end; ++at)
        value = (value >> 8) ^ Tables32[0][(value ^ *at) & 0xFF];
    return value;
}

quint32 Crc16(quint32 value, QByteArrayView bytes)
{
    for (const char byte : bytes)
        value = (value << 8) ^ Table16[((value >> 8) ^ uchar(byte)) & 0xFF];
    return value & 0xFFFF;
}

/// Adds a file's pieces; the first one clears.
class CrcTaker : public paths::PieceTaker
{
public:
    explicit CrcTaker(clsCRC& to) : crc(to) {}

    void Begin(qint64) override {}
    void Take(QByteArrayView piece) override
    {
        if (!Taken)
            crc.Clear();
        Taken = true;
        crc.AddBytes(piece);
    }

    bool Taken = false;

private:
    clsCRC& crc;
};

} // namespace

qint32 clsCRC::AddBytes(QByteArrayView bytes)
{
    if (wide)
        register32 = Crc32(register32, bytes);
    else if (!bytes.isEmpty())
        register16 = Crc16(register16, bytes);
    return Value();
}

qint32 clsCRC::AddString(const QString& text)
{
    return AddBytes(text.toLatin1());
}

void clsCRC::SetAlgorithm(int number)
{
    wide = number != 0;
    Clear();
}

qint32 clsCRC::CalculateBytes(QByteArrayView bytes)
{
    Clear();
    return AddBytes(bytes);
}

qint32 clsCRC::CalculateString(const QString& text)
{
    Clear();
    return AddString(text);
}

Result<std::optional<qint32>> clsCRC::CalculateFile(const QString& path)
{
    CrcTaker taker(*this);
    return paths::ReadPieces(path, std::numeric_limits<qint64>::max() - 1, taker).map([&] {
        return taker.Taken ? std::optional(Value()) : std::nullopt;
    });
}

qint32 clsCRC::Value() const
{
    return qint32(wide ? ~register32 : register16 & 0xFFFF);
}

void clsCRC::SetValue(qint32 number)
{
    (wide ? register32 : register16) = quint32(number);
}

void clsCRC::Clear()
{
    register16 = 0;
    register32 = 0xFFFFFFFF;
}

Result<QString> FileCrcText(const QString& path)
{
    clsCRC crc;
    return crc.CalculateFile(path).map(
        [](std::optional<qint32> value) { return QString::number(quint32(value.value_or(0)), 16).toUpper(); });
}
