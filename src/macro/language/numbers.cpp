#include "macro/language/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace {

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Value of a digit below `base`, -1 for any other character.
int DigitValue(QChar c, int base)
{
    const char16_t code = c.toLower().unicode();
    const int value = IsDigit(c) ? code - u'0' : code >= u'a' && code <= u'f' ? code - u'a' + 10 : -1;
    return value < base ? value : -1;
}

std::optional<qint32> Rounded(double value)
{
    const double whole = std::nearbyint(value); // halves go to the even neighbour
    constexpr std::numeric_limits<qint32> limits;
    if (!(whole >= limits.min() && whole <= limits.max()))
        return std::nullopt;
    return qint32(whole);
}

/// "&H..." and "&O..." from `at` on, which moves behind the last digit.
ReadNumber ReadCoded(QStringView text, qsizetype& at)
{
    const bool hexadecimal = at + 1 < text.size() && text[at + 1].toLower() == u'h';
    if (!hexadecimal && (at + 1 >= text.size() || text[at + 1].toLower() != u'o'))
        return {};
    const int base = hexadecimal ? 16 : 8;
    const qsizetype first = at + 2;
    quint64 value = 0;
    qsizetype end = first;
    for (; end < text.size() && DigitValue(text[end], base) >= 0; ++end)
        if (value <= std::numeric_limits<quint32>::max())
            value = value * quint64(base) + quint64(DigitValue(text[end], base));
    ReadNumber read;
    if (end == first)
        return read;
    at = end;
    read.Numeric = hexadecimal;
    const qsizetype shortest = hexadecimal ? 4 : 6;
    if (value > std::numeric_limits<quint32>::max())
        read.Long = std::nullopt;
    else if (end - first <= shortest && value <= std::numeric_limits<quint16>::max())
        read.Long = qint16(quint16(value));
    else
        read.Long = qint32(quint32(value));
    return read;
}

qsizetype SkipDigits(QStringView text, qsizetype at)
{
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    return at;
}

/// Behind an exponent that stands at `at`; `at` if none does.
qsizetype SkipExponent(QStringView text, qsizetype at)
{
    if (at >= text.size() || text[at].toLower() != u'e')
        return at;
    const bool sign = at + 1 < text.size() && (text[at + 1] == u'-' || text[at + 1] == u'+');
    const qsizetype digits = at + 1 + sign;
    const qsizetype end = SkipDigits(text, digits);
    return end > digits ? end : at;
}

double DoubleOf(QStringView number)
{
    const QByteArray bytes = number.toLatin1();
    double value = 0;
    const auto [end, fault] = std::from_chars(bytes.cbegin(), bytes.cend(), value);
    if (fault == std::errc::result_out_of_range)
        return bytes.toLower().contains("e-") ? 0 : std::numeric_limits<double>::infinity();
    return value;
}

/// A decimal number from `at` on, which moves behind it.
ReadNumber ReadDecimal(QStringView text, qsizetype& at)
{
    const bool negative = text[at] == u'-';
    const qsizetype start = at + (negative || text[at] == u'+');
    const qsizetype whole = SkipDigits(text, start);
    qsizetype end = whole;
    if (end < text.size() && text[end] == u'.')
        end = SkipDigits(text, end + 1);
    if (end - start < 1 || (end - start == 1 && text[start] == u'.'))
        return {};
    const qsizetype behind = SkipExponent(text, end);
    ReadNumber read;
    read.Numeric = true;
    constexpr qsizetype ShortDigits = 9;
    if (behind == whole && whole - start <= ShortDigits) {
        qint32 value = 0;
        for (qsizetype i = start; i < whole; ++i)
            value = value * 10 + (text[i].unicode() - u'0');
        read.Long = negative ? -value : value;
    } else {
        const double value = DoubleOf(text.sliced(start, behind - start));
        read.Long = Rounded(negative ? -value : value);
    }
    at = behind;
    return read;
}

/// Is a text that holds nothing but this number written as the number would be?
bool IsPlain(QStringView text, qint32 value)
{
    constexpr qsizetype LongestPlain = 11;
    if (text.size() > LongestPlain)
        return false;
    const QStringView digits = text.first() == u'-' ? text.sliced(1) : text;
    if (SkipDigits(digits, 0) != digits.size())
        return false;
    return digits.first() != u'0' ? true : value == 0 && text.size() == 1;
}

} // namespace

ReadNumber NumberIn(QStringView text)
{
    qsizetype at = 0;
    while (at < text.size() && text[at] == u' ')
        ++at;
    if (at == text.size())
        return {};
    ReadNumber read = text[at] == u'&' ? ReadCoded(text, at) : ReadDecimal(text, at);
    if (!read.Numeric)
        return read;
    const qsizetype end = at;
    while (at < text.size() && text[at] == u' ')
        ++at;
    read.Numeric = at == text.size();
    read.Plain = read.Numeric && read.Long && end == text.size() && IsPlain(text, *read.Long);
    return read;
}

bool IsNumeric(QStringView text)
{
    return NumberIn(text).Numeric;
}
