#include "text/text_form.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr quint64 Ones = 0x0101010101010101;
constexpr quint64 Tops = 0x8080808080808080;

/// How many of the eight bytes, none of them above 127, equal `byte`.
int CountEqual(quint64 eight, uchar byte)
{
    const quint64 other = eight ^ (Ones * byte);
    const quint64 equal = ~(other + (Tops - Ones)) & Tops; // the top bit stays clear only where `other` is 0
    return int(((equal >> 7) * Ones) >> 56);
}

/// First line end at or behind `at`. Looks at a stretch at a time, so that a text without LF is not walked anew from
/// every CR.
const char* NextBreak(const char* at, const char* end)
{
    constexpr qsizetype Stretch = 512;
    while (at < end) {
        const char* stop = at + std::min<qsizetype>(Stretch, end - at);
        if (const void* lf = std::memchr(at, '\n', size_t(stop - at))) {
            const void* cr = std::memchr(at, '\r', size_t(static_cast<const char*>(lf) - at));
            return static_cast<const char*>(cr ? cr : lf);
        }
        if (const void* cr = std::memchr(at, '\r', size_t(stop - at)))
            return static_cast<const char*>(cr);
        at = stop;
    }
    return end;
}

qsizetype BreakSize(const char* at, const char* end)
{
    return *at == '\r' && at + 1 < end && at[1] == '\n' ? 2 : 1;
}

} // namespace

QByteArrayView BytesOf(LineBreak lineEnd)
{
    switch (lineEnd) {
    case LineBreak::Lf:
        return "\n";
    case LineBreak::Cr:
        return "\r";
    case LineBreak::CrLf:
        break;
    }
    return "\r\n";
}

qsizetype FindBreak(QByteArrayView bytes, qsizetype from)
{
    return NextBreak(bytes.begin() + from, bytes.end()) - bytes.begin();
}

LineBreak DominantBreak(QByteArrayView bytes, LineBreak otherwise)
{
    qsizetype both = 0, lf = 0, cr = 0;
    const char* end = bytes.end();
    for (const char* at = NextBreak(bytes.begin(), end); at < end;) {
        const qsizetype size = BreakSize(at, end);
        ++(size == 2 ? both : *at == '\n' ? lf : cr);
        at = NextBreak(at + size, end);
    }
    if (both + lf + cr == 0)
        return otherwise;
    if (both >= lf && both >= cr)
        return LineBreak::CrLf;
    return lf >= cr ? LineBreak::Lf : LineBreak::Cr;
}

QByteArray WithBreaks(QByteArrayView bytes, LineBreak lineEnd)
{
    const QByteArrayView wanted = BytesOf(lineEnd);
    QByteArray out;
    out.reserve(bytes.size() + bytes.size() / 32);
    const char* end = bytes.end();
    const char* from = bytes.begin();
    while (from < end) {
        const char* stop = NextBreak(from, end);
        out.append(from, stop - from);
        if (stop == end)
            break;
        out.append(wanted);
        from = stop + BreakSize(stop, end);
    }
    return out;
}

QString ToText(QByteArrayView bytes)
{
    return QString::fromUtf8(WithBreaks(bytes, LineBreak::CrLf));
}

QByteArray FromText(QStringView text, LineBreak lineEnd)
{
    return WithBreaks(text.toUtf8(), lineEnd);
}

qsizetype UnitsOf(QByteArrayView bytes)
{
    qsizetype units = 0;
    const char* at = bytes.begin();
    const char* end = bytes.end();
    char before = 0;
    while (at < end) {
        quint64 eight = 0;
        if (end - at >= 8 && (std::memcpy(&eight, at, 8), (eight & Tops) == 0) && before != '\r' && at[7] != '\r') {
            const int cr = CountEqual(eight, '\r'); // each is a whole line end or half of one
            const int lf = CountEqual(eight, '\n');
            units += 8 + cr + lf;
            if (cr > 0 && lf > 0)
                for (int i = 1; i < 8; ++i)
                    units -= at[i] == '\n' && at[i - 1] == '\r' ? 2 : 0;
            at += 8;
            before = 0;
            continue;
        }
        const char byte = *at++;
        if (byte == '\n')
            units += before == '\r' ? 0 : 2;
        else if (byte == '\r')
            units += 2;
        else if (!IsContinuation(byte))
            units += uchar(byte) >= 0xF0 ? 2 : 1;
        before = byte;
    }
    return units;
}

qsizetype OffsetOfColumn(QByteArrayView line, qsizetype column)
{
    const char* at = line.begin();
    const char* end = line.end();
    while (at < end) {
        quint64 eight = 0;
        if (column >= 8 && end - at >= 8 && (std::memcpy(&eight, at, 8), (eight & Tops) == 0)) {
            at += 8;
            column -= 8;
            continue;
        }
        if (!IsContinuation(*at)) {
            const int width = uchar(*at) >= 0xF0 ? 2 : 1;
            if (column < width)
                break;
            column -= width;
        }
        ++at;
    }
    return at - line.begin();
}
