#include "decoder/bmp_header.h"

#include <algorithm>
#include <bit>

namespace decoder {

namespace {

constexpr std::size_t FileHeader = 14, PlainHeader = 40, MasksAt = FileHeader + PlainHeader, ThreeMasks = 12;
constexpr std::size_t OffsetAt = 10, HeightAt = 22, BitsAt = 28, CompressionAt = 30, SizeAt = 34;
constexpr std::uint32_t NoCompression = 0, Masks = 3;
constexpr std::uint32_t LongHeaders[] = {52, 56, 108, 124};
constexpr std::uint32_t LeastWithAlpha = 56;

std::uint32_t Number(Bytes file, std::size_t at, int bytes)
{
    std::uint32_t number = 0;
    for (int i = 0; i < bytes; ++i)
        number |= std::uint32_t(file[at + std::size_t(i)]) << (8 * i);
    return number;
}

void Put(std::vector<std::byte>& to, std::size_t at, std::uint32_t number, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        to[at + std::size_t(i)] = std::byte(number >> (8 * i) & 0xff);
}

/// The bits of a pixel that hold one channel.
struct Channel
{
    explicit Channel(std::uint32_t bits)
        : Mask(bits), Shift(bits == 0 ? 0 : std::countr_zero(bits)), Most(bits >> Shift)
    {
    }
    std::uint32_t Of(std::uint32_t pixel, std::uint32_t without) const
    {
        return Mask == 0 ? without : std::uint32_t((std::uint64_t((pixel & Mask) >> Shift) * 255 + Most / 2) / Most);
    }
    std::uint32_t Mask;
    int Shift;
    std::uint32_t Most;
};

/// The header's numbers, as they are used here; for a file with all of its header.
struct Header
{
    explicit Header(Bytes file)
        : Length(Number(file, FileHeader, 4)),
          Offset(Number(file, OffsetAt, 4)),
          Width(Number(file, FileHeader + 4, 4)),
          Height(Number(file, HeightAt, 4)),
          Bits(Number(file, BitsAt, 2)),
          Compression(Number(file, CompressionAt, 4))
    {
        for (std::size_t i = 0; HasMasks() && i < std::size(Channels); ++i)
            Channels[i] = i < 3 || Length >= LeastWithAlpha ? Number(file, MasksAt + 4 * i, 4) : 0;
    }

    bool IsLong() const { return std::ranges::find(LongHeaders, Length) != std::end(LongHeaders); }
    bool HasMasks() const { return Compression == Masks && (Bits == 16 || Bits == 32); }
    /// Header and masks.
    std::uint64_t End() const { return FileHeader + Length + (HasMasks() && Length == PlainHeader ? ThreeMasks : 0); }
    bool MasksAreStrange() const
    {
        if (!HasMasks())
            return false;
        const auto are = [this](std::uint32_t red, std::uint32_t green, std::uint32_t blue, std::uint32_t alpha) {
            return Channels[0] == red && Channels[1] == green && Channels[2] == blue && Channels[3] == alpha;
        };
        if (Bits == 16)
            return !are(0xf800, 0x7e0, 0x1f, 0) && !are(0x7c00, 0x3e0, 0x1f, 0);
        // A short header has no word on alpha; a long one that denies it is believed.
        return !are(0xff0000, 0xff00, 0xff, Length < LeastWithAlpha ? 0 : 0xff000000);
    }
    /// A height below 0 says that the rows begin at the top.
    std::uint32_t Rows() const { return Height >> 31 ? 0 - Height : Height; }
    std::uint64_t Row() const { return (std::uint64_t(Width) * Bits + 31) / 32 * 4; }

    std::uint32_t Length, Offset, Width, Height, Bits, Compression;
    std::uint32_t Channels[4] = {}; ///< masks of red, green, blue and alpha
};

/// Rows that the file has not are left out: the library sees that they are missing.
void AppendUnmasked(std::vector<std::byte>& to, Bytes file, const Header& header)
{
    const Channel red(header.Channels[0]), green(header.Channels[1]), blue(header.Channels[2]),
        alpha(header.Channels[3]);
    const int bytes = int(header.Bits / 8);
    std::uint64_t from = header.Offset;
    for (std::uint32_t y = 0; y < header.Rows() && from + header.Row() <= file.size(); ++y, from += header.Row())
        for (std::uint32_t x = 0; x < header.Width; ++x) {
            const std::uint32_t pixel = Number(file, std::size_t(from) + std::size_t(x) * std::size_t(bytes), bytes);
            to.resize(to.size() + 4);
            Put(to, to.size() - 4,
                blue.Of(pixel, 0) | green.Of(pixel, 0) << 8 | red.Of(pixel, 0) << 16 | alpha.Of(pixel, 255) << 24, 4);
        }
}

} // namespace

bool NeedsPlainBmp(Bytes file)
{
    if (file.size() < MasksAt + ThreeMasks || file[0] != std::byte{'B'} || file[1] != std::byte{'M'})
        return false;
    const std::uint32_t length = Number(file, FileHeader, 4);
    if (length > file.size() - FileHeader || length < PlainHeader)
        return false;
    const Header header(file);
    const bool sound = header.Offset >= header.End() && header.Offset <= file.size();
    const bool strange = header.MasksAreStrange();
    return sound && (header.IsLong() || (header.Length == PlainHeader && strange)) &&
           (!strange || WithinLimits(header.Width, header.Rows()));
}

std::vector<std::byte> PlainBmp(Bytes file)
{
    const Header header(file);
    std::vector<std::byte> plain(file.begin(), file.begin() + MasksAt);
    Put(plain, FileHeader, PlainHeader, 4);
    if (header.MasksAreStrange()) {
        Put(plain, OffsetAt, MasksAt, 4);
        Put(plain, BitsAt, 32, 2);
        Put(plain, CompressionAt, NoCompression, 4);
        Put(plain, SizeAt, 0, 4);
        AppendUnmasked(plain, file, header);
        return plain;
    }
    if (header.HasMasks())
        plain.insert(plain.end(), file.begin() + MasksAt, file.begin() + MasksAt + ThreeMasks);
    Put(plain, OffsetAt, std::uint32_t(header.Offset - header.End() + plain.size()), 4);
    plain.insert(plain.end(), file.begin() + std::ptrdiff_t(header.End()), file.end());
    return plain;
}

} // namespace decoder
