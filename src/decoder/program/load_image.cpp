#include "decoder/program/load_image.h"

#include "decoder/bmp_header.h"
#include "decoder/dds_blocks.h"
#include "decoder/header_peek.h"
#include "decoder/pcx_walk.h"

#include <FreeImage.h>
#include <algorithm>

namespace decoder {

namespace {

constexpr std::uint32_t BmpKind = FIF_BMP, PcxKind = FIF_PCX, DdsKind = FIF_DDS;

class Memory
{
public:
    explicit Memory(Bytes bytes)
        : memory(
              FreeImage_OpenMemory(reinterpret_cast<BYTE*>(const_cast<std::byte*>(bytes.data())), DWORD(bytes.size())))
    {
    }
    ~Memory() { FreeImage_CloseMemory(memory); }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    Bitmap Load(FREE_IMAGE_FORMAT kind, int flags) const
    {
        FreeImage_SeekMemory(memory, 0, SEEK_SET);
        return Bitmap(FreeImage_LoadFromMemory(kind, memory, flags));
    }

private:
    FIMEMORY* memory;
};

Decoded Refused(const Request& request, Outcome how)
{
    return {.What = {.Serial = request.Serial, .How = how}, .Image = {}};
}

Answer Facts(const Request& request, FIBITMAP* image)
{
    return {.Serial = request.Serial,
            .How = Outcome::Done,
            .Width = FreeImage_GetWidth(image),
            .Height = FreeImage_GetHeight(image),
            .Bits = FreeImage_GetBPP(image),
            .ColoursUsed = std::min(FreeImage_GetColorsUsed(image), 256u)};
}

/// A straightened image may have one column, one row and some planes too many.
void AddFacts(Answer& answer, const PcxFacts& pcx)
{
    if (answer.How != Outcome::Done || !pcx.Readable)
        return;
    answer.Width = pcx.Width;
    answer.Height = pcx.Height;
    answer.Bits = pcx.Bits;
    answer.EndsEarly = pcx.EndsEarly;
}

Bitmap Cropped(Bitmap image, const PcxFacts& pcx)
{
    if (!pcx.Readable ||
        (FreeImage_GetWidth(image.get()) == pcx.Width && FreeImage_GetHeight(image.get()) == pcx.Height))
        return image;
    return Bitmap(FreeImage_Copy(image.get(), 0, 0, int(pcx.Width), int(pcx.Height)));
}

void TakeColours(FIBITMAP* image, const PcxFacts& pcx)
{
    RGBQUAD* const palette = FreeImage_GetPalette(image);
    for (std::size_t i = 0; pcx.TwoColours && palette && i < pcx.TwoColours->size(); ++i) {
        const std::uint32_t colour = (*pcx.TwoColours)[i];
        palette[i].rgbRed = BYTE(colour >> 16);
        palette[i].rgbGreen = BYTE(colour >> 8);
        palette[i].rgbBlue = BYTE(colour);
    }
}

bool Fits(FIBITMAP* image)
{
    return WithinLimits(FreeImage_GetWidth(image), FreeImage_GetHeight(image));
}

/// What the header says is checked here, so that the library does not even begin with an image beyond the limits.
std::optional<Decoded> FromHeader(const Request& request, Bytes file, const Memory& memory, const SizeKnown& known)
{
    const auto kind = FREE_IMAGE_FORMAT(request.Kind);
    if (PeeksAt(request.Kind)) {
        const std::optional<Extent> extent = PeekExtent(request.Kind, file);
        if (!extent)
            return Refused(request, Outcome::NotRead);
        if (!WithinLimits(extent->Width, extent->Height))
            return Refused(request, Outcome::TooLarge);
        known(extent->Width * extent->Height);
        return {};
    }
    const Bitmap header = memory.Load(kind, FIF_LOAD_NOPIXELS);
    if (!header)
        return Refused(request, Outcome::NotRead);
    if (!Fits(header.get()))
        return Refused(request, Outcome::TooLarge);
    if (request.What == Task::Header)
        return Decoded{.What = Facts(request, header.get()), .Image = {}};
    known(std::uint64_t(FreeImage_GetWidth(header.get())) * FreeImage_GetHeight(header.get()));
    return {};
}

/// Colours of more than 8 bits, or of numbers with a point, as they look on a screen.
Bitmap ToStandard(Bitmap image)
{
    switch (FreeImage_GetImageType(image.get())) {
    case FIT_BITMAP:
        return image;
    case FIT_RGB16:
        return Bitmap(FreeImage_ConvertTo24Bits(image.get()));
    case FIT_RGBA16:
        return Bitmap(FreeImage_ConvertTo32Bits(image.get()));
    case FIT_RGBF:
    case FIT_RGBAF:
        return Bitmap(FreeImage_ToneMapping(image.get(), FITMO_DRAGO03));
    default:
        return Bitmap(FreeImage_ConvertToStandardType(image.get(), TRUE));
    }
}

/// The forms that WriteRow knows: what has a see-through palette or 16 bits becomes 32.
Bitmap ToSimple(Bitmap image)
{
    const unsigned bits = FreeImage_GetBPP(image.get());
    const bool palette = bits == 1 || bits == 4 || bits == 8;
    if (bits == 24 || bits == 32 || (palette && !FreeImage_IsTransparent(image.get())))
        return image;
    return Bitmap(FreeImage_ConvertTo32Bits(image.get()));
}

const std::uint32_t* RowOf(FIBITMAP* image, std::uint32_t fromBelow)
{
    return reinterpret_cast<const std::uint32_t*>(FreeImage_GetScanLine(image, int(fromBelow)));
}

/// An image with no opaque trace at all has an alpha channel that nobody filled: it counts as opaque.
bool SomeSeeThrough(FIBITMAP* image, const Answer& size)
{
    if (FreeImage_GetBPP(image) != 32)
        return false;
    std::uint32_t all = 0xff, some = 0;
    for (std::uint32_t row = 0; row < size.Height; ++row)
        for (const std::uint32_t pixel : std::span(RowOf(image, row), size.Width)) {
            all &= pixel >> 24;
            some |= pixel >> 24;
        }
    return all != 0xff && some != 0;
}

using ConvertLine = void(DLL_CALLCONV*)(BYTE*, BYTE*, int, RGBQUAD*);

struct LineForm
{
    unsigned Bits;
    ConvertLine Convert;
};

constexpr LineForm LineForms[] = {
    {1, FreeImage_ConvertLine1To32}, {4, FreeImage_ConvertLine4To32}, {8, FreeImage_ConvertLine8To32}};

} // namespace

void Release::operator()(FIBITMAP* bitmap) const
{
    FreeImage_Unload(bitmap);
}

Decoded Decode(const Request& request, Bytes told, const SizeKnown& known)
{
    Bytes file = told;
    std::vector<std::byte> straight;
    PcxFacts pcx;
    if (request.Kind == PcxKind) {
        pcx = WalkPcx(file);
        if (!pcx.Readable)
            return Refused(request, Outcome::NotRead);
        if (pcx.MisreadByLibrary)
            file = straight = StraightPcx(file);
    } else if (request.Kind == BmpKind && NeedsPlainBmp(file)) {
        file = straight = PlainBmp(file);
    }
    const std::optional<std::uint32_t> odd = request.Kind == DdsKind ? OddBlockWidth(file) : std::nullopt;
    if (odd)
        file = straight = WholeBlocks(file);
    const Memory memory(file);
    if (auto decided = FromHeader(request, file, memory, known)) {
        AddFacts(decided->What, pcx);
        return std::move(*decided);
    }
    Bitmap image = memory.Load(FREE_IMAGE_FORMAT(request.Kind), 0);
    if (image)
        image = Cropped(std::move(image), pcx);
    if (!image)
        return Refused(request, Outcome::NotRead);
    if (!Fits(image.get()))
        return Refused(request, Outcome::TooLarge);
    Answer answer = Facts(request, image.get());
    AddFacts(answer, pcx);
    answer.Width = odd.value_or(answer.Width);
    TakeColours(image.get(), pcx);
    if (request.What == Task::Header)
        return {.What = answer, .Image = {}};
    if (image = ToStandard(std::move(image)); image)
        image = ToSimple(std::move(image));
    if (!image)
        return Refused(request, Outcome::NotRead);
    answer.Alpha = SomeSeeThrough(image.get(), answer);
    answer.Behind = Payload::Words;
    return {.What = answer, .Image = std::move(image)};
}

void WriteRow(const Decoded& decoded, std::uint32_t row, std::span<std::uint32_t> to)
{
    FIBITMAP* const image = decoded.Image.get();
    BYTE* const from = FreeImage_GetScanLine(image, int(decoded.What.Height - 1 - row));
    BYTE* const target = reinterpret_cast<BYTE*>(to.data());
    const unsigned bits = FreeImage_GetBPP(image);
    if (bits == 32) {
        const std::uint32_t opaque = decoded.What.Alpha ? 0 : 0xff000000;
        std::ranges::transform(std::span(reinterpret_cast<const std::uint32_t*>(from), to.size()), to.begin(),
                               [opaque](std::uint32_t pixel) { return pixel | opaque; });
    } else if (bits == 24) {
        FreeImage_ConvertLine24To32(target, from, int(to.size()));
    } else {
        const auto* const form = std::ranges::find(LineForms, bits, &LineForm::Bits);
        form->Convert(target, from, int(to.size()), FreeImage_GetPalette(image));
    }
}

} // namespace decoder
