#include "decoder/pcx_walk.h"

#include <algorithm>

namespace decoder {

namespace {

constexpr std::size_t HeaderSize = 128, PaletteSize = 1 + 256 * 3;
constexpr std::size_t VersionAt = 1, EncodingAt = 2, ColoursAt = 16, PlanesAt = 65, BytesPerLineAt = 66,
                      PaletteKindAt = 68;
constexpr std::byte PaletteMark{0x0c};
constexpr unsigned RunMark = 0xc0, LongestRun = 0x3f;
constexpr unsigned MostPlanes = 4; ///< of one bit; the library knows no other number but 1
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

void PutWide(std::vector<std::byte>& header, std::size_t at, unsigned number)
{
    header[at] = std::byte(number & 0xff);
    header[at + 1] = std::byte(number >> 8);
}

/// The header's numbers, as they are used here.
struct Layout
{
    explicit Layout(Bytes file)
        : Version(Number(file, VersionAt)),
          Encoding(Number(file, EncodingAt)),
          Bits(Number(file, 3)),
          Planes(Number(file, PlanesAt)),
          BytesPerLine(Wide(file, BytesPerLineAt)),
          Width(Wide(file, 8) - Wide(file, 4) + 1),
          Height(Wide(file, 10) - Wide(file, 6) + 1)
    {
    }

    std::uint64_t Line() const { return std::uint64_t(Planes) * BytesPerLine; }
    std::uint64_t Wanted() const { return Line() * Height; }
    bool HasPalette() const { return Bits == 8 && Planes == 1; }
    bool InPlanes() const { return Bits == 1 && Planes > 1; }
    /// The library drops the last column of odd ones in planes, and reads none of a single column or row.
    bool WantsColumn() const { return Width == 1 || (InPlanes() && Width % 2 == 1); }
    bool WantsRow() const { return Height == 1; }
    unsigned PlanesMade() const { return InPlanes() ? MostPlanes : Planes; }
    /// Behind each plane of a line, for the column that is added.
    unsigned Pad() const { return Bits == 8 && WantsColumn() ? 1 : 0; }
    std::uint64_t LineMade() const { return std::uint64_t(PlanesMade()) * (BytesPerLine + Pad()); }
    bool Usable() const
    {
        const bool form =
            (Bits == 1 && Planes >= 1 && Planes <= MostPlanes) || (Bits == 8 && (Planes == 1 || Planes == 3));
        const std::uint64_t needed = (std::uint64_t(Width) * Bits + 7) / 8;
        return form && Version <= 5 && Encoding <= 1 && WithinLimits(Width, Height) && BytesPerLine >= needed &&
               BytesPerLine <= needed * 4 + MostSlack && LineMade() * Height <= std::uint64_t(MostPixels) * 4;
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

std::optional<std::array<std::uint32_t, 2>> TwoColoursOf(Bytes file, const Layout& layout)
{
    const auto colour = [file](std::size_t at) {
        return Number(file, at) << 16 | Number(file, at + 1) << 8 | Number(file, at + 2);
    };
    const std::array two{colour(ColoursAt), colour(ColoursAt + 3)};
    const bool tells = layout.Bits == 1 && layout.Planes == 1 && two[0] != two[1];
    return tells ? std::optional(two) : std::nullopt;
}

bool PaletteIsCut(Bytes file, const Layout& layout, const Progress& progress)
{
    return layout.HasPalette() && layout.Version == 5 && Number(file, PaletteKindAt) != GreyPalette &&
           file.size() - HeaderSize - progress.Read < PaletteSize;
}

/// One more column or row: the window ends one further, or begins one earlier.
void Widen(std::vector<std::byte>& header, std::size_t firstAt, std::size_t lastAt)
{
    const unsigned last = Wide(header, lastAt), moved = last < 0xffff ? last + 1 : Wide(header, firstAt) - 1;
    PutWide(header, last < 0xffff ? lastAt : firstAt, moved);
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
    // The library looks 769 bytes before the end of any file, also where that is no palette or lies before its begin.
    const bool elsewhere = layout.HasPalette() && palette + PaletteSize != file.size();
    facts.TwoColours = TwoColoursOf(file, layout);
    facts.MisreadByLibrary = cut || crossed || elsewhere || layout.Encoding == 0 || layout.WantsColumn() ||
                             layout.WantsRow() || layout.PlanesMade() != layout.Planes;
    return facts;
}

std::vector<std::byte> StraightPcx(Bytes file)
{
    const Layout layout(file);
    std::vector<std::byte> straight(file.begin(), file.begin() + HeaderSize);
    straight[EncodingAt] = std::byte{1};
    if (layout.HasPalette())
        straight[VersionAt] = std::byte{5};
    if (layout.WantsColumn())
        Widen(straight, 4, 8);
    if (layout.WantsRow())
        Widen(straight, 6, 10);
    straight[PlanesAt] = std::byte(layout.PlanesMade());
    PutWide(straight, BytesPerLineAt, layout.BytesPerLine + layout.Pad());
    straight.reserve(HeaderSize + std::size_t(layout.LineMade() * (layout.Height + layout.WantsRow())) + PaletteSize);
    const std::uint64_t behindLine = std::uint64_t(layout.PlanesMade() - layout.Planes) * layout.BytesPerLine;
    std::uint64_t place = 0; // in the line
    const auto append = [&](std::uint64_t count, std::byte value) {
        // A run of one for each: lines then end where they should, whatever their length.
        for (; count > 0; --count) {
            if (unsigned(value) >= RunMark)
                straight.push_back(std::byte{RunMark | 1});
            straight.push_back(value);
            ++place;
            if (place % layout.BytesPerLine == 0)
                straight.insert(straight.end(), layout.Pad(), std::byte{});
            if (place != layout.Line())
                continue;
            straight.insert(straight.end(), behindLine, std::byte{});
            place = 0;
        }
    };
    const Progress progress = WalkRuns(DataOf(file, layout), layout, append);
    append(layout.Wanted() - progress.Lines, std::byte{});
    if (layout.WantsRow())
        straight.insert(straight.end(), layout.LineMade(), std::byte{});
    if (layout.HasPalette())
        AppendPalette(straight, file, HeaderSize + progress.Read);
    return straight;
}

} // namespace decoder
