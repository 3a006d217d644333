#include "decoder/program/reduce_image.h"

#include <FreeImage.h>
#include <algorithm>
#include <array>
#include <cstring>

namespace decoder {

namespace {

/// Work on a pixel beside what decoding one costs.
constexpr std::uint64_t WorkOf[] = {8, 200};

using Colour = std::uint32_t; ///< 0xRRGGBB
constexpr Colour Black = 0;
constexpr RGBQUAD AlmostBlack{1, 1, 1, 0};

Colour ColourOf(const BYTE* pixel)
{
    return Colour(pixel[FI_RGBA_RED]) << 16 | Colour(pixel[FI_RGBA_GREEN]) << 8 | pixel[FI_RGBA_BLUE];
}

RGBQUAD EntryOf(Colour colour)
{
    RGBQUAD entry{};
    entry.rgbRed = BYTE(colour >> 16);
    entry.rgbGreen = BYTE(colour >> 8);
    entry.rgbBlue = BYTE(colour);
    return entry;
}

bool IsBlack(const RGBQUAD& entry)
{
    return entry.rgbRed == 0 && entry.rgbGreen == 0 && entry.rgbBlue == 0;
}

/// Calls `visit` with the bytes of each pixel of an image of 24 bits and its place in one of 8, until it says no.
template <class Visit>
bool ForEachPixel(FIBITMAP* image, FIBITMAP* numbers, Visit visit)
{
    const unsigned width = FreeImage_GetWidth(image), height = FreeImage_GetHeight(image);
    for (unsigned y = 0; y < height; ++y) {
        const BYTE* pixel = FreeImage_GetScanLine(image, int(y));
        BYTE* number = FreeImage_GetScanLine(numbers, int(y));
        for (unsigned x = 0; x < width; ++x, pixel += 3, ++number)
            if (!visit(pixel, *number))
                return false;
    }
    return true;
}

/// Numbers for few colours, in the order in which they first come up.
class ColourTable
{
public:
    explicit ColourTable(std::uint32_t most_) : most(most_) {}

    /// -1 for one colour too many.
    int NumberOf(Colour colour)
    {
        std::size_t place = (colour * 0x9e3779b1u) >> (32 - PlaceBits);
        for (;; place = (place + 1) % Places.size()) {
            if (Places[place].Number < 0)
                break;
            if (Places[place].Value == colour)
                return Places[place].Number;
        }
        if (Count == most)
            return -1;
        Places[place] = {colour, int(Count)};
        return int(Count++);
    }
    void WriteTo(RGBQUAD* palette) const
    {
        for (const Place& place : Places)
            if (place.Number >= 0)
                palette[place.Number] = EntryOf(place.Value);
    }

private:
    static constexpr int PlaceBits = 10; ///< four times as many places as colours
    struct Place
    {
        Colour Value = 0;
        int Number = -1;
    };
    std::array<Place, 1 << PlaceBits> Places;
    std::uint32_t most, Count = 0;
};

Bitmap EmptyNumbers(FIBITMAP* image)
{
    Bitmap numbers(FreeImage_Allocate(int(FreeImage_GetWidth(image)), int(FreeImage_GetHeight(image)), 8));
    if (numbers)
        std::memset(FreeImage_GetPalette(numbers.get()), 0, sizeof(RGBQUAD) * MostColours);
    return numbers;
}

/// The image with its own colours; null if there are too many.
Bitmap WithOwnColours(FIBITMAP* image, std::uint32_t colours)
{
    Bitmap numbers = EmptyNumbers(image);
    if (!numbers)
        return {};
    ColourTable table(colours);
    Colour last = ~0u;
    BYTE lastNumber = 0;
    const bool fits = ForEachPixel(image, numbers.get(), [&](const BYTE* pixel, BYTE& number) {
        if (const Colour colour = ColourOf(pixel); colour != last) {
            const int found = table.NumberOf(colour);
            if (found < 0)
                return false;
            last = colour;
            lastNumber = BYTE(found);
        }
        number = lastNumber;
        return true;
    });
    if (!fits)
        return {};
    table.WriteTo(FreeImage_GetPalette(numbers.get()));
    return numbers;
}

Bitmap Quantized(FIBITMAP* image, std::uint32_t colours, Quantizer method)
{
    if (colours < LeastColours) // less than the library does: all of one colour, which is reckoned afterwards
        return EmptyNumbers(image);
    constexpr FREE_IMAGE_QUANTIZE Methods[] = {FIQ_WUQUANT, FIQ_NNQUANT};
    Bitmap reduced(FreeImage_ColorQuantizeEx(image, Methods[int(method)], int(colours), 0, nullptr));
    return reduced ? Bitmap(FreeImage_ConvertTo8Bits(reduced.get())) : Bitmap();
}

/// The mean of some colours.
class Mean
{
public:
    void Add(const BYTE* pixel)
    {
        for (const int channel : {FI_RGBA_RED, FI_RGBA_GREEN, FI_RGBA_BLUE})
            sums[std::size_t(channel)] += pixel[channel];
        ++count;
    }
    std::optional<RGBQUAD> Entry() const
    {
        if (count == 0)
            return {};
        const auto of = [this](int channel) { return BYTE((sums[std::size_t(channel)] + count / 2) / count); };
        RGBQUAD entry{};
        entry.rgbRed = of(FI_RGBA_RED);
        entry.rgbGreen = of(FI_RGBA_GREEN);
        entry.rgbBlue = of(FI_RGBA_BLUE);
        return entry;
    }

private:
    std::array<std::uint64_t, 3> sums{};
    std::uint64_t count = 0;
};

/// The number that a pixel of pure black has; nothing if there is none.
std::optional<BYTE> NumberOfBlack(FIBITMAP* image, FIBITMAP* numbers)
{
    std::optional<BYTE> found;
    ForEachPixel(image, numbers, [&](const BYTE* pixel, BYTE& number) {
        if (ColourOf(pixel) == Black)
            found = number;
        return !found;
    });
    return found;
}

/// Gives what is black the number `free`, which no pixel has yet; others that shared its number until now keep that,
/// with the mean of their own colours.
void SetBlackApart(FIBITMAP* image, FIBITMAP* numbers, BYTE free)
{
    const std::optional<BYTE> shared = NumberOfBlack(image, numbers);
    Mean others;
    ForEachPixel(image, numbers, [&](const BYTE* pixel, BYTE& number) {
        if (ColourOf(pixel) == Black)
            number = free;
        else if (number == shared)
            others.Add(pixel);
        return true;
    });
    RGBQUAD* const palette = FreeImage_GetPalette(numbers);
    if (const auto entry = others.Entry(); entry && shared)
        palette[*shared] = *entry;
    palette[free] = EntryOf(Black);
}

/// The first `count` entries are no black.
void LightenBlack(RGBQUAD* palette, std::uint32_t count)
{
    for (RGBQUAD& entry : std::span(palette, count))
        if (IsBlack(entry))
            entry = AlmostBlack;
}

Bitmap Reduced(FIBITMAP* image, const Reduction& how)
{
    const bool full = FreeImage_GetBPP(image) == 24;
    const Bitmap made(full ? nullptr : FreeImage_ConvertTo24Bits(image));
    FIBITMAP* const colours = full ? image : made.get();
    if (!colours)
        return {};
    if (Bitmap own = WithOwnColours(colours, how.Colours))
        return own;
    if (!how.KeepBlack)
        return Quantized(colours, how.Colours, how.Method);
    const Bitmap unnumbered = EmptyNumbers(colours);
    const bool hasBlack = unnumbered && NumberOfBlack(colours, unnumbered.get());
    const std::uint32_t others = how.Colours - (hasBlack ? 1 : 0);
    Bitmap numbers = Quantized(colours, others, how.Method);
    if (!numbers)
        return {};
    if (hasBlack)
        SetBlackApart(colours, numbers.get(), BYTE(others));
    LightenBlack(FreeImage_GetPalette(numbers.get()), others);
    return numbers;
}

std::vector<std::byte> NumbersOf(FIBITMAP* image)
{
    const std::size_t row = NumberRow(FreeImage_GetWidth(image));
    const std::size_t height = FreeImage_GetHeight(image);
    std::vector<std::byte> bytes(std::size_t(MostColours) * 4 + row * height);
    const RGBQUAD* const palette = FreeImage_GetPalette(image);
    for (std::size_t i = 0; i < MostColours; ++i) {
        const RGBQUAD& entry = palette[i];
        const std::uint32_t word =
            0xff000000u | std::uint32_t(entry.rgbRed) << 16 | std::uint32_t(entry.rgbGreen) << 8 | entry.rgbBlue;
        std::memcpy(bytes.data() + i * 4, &word, 4);
    }
    std::byte* to = bytes.data() + std::size_t(MostColours) * 4;
    for (std::size_t y = height; y-- > 0; to += row)
        std::memcpy(to, FreeImage_GetScanLine(image, int(y)), FreeImage_GetWidth(image));
    return bytes;
}

std::vector<std::byte> GifOf(FIBITMAP* image)
{
    FIMEMORY* const memory = FreeImage_OpenMemory(nullptr, 0);
    BYTE* data = nullptr;
    DWORD size = 0;
    std::vector<std::byte> bytes;
    if (FreeImage_SaveToMemory(FIF_GIF, image, memory, 0) && FreeImage_AcquireMemory(memory, &data, &size) &&
        size <= MostFileBytes)
        bytes.assign(reinterpret_cast<std::byte*>(data), reinterpret_cast<std::byte*>(data) + size);
    FreeImage_CloseMemory(memory);
    return bytes;
}

/// What was read may be some columns wider than the image is.
Bitmap OfItsWidth(Bitmap image, std::uint32_t width)
{
    if (FreeImage_GetWidth(image.get()) == width)
        return image;
    return Bitmap(FreeImage_Copy(image.get(), 0, 0, int(width), int(FreeImage_GetHeight(image.get()))));
}

Decoded Unmade(const Request& request)
{
    return {.What = {.Serial = request.Serial, .How = Outcome::NotRead}, .Image = {}, .Made = {}};
}

} // namespace

Decoded Finished(const Request& request, Decoded decoded, const SizeKnown& known)
{
    const bool gif = request.What == Task::Gif;
    if (!decoded.Image || (!gif && request.What != Task::Reduced))
        return decoded;
    known(std::uint64_t(decoded.What.Width) * decoded.What.Height * WorkOf[int(request.How.Method)]);
    Bitmap image = OfItsWidth(std::move(decoded.Image), decoded.What.Width);
    if (!image)
        return Unmade(request);
    const bool hasPalette = FreeImage_GetBPP(image.get()) <= 8;
    if (!gif || !hasPalette)
        image = Reduced(image.get(), request.How);
    if (image)
        decoded.Made = gif ? GifOf(image.get()) : NumbersOf(image.get());
    if (decoded.Made.empty())
        return Unmade(request);
    decoded.What.Alpha = false;
    decoded.What.Behind = gif ? Payload::File : Payload::Numbers;
    decoded.What.FileBytes = gif ? std::uint32_t(decoded.Made.size()) : 0;
    return decoded;
}

} // namespace decoder
