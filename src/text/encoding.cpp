#include "text/encoding.h"

#include <QString>
#include <algorithm>
#include <array>

namespace {

constexpr QByteArrayView Mark("\xEF\xBB\xBF");

/// Codes 0x80 to 0x9F. The five that have no character of their own keep their number, so that they survive.
constexpr std::array<char16_t, 32> Upper = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

bool IsAscii(char byte)
{
    return uchar(byte) < 0x80;
}

void AppendUtf8(QByteArray& out, uint code)
{
    if (code < 0x800) {
        out.append(char(0xC0 | (code >> 6)));
    } else {
        out.append(char(0xE0 | (code >> 12)));
        out.append(char(0x80 | ((code >> 6) & 0x3F)));
    }
    out.append(char(0x80 | (code & 0x3F)));
}

/// The byte for a character, or nothing.
std::optional<char> ByteFor(uint code)
{
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
        return char(code);
    const auto found = std::find(Upper.begin(), Upper.end(), code);
    if (found == Upper.end())
        return std::nullopt;
    return char(0x80 + (found - Upper.begin()));
}

/// Reads one character of two or three bytes; longer ones are beyond what the caller can use and give 0x10000.
uint TakeCode(const char*& at, const char* end)
{
    const uchar lead = uchar(*at++);
    const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    uint code = more == 1 ? lead & 0x1Fu : lead & 0x0Fu;
    for (int i = 0; i < more && at < end; ++i)
        code = (code << 6) | (uchar(*at++) & 0x3Fu);
    return more == 3 ? 0x10000u : code;
}

std::optional<QByteArray> ToWindows1252(QByteArrayView utf8)
{
    QByteArray out;
    out.reserve(utf8.size());
    const char* at = utf8.begin();
    while (at < utf8.end()) {
        const char* run = std::find_if_not(at, utf8.end(), IsAscii);
        out.append(at, run - at);
        at = run;
        if (at == utf8.end())
            break;
        const std::optional<char> byte = ByteFor(TakeCode(at, utf8.end()));
        if (!byte)
            return std::nullopt;
        out.append(*byte);
    }
    return out;
}

QByteArray FromWindows1252(QByteArrayView file)
{
    QByteArray out;
    out.reserve(file.size() + file.size() / 16);
    const char* at = file.begin();
    while (at < file.end()) {
        const char* run = std::find_if_not(at, file.end(), IsAscii);
        out.append(at, run - at);
        if (run == file.end())
            break;
        const uint byte = uchar(*run);
        AppendUtf8(out, byte < 0xA0 ? Upper[byte - 0x80] : byte);
        at = run + 1;
    }
    return out;
}

} // namespace

FileEncoding EncodingOf(QByteArrayView file)
{
    if (!file.isValidUtf8())
        return FileEncoding::Windows1252;
    return file.startsWith(Mark) ? FileEncoding::Utf8Bom : FileEncoding::Utf8;
}

QByteArray FromFile(QByteArrayView file, FileEncoding encoding)
{
    switch (encoding) {
    case FileEncoding::Windows1252:
        return FromWindows1252(file);
    case FileEncoding::Utf8Bom:
        return file.sliced(Mark.size()).toByteArray();
    case FileEncoding::Utf8:
        break;
    }
    return file.toByteArray();
}

std::optional<QByteArray> ToFile(QByteArrayView utf8, FileEncoding encoding)
{
    switch (encoding) {
    case FileEncoding::Windows1252:
        return ToWindows1252(utf8);
    case FileEncoding::Utf8Bom:
        return Mark.toByteArray() + utf8.toByteArray();
    case FileEncoding::Utf8:
        break;
    }
    return utf8.toByteArray();
}
