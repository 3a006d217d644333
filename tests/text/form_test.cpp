#include "text/encoding.h"
#include "text/text_form.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

namespace {

// Catches: bytes that a load and a save do not give back.
TEST(Encoding, EveryFileComesBackAsItWas)
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += char(byte);
    const std::pair<QByteArray, FileEncoding> cases[] = {
        {"", FileEncoding::Utf8},
        {"plain\r\n", FileEncoding::Utf8},
        {QByteArray("a\0b", 3), FileEncoding::Utf8},
        {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", FileEncoding::Utf8},
        {"\xEF\xBB\xBF", FileEncoding::Utf8Bom},
        {"\xEF\xBB\xBF\xC3\xA4", FileEncoding::Utf8Bom},
        {"\xEF\xBB\xBF\xE4", FileEncoding::Windows1252}, // a mark before what is no UTF-8
        {"caf\xE9 \x80", FileEncoding::Windows1252},
        {"\xC3", FileEncoding::Windows1252},
        {"\xED\xA0\x80", FileEncoding::Windows1252}, // half a surrogate pair
        {"\xC0\x80", FileEncoding::Windows1252},     // a longer form than needed
        {"\xF5\x80\x80\x80", FileEncoding::Windows1252},
        {all, FileEncoding::Windows1252},
    };
    for (const auto& [file, encoding] : cases) {
        EXPECT_EQ(EncodingOf(file), encoding) << file.toHex().toStdString();
        const QByteArray text = FromFile(file, encoding);
        EXPECT_TRUE(text.isValidUtf8());
        EXPECT_EQ(ToFile(text, encoding), file) << file.toHex().toStdString();
    }
    EXPECT_EQ(FromFile("\x80\x81\x9F\xE9", FileEncoding::Windows1252), "\xE2\x82\xAC\xC2\x81\xC5\xB8\xC3\xA9");
}

// Catches: a character lost or made "?" where the encoding has none.
TEST(Encoding, WhatDoesNotFitIsRefused)
{
    for (const char* text : {"\xC2\x80", "\xC4\x80", "\xE2\x82\xAD", "a\xF0\x9F\x98\x80"})
        EXPECT_FALSE(ToFile(text, FileEncoding::Windows1252).has_value()) << text;
    EXPECT_EQ(ToFile("\xE2\x80\x9Cok\xE2\x80\x9D", FileEncoding::Windows1252), "\x93ok\x94");
}

QByteArray RandomText(QRandomGenerator& random, int pieces)
{
    static const char* const parts[] = {
        "a", "bc", "\r", "\n", "\r\n", "\xC3\xA4", "\xF0\x9F\x98\x80", "longer words ", "\n\r"};
    QByteArray text;
    for (int i = 0; i < pieces; ++i)
        text += parts[random.bounded(int(std::size(parts)))];
    return text;
}

QString SlowText(const QByteArray& bytes)
{
    QString text = QString::fromUtf8(bytes);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
}

// Catches: a fast count that errs at the edge of its eight bytes, a pair CR LF counted twice.
TEST(TextForm, FastRoutinesAgreeWithPlainOnes)
{
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    for (int round = 0; round < 2000; ++round) {
        const QByteArray bytes = RandomText(random, random.bounded(40));
        SCOPED_TRACE(testing::Message() << "seed " << seed << " text " << bytes.toHex().toStdString());
        const QString text = SlowText(bytes);
        ASSERT_EQ(ToText(bytes), text);
        ASSERT_EQ(UnitsOf(bytes), text.size());
        QByteArray lf = text.toUtf8().replace("\r\n", "\n");
        ASSERT_EQ(FromText(text, LineBreak::Lf), lf);
        ASSERT_EQ(WithBreaks(bytes, LineBreak::Cr), lf.replace('\n', '\r'));
        const QByteArray line = QByteArray(bytes).replace('\r', 'x').replace('\n', 'y');
        const QString lineText = QString::fromUtf8(line);
        const int column = random.bounded(int(lineText.size()) + 3);
        const bool splits = column < lineText.size() && lineText[column].isLowSurrogate();
        ASSERT_EQ(OffsetOfColumn(line, column), lineText.left(splits ? column - 1 : column).toUtf8().size());
    }
}

TEST(TextForm, DominantBreakCountsLines)
{
    EXPECT_EQ(DominantBreak("a\r\nb\nc\n", LineBreak::Cr), LineBreak::Lf);
    EXPECT_EQ(DominantBreak("a\r\nb\nc", LineBreak::Cr), LineBreak::CrLf);
    EXPECT_EQ(DominantBreak("a\rb\rc\n", LineBreak::CrLf), LineBreak::Cr);
    EXPECT_EQ(DominantBreak("abc", LineBreak::Cr), LineBreak::Cr);
}

} // namespace
