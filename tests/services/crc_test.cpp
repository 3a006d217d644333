#include "services/crc.h"
#include "services/write_resource.h"
#include "test_support.h"

#include <QFile>
#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

constexpr QByteArrayView Digits("123456789");

/// Bit by bit, as the algorithms are published.
quint32 Slow32(QByteArrayView bytes)
{
    quint32 value = 0xFFFFFFFF;
    for (const char byte : bytes)
        for (int bit = 0; bit < 8; ++bit) {
            const bool one = (value ^ (uchar(byte) >> bit)) & 1;
            value = (value >> 1) ^ (one ? 0xEDB88320 : 0);
        }
    return ~value;
}

quint32 Slow16(QByteArrayView bytes)
{
    quint32 value = 0;
    for (const char byte : bytes)
        for (int bit = 7; bit >= 0; --bit) {
            const bool one = ((value >> 15) ^ (uchar(byte) >> bit)) & 1;
            value = ((value << 1) ^ (one ? 0x1021 : 0)) & 0xFFFF;
        }
    return value;
}

} // namespace

// The check values that everybody publishes, and both algorithms in pieces of any size against their slow twins.
TEST(Crc, PublishedValuesAndSlowTwins)
{
    clsCRC crc;
    EXPECT_EQ(quint32(crc.CalculateBytes(Digits)), 0xCBF43926u);
    EXPECT_EQ(crc.Algorithm(), -1);
    crc.SetAlgorithm(0);
    EXPECT_EQ(crc.CalculateString(QStringLiteral("123456789")), 0x31C3);
    EXPECT_EQ(crc.Algorithm(), 0);

    QRandomGenerator random(71);
    for (int round = 0; round < 200; ++round) {
        QByteArray bytes(random.bounded(300), Qt::Uninitialized);
        for (char& byte : bytes)
            byte = char(random.bounded(256));
        const qsizetype cut = random.bounded(int(bytes.size()) + 1);
        for (const int algorithm : {1, 0}) {
            crc.SetAlgorithm(algorithm);
            crc.AddBytes(QByteArrayView(bytes).first(cut));
            const auto value = quint32(crc.AddBytes(QByteArrayView(bytes).sliced(cut)));
            EXPECT_EQ(value, algorithm ? Slow32(bytes) : Slow16(bytes));
            EXPECT_EQ(quint32(crc.CalculateBytes(bytes)), value);
        }
    }
}

TEST(Crc, StateBetweenCalls)
{
    clsCRC crc;
    crc.SetValue(5);
    EXPECT_EQ(crc.Value(), -6);
    EXPECT_EQ(crc.AddBytes({}), -6) << "nothing added";
    EXPECT_EQ(crc.CalculateString({}), 0);
    crc.AddBytes(Digits);
    crc.SetAlgorithm(2);
    EXPECT_EQ(crc.Algorithm(), -1);
    EXPECT_EQ(crc.Value(), 0) << "setting the same algorithm clears too";
    crc.SetAlgorithm(0);
    crc.SetValue(0x12345);
    EXPECT_EQ(crc.Value(), 0x2345);
    EXPECT_EQ(crc.CalculateString({}), 0);
}

// Catches a text form that is padded or signed, an empty file with the value of the one before it.
TEST(Crc, Files)
{
    const TestFolder folder;
    const QString empty = folder.Write(QStringLiteral("empty"), "");
    clsCRC crc;
    crc.AddBytes(Digits);
    EXPECT_EQ(*crc.CalculateFile(empty), std::nullopt);
    EXPECT_EQ(quint32(crc.Value()), 0xCBF43926u);
    EXPECT_EQ(quint32(**crc.CalculateFile(folder.Write(QStringLiteral("d"), "123456789"))), 0xCBF43926u);
    EXPECT_EQ(*FileCrcText(folder.Path(QStringLiteral("D"))), QStringLiteral("CBF43926"));
    EXPECT_EQ(*FileCrcText(empty), QStringLiteral("0"));
    EXPECT_FALSE(FileCrcText(folder.Path()));
    EXPECT_FALSE(FileCrcText(folder.Path(QStringLiteral("none"))));
    QByteArray large(3'000'000, '\0');
    for (qsizetype i = 0; i < large.size(); ++i)
        large[i] = char(i * i >> 7);
    EXPECT_EQ(quint32(**crc.CalculateFile(folder.Write(QStringLiteral("large"), large))), Slow32(large));
    EXPECT_EQ(*FileCrcText(folder.Write(QStringLiteral("small"), "665")), QStringLiteral("81566"));
}

TEST(WriteResource, ByteForByteOverWhatStandsThere)
{
    const TestFolder folder;
    const QString target = folder.Write(QStringLiteral("sample"), QByteArray(100000, 'x'));
    ASSERT_TRUE(WriteResource(QStringLiteral("SAMPLE"), QStringLiteral("CUSTOM"), target));
    QFile source(ProjectFile(QStringLiteral("tests/services/crc_test.cpp")));
    ASSERT_TRUE(source.open(QIODevice::ReadOnly));
    EXPECT_EQ(folder.Read(QStringLiteral("sample")), source.readAll());
    EXPECT_FALSE(WriteResource(QStringLiteral("NONE"), QStringLiteral("CUSTOM"), target));
    EXPECT_FALSE(WriteResource(QStringLiteral("SAMPLE"), QStringLiteral("CUSTOM"), folder.Path()));
    EXPECT_GT(folder.Read(QStringLiteral("sample")).size(), 100);
}
