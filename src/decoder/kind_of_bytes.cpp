#include "decoder/kind_of_bytes.h"

#include <algorithm>
#include <string_view>

namespace decoder {

namespace {

using namespace std::string_view_literals;

/// A text that must stand at a place of the file.
struct Mark
{
    std::uint32_t Kind;
    std::size_t At;
    std::string_view Text;
    std::string_view Form = {}; ///< for families of formats under one roof
};

constexpr Mark Marks[] = {
    {13, 0, "\x89PNG\r\n\x1a\n"sv},
    {3, 0, "\x8bJNG\r\n\x1a\n"sv},
    {6, 0, "\x8aMNG\r\n\x1a\n"sv},
    {2, 0, "\xff\xd8\xff"sv},
    {25, 0, "GIF87a"sv},
    {25, 0, "GIF89a"sv},
    {0, 0, "BM"sv},
    {18, 0, "II*\0"sv},
    {18, 0, "MM\0*"sv},
    {20, 0, "8BPS\0\1"sv},
    {24, 0, "DDS |\0\0\0"sv},
    {5, 0, "FORM"sv, "ILBM"sv},
    {5, 0, "FORM"sv, "PBM "sv},
    {16, 0, "\x59\xa6\x6a\x95"sv},
    {26, 0, "#?RADIANCE"sv},
    {26, 0, "#?RGBE"sv},
    {23, 0, "/* XPM"sv},
    {22, 0, "#define "sv},
    {7, 0, "P1"sv},
    {11, 0, "P2"sv},
    {14, 0, "P3"sv},
    {8, 0, "P4"sv},
    {12, 0, "P5"sv},
    {15, 0, "P6"sv},
    {9, 2048, "PCD_IPI"sv},
    {1, 0, "\0\0\1\0"sv},
    {10, 0, "\x0a\5\1"sv},
    {10, 0, "\x0a\3\1"sv},
    {10, 0, "\x0a\2\1"sv},
};

constexpr std::uint32_t TargaKind = 17;
constexpr std::string_view TargaEnd = "TRUEVISION-XFILE.\0"sv;

bool HasAt(Bytes bytes, std::size_t at, std::string_view text)
{
    return bytes.size() >= at + text.size() &&
           std::equal(text.begin(), text.end(), bytes.begin() + std::ptrdiff_t(at),
                      [](char letter, std::byte byte) { return std::byte(letter) == byte; });
}

bool Fits(const Mark& mark, Bytes front)
{
    constexpr std::size_t FormAt = 8;
    return HasAt(front, mark.At, mark.Text) && (mark.Form.empty() || HasAt(front, FormAt, mark.Form));
}

} // namespace

std::optional<std::uint32_t> KindOfBytes(Bytes front, Bytes end)
{
    const auto* const found = std::ranges::find_if(Marks, [front](const Mark& mark) { return Fits(mark, front); });
    if (found != std::end(Marks))
        return found->Kind;
    if (HasAt(end, 0, TargaEnd))
        return TargaKind;
    return {};
}

} // namespace decoder
