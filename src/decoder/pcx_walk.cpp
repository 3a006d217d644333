#include "decoder/pcx_walk.h"

#include <algorithm>

namespace decoder {

namespace {

constexpr std::size_t HeaderSize = 128, PaletteSize = 1 + 256 * 3;
constexpr std::size_t VersionAt = 1, EncodingAt = 2, PaletteKindAt = 68;
constexpr std::byte PaletteMark{0x0c};
constexpr unsigned RunMark = 0xc0, LongestRun = 0x3f;
constexpr unsigned GreyPalette = 2;
constexpr unsigned MostSlack = 256; ///< bytes of a line behind four times what it needs; more is no line of an image

unsigned Number(Bytes file, std::size_t at)
{
    return unsigned(file[at]);
}

unsigned Wide(Bytes file, std::size_t at)
{
    return Number(file, at) | Number(file, at + 1) << 8;
}

/// The header's numbers, as they are used here.
struct Layout
{
    explicit Layout(Bytes file)
        : Version(Number(file, VersionAt)),
          Encoding(Number(file, EncodingAt)),
          Bits(Number(file, 3)),
          Planes(Number(file, 65)),
          BytesPerLine(Wide(file, 66)),
          Width(Wide(file, 8) - Wide(file, 4) + 1),
          Height(Wide(file, 10) - Wide(file, 6) + 1)
    {
    }

    std::uint64_t Line() const { return std::uint64_t(Planes) * BytesPerLine; }
    std::uint64_t Wanted() const { return Line() * Height; }
    bool HasPalette() const { return Bits == 8 && Planes == 1; }
    /// The library drops the last column of these.
    bool IsOddInPlanes() const { return Planes == 4 && Width % 2 == 1; }
    bool Usable() const
    {
        const bool form = (Bits == 1 && (Planes == 1 || Planes == 4)) || (Bits == 8 && (Planes == 1 || Planes == 3));
        const std::uint64_t needed = (std::uint64_t(Width) * Bits + 7) / 8;
        return form && Version <= 5 && Encoding <= 1 && WithinLimits(Width, Height) && BytesPerLine >= needed &&
               BytesPerLine <= needed * 4 + MostSlack && Wanted() <= std::uint64_t(MostPixels) * 4;
    }

    std::uint32_t Version, Encoding, Bits, Planes, BytesPerLine;
    std::uint32_t Width, Height; ///< a window turned inside out makes them huge
};

bool PaletteStandsAtTheEnd(Bytes file)
{
    return file.size() >= HeaderSize + PaletteSize && file[file.size() - PaletteSize] == PaletteMark;
}

/// Where the palette begins: at the end, or else in front of bytes that do not belong to the image, at the first mark
/// behind the pixels, where the game looks for it; the file's size if there is none.
std::size_t PaletteAt(Bytes file, std::size_t pixelsEnd)
{
    if (PaletteStandsAtTheEnd(file))
        return file.size() - PaletteSize;
    const auto mark = std::find(file.begin() + std::ptrdiff_t(pixelsEnd), file.end(), PaletteMark);
    return std::size_t(file.end() - mark) < PaletteSize ? file.size() : std::size_t(mark - file.begin());
}

Bytes DataOf(Bytes file, const Layout& layout)
{
    const bool behind = layout.HasPalette() && PaletteStandsAtTheEnd(file);
    return file.subspan(HeaderSize, file.size() - HeaderSize - (behind ? PaletteSize : 0));
}

struct Progress
{
    std::uint64_t Lines = 0; ///< bytes of lines that the data gave, up to what is wanted
    std::size_t Read = 0;    ///< bytes of data that took
};

/// Calls take(count, value) for every run until the lines are full or the data are at their end.
template <class Take>
Progress WalkRuns(Bytes data, const Layout& layout, Take take)
{
    Progress progress;
    const std::uint64_t wanted = layout.Wanted();
    while (progress.Lines < wanted && progress.Read < data.size()) {
        unsigned count = 1;
        unsigned value = Number(data, progress.Read++);
        if (layout.Encoding == 1 && value >= RunMark) {
            if (progress.Read == data.size())
                break;
            count = value & LongestRun;
            value = Number(data, progress.Read++);
        }
        count = unsigned(std::min<std::uint64_t>(count, wanted - progress.Lines));
        take(count, std::byte(value));
        progress.Lines += count;
    }
    return progress;
}

bool PaletteIsCut(Bytes file, const Layout& layout, const Progress& progress)
{
    return layout.HasPalette() && layout.Version == 5 && Number(file, PaletteKindAt) != GreyPalette &&
           file.size() - HeaderSize - progress.Read < PaletteSize;
}

void AddColumn(std::vector<std::byte>& header)
{
    const unsigned right = Wide(header, 8), moved = right < 0xffff ? right + 1 : Wide(header, 4) - 1;
    const std::size_t at = right < 0xffff ? 8 : 4;
    header[at] = std::byte(moved & 0xff);
    header[at + 1] = std::byte(moved >> 8);
}

void AppendPalette(std::vector<std::byte>& to, Bytes file, std::size_t pixelsEnd)
{
    if (const std::size_t at = PaletteAt(file, pixelsEnd); at < file.size()) {
        const Bytes palette = file.subspan(at, PaletteSize);
        to.insert(to.end(), palette.begin(), palette.end());
        return;
    }
    to.push_back(PaletteMark);
    for (unsigned grey = 0; grey < 256; ++grey)
        to.insert(to.end(), 3, std::byte(grey));
}

} // namespace

PcxFacts WalkPcx(Bytes file)
{
    if (file.size() < HeaderSize || Number(file, 0) != 10)
        return {};
    const Layout layout(file);
    PcxFacts facts{.Width = layout.Width, .Height = layout.Height, .Bits = layout.Bits * layout.Planes};
    facts.Readable = layout.Usable();
    if (!facts.Readable)
        return facts;
    bool crossed = false;
    std::uint64_t place = 0; // in the line
    const Progress progress = WalkRuns(DataOf(file, layout), layout, [&](unsigned count, std::byte) {
        // The library begins every line without the rest of a run, and takes a run of none for one of 256.
        crossed = crossed || count == 0 || place + count > layout.Line();
        place = (place + count) % layout.Line();
    });
    const bool cut = progress.Lines < layout.Wanted();
    facts.EndsEarly = cut || PaletteIsCut(file, layout, progress);
    const std::size_t palette = layout.HasPalette() ? PaletteAt(file, HeaderSize + progress.Read) : file.size();
    const bool trailer = palette < file.size() - std::min(file.size(), PaletteSize);
    facts.MisreadByLibrary = cut || crossed || trailer || layout.Encoding == 0 || layout.IsOddInPlanes();
    return facts;
}

std::vector<std::byte> StraightPcx(Bytes file)
{
    const Layout layout(file);
    std::vector<std::byte> straight(file.begin(), file.begin() + HeaderSize);
    straight[EncodingAt] = std::byte{1};
    if (layout.HasPalette())
        straight[VersionAt] = std::byte{5};
    if (layout.IsOddInPlanes())
        AddColumn(straight);
    straight.reserve(HeaderSize + std::size_t(layout.Wanted()) + PaletteSize);
    const auto append = [&straight](std::uint64_t count, std::byte value) {
        // A run of one for each: lines then end where they should, whatever their length.
        for (; count > 0; --count) {
            if (unsigned(value) >= RunMark)
                straight.push_back(std::byte{RunMark | 1});
            straight.push_back(value);
        }
    };
    const Progress progress = WalkRuns(DataOf(file, layout), layout, append);
    append(layout.Wanted() - progress.Lines, std::byte{});
    if (layout.HasPalette())
        AppendPalette(straight, file, HeaderSize + progress.Read);
    return straight;
}

} // namespace decoder
