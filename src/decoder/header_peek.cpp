#include "decoder/header_peek.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace decoder {

namespace {

/// Goes through bytes from the front; whatever lies behind their end reads as 0 and leaves Good false.
class Reader
{
public:
    explicit Reader(Bytes bytes) : file(bytes) {}

    std::uint64_t Byte()
    {
        if (place >= file.size())
            Good = false;
        return Good ? std::uint64_t(file[place++]) : 0;
    }
    std::uint64_t Little(int bytes)
    {
        std::uint64_t number = 0;
        for (int i = 0; i < bytes; ++i)
            number |= Byte() << (8 * i);
        return number;
    }
    std::uint64_t Big(int bytes)
    {
        std::uint64_t number = 0;
        for (; bytes > 0; --bytes)
            number = number << 8 | Byte();
        return number;
    }
    /// Seven bits a byte, the highest first; the eighth says that more follow.
    std::uint64_t Stretched()
    {
        std::uint64_t number = 0, byte = 0x80;
        for (int most = 5; most > 0 && (byte & 0x80) != 0; --most) {
            byte = Byte();
            number = number << 7 | (byte & 0x7f);
        }
        return number;
    }
    bool Is(std::string_view text)
    {
        return std::all_of(text.begin(), text.end(), [this](char letter) { return Byte() == std::uint8_t(letter); });
    }
    void Skip(std::uint64_t count)
    {
        Good = Good && count <= file.size() - place;
        if (Good)
            place += std::size_t(count);
    }

    bool Good = true;

private:
    Bytes file;
    std::size_t place = 0;
};

using Size = std::optional<Extent>;

Size IfGood(const Reader& reader, std::uint64_t width, std::uint64_t height)
{
    return reader.Good ? Size({width, height}) : std::nullopt;
}

Size PeekKoala(Bytes)
{
    return Extent{320, 200};
}

Size PeekIff(Bytes file)
{
    Reader reader(file);
    reader.Skip(12); // "FORM", its size, "ILBM" or "PBM "
    while (reader.Good) {
        const bool header = reader.Big(4) == 0x424d4844; // "BMHD"
        const std::uint64_t size = reader.Big(4);
        if (header) {
            const std::uint64_t width = reader.Big(2);
            return IfGood(reader, width, reader.Big(2));
        }
        reader.Skip(size + size % 2);
    }
    return {};
}

Size PeekMng(Bytes file)
{
    Reader reader(file);
    reader.Skip(16); // mark, length and name of the first chunk
    const std::uint64_t width = reader.Big(4);
    return IfGood(reader, width, reader.Big(4));
}

Size PeekWbmp(Bytes file)
{
    Reader reader(file);
    reader.Skip(2);
    const std::uint64_t width = reader.Stretched();
    return IfGood(reader, width, reader.Stretched());
}

/// The number behind "width" or "height" in the text's first lines.
std::uint64_t NumberBehind(std::string_view text, std::string_view word)
{
    const std::size_t found = text.find(word);
    if (found == std::string_view::npos)
        return 0;
    text.remove_prefix(std::min(text.find_first_not_of(" \t", found + word.size()), text.size()));
    std::uint64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// The library looks for numbers that are not there without an end, and begins in the line behind the bracket's. In
/// the older form each holds 16 pixels.
bool HasItsNumbers(std::string_view text, const Extent& size)
{
    const std::size_t begins = std::min(text.find('\n', text.find('{')), text.size());
    const bool older = text.substr(0, begins).find("short") != std::string_view::npos;
    const std::uint64_t pixels = older ? 16 : 8;
    const auto numbers = std::ranges::count_if(text.substr(begins), [](char letter) { return (letter | 0x20) == 'x'; });
    return std::uint64_t(numbers) >= (size.Width + pixels - 1) / pixels * size.Height;
}

Size PeekXbm(Bytes file)
{
    constexpr std::size_t Heading = 1024;
    const std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
    const std::string_view heading = text.substr(0, Heading);
    const Extent size{NumberBehind(heading, "width"), NumberBehind(heading, "height")};
    if (size.Width == 0 || size.Height == 0)
        return {};
    return !WithinLimits(size.Width, size.Height) || HasItsNumbers(text, size) ? Size(size) : std::nullopt;
}

Size PeekDds(Bytes file)
{
    Reader reader(file);
    reader.Skip(12);
    const std::uint64_t height = reader.Little(4);
    return IfGood(reader, reader.Little(4), height);
}

void SkipGifPalette(Reader& reader, std::uint64_t flags)
{
    if ((flags & 0x80) != 0)
        reader.Skip(3ull << ((flags & 7) + 1));
}

/// The first frame, which is what gets loaded; it may be larger than the screen that the header tells of.
Size PeekGif(Bytes file)
{
    Reader reader(file);
    reader.Skip(10);
    const std::uint64_t flags = reader.Byte();
    reader.Skip(2);
    SkipGifPalette(reader, flags);
    while (reader.Good) {
        const std::uint64_t block = reader.Byte();
        if (block == 0x2c) {
            reader.Skip(4);
            const std::uint64_t width = reader.Little(2);
            return IfGood(reader, width, reader.Little(2));
        }
        if (block != 0x21)
            return {};
        reader.Skip(1);
        for (std::uint64_t size = reader.Byte(); size > 0; size = reader.Byte())
            reader.Skip(size);
    }
    return {};
}

struct Peek
{
    std::uint32_t Kind;
    Size (*Look)(Bytes);
};

constexpr Peek Peeks[] = {{4, PeekKoala}, {5, PeekIff},  {6, PeekMng}, {19, PeekWbmp},
                          {22, PeekXbm},  {24, PeekDds}, {25, PeekGif}};

const Peek* PeekOf(std::uint32_t kind)
{
    const auto* const found = std::ranges::find(Peeks, kind, &Peek::Kind);
    return found == std::end(Peeks) ? nullptr : found;
}

} // namespace

bool PeeksAt(std::uint32_t kind)
{
    return PeekOf(kind) != nullptr;
}

std::optional<Extent> PeekExtent(std::uint32_t kind, Bytes file)
{
    const Peek* const peek = PeekOf(kind);
    return peek ? peek->Look(file) : std::nullopt;
}

} // namespace decoder
