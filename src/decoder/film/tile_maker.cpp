#include "decoder/film/tile_maker.h"

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}
#include <algorithm>

namespace film {

namespace {

constexpr int Side = int(TileSide);
constexpr int Exactly = SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP | SWS_BITEXACT;

/// Blocks stay blocks where every pixel becomes a whole number of them, more than one.
int MethodFor(int width, int height)
{
    if (Side % width == 0 && Side % height == 0 && (width < Side || height < Side))
        return SWS_POINT | Exactly;
    return (width > Side && height > Side ? SWS_AREA : SWS_BICUBIC) | Exactly;
}

struct Part
{
    int X, Y, Width, Height;
};

Part PartOf(const Request& request, int width, int height)
{
    const int side = std::min(width, height);
    switch (request.How) {
    case Fit::Middle:
        return {(width - side) / 2, (height - side) / 2, side, side};
    case Fit::Part: {
        const int x = int(request.X), y = int(request.Y);
        return {x, y, std::min(int(request.Width), width - x), std::min(int(request.Height), height - y)};
    }
    default:
        return {0, 0, width, height};
    }
}

bool HasAlpha(int format)
{
    const AVPixFmtDescriptor* const known = av_pix_fmt_desc_get(AVPixelFormat(format));
    return known && (known->flags & AV_PIX_FMT_FLAG_ALPHA);
}

using Whole = std::array<std::uint8_t, std::size_t(Side* Side) * 4>; ///< of four channels

bool SomeSeeThrough(const Whole& pixels)
{
    for (std::size_t alpha = 3; alpha < pixels.size(); alpha += 4)
        if (pixels[alpha] != 0xff)
            return true;
    return false;
}

/// Black is see-through in the game: what shows nothing becomes black and, where there is such, black that shows the
/// next lighter colour.
void Flatten(const Whole& from, std::uint8_t* to)
{
    constexpr int MostlySeen = 128;
    const bool lifts = SomeSeeThrough(from);
    for (auto pixel = from.begin(); pixel != from.end(); pixel += 4, to += 3) {
        const int alpha = pixel[3];
        std::transform(pixel, pixel + 3, to, [=](int channel) { return std::uint8_t((channel * alpha + 127) / 255); });
        if (lifts && alpha >= MostlySeen && std::all_of(to, to + 3, [](int channel) { return channel == 0; }))
            std::fill(to, to + 3, std::uint8_t(1));
    }
}

/// Of the film's own colours; a film that does not say is told by its height.
void SetColours(SwsContext* scaler, const AVFrame& frame, int wholeHeight)
{
    constexpr int HighDefinition = 720;
    const bool said = frame.colorspace != AVCOL_SPC_UNSPECIFIED && frame.colorspace != AVCOL_SPC_RGB;
    const int space = said                            ? int(frame.colorspace)
                      : wholeHeight >= HighDefinition ? int(SWS_CS_ITU709)
                                                      : int(SWS_CS_ITU601);
    const int* const table = sws_getCoefficients(space);
    const bool full = frame.color_range == AVCOL_RANGE_JPEG;
    constexpr int One = 1 << 16;
    sws_setColorspaceDetails(scaler, table, full, table, 1, 0, One, One);
}

} // namespace

TileMaker::TileMaker(const Request& request_) : request(request_) {}

TileMaker::~TileMaker()
{
    sws_freeContext(scaler);
}

bool TileMaker::Crop(AVFrame& frame) const
{
    const Part part = PartOf(request, frame.width, frame.height);
    if (part.X < 0 || part.Y < 0 || part.Width < 1 || part.Height < 1)
        return false;
    frame.crop_left = std::size_t(part.X);
    frame.crop_top = std::size_t(part.Y);
    frame.crop_right = std::size_t(frame.width - part.X - part.Width);
    frame.crop_bottom = std::size_t(frame.height - part.Y - part.Height);
    return av_frame_apply_cropping(&frame, AV_FRAME_CROP_UNALIGNED) >= 0;
}

bool TileMaker::Scale(const AVFrame& frame, int format, std::uint8_t* to, int rowBytes)
{
    scaler =
        sws_getCachedContext(scaler, frame.width, frame.height, AVPixelFormat(frame.format), Side, Side,
                             AVPixelFormat(format), MethodFor(frame.width, frame.height), nullptr, nullptr, nullptr);
    if (!scaler)
        return false;
    SetColours(scaler, frame, wholeHeight);
    std::uint8_t* const rows[4] = {to + std::ptrdiff_t(rowBytes) * (Side - 1)}; // the lowest row stands first
    const int steps[4] = {-rowBytes};
    return sws_scale(scaler, frame.data, frame.linesize, 0, frame.height, rows, steps) == Side;
}

bool TileMaker::Make(AVFrame& frame, Tile& tile)
{
    if (!WithinLimits(frame.width, frame.height))
        return false;
    if (request.How == Fit::TilesOnly && (frame.width != Side || frame.height != Side))
        return false;
    wholeHeight = frame.height;
    if (!Crop(frame))
        return false;
    auto* const to = reinterpret_cast<std::uint8_t*>(tile.data());
    if (!HasAlpha(frame.format))
        return Scale(frame, AV_PIX_FMT_BGR24, to, Side * 3);
    Whole whole;
    if (!Scale(frame, AV_PIX_FMT_BGRA, whole.data(), Side * 4))
        return false;
    Flatten(whole, to);
    return true;
}

} // namespace film
