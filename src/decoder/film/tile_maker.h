#pragma once

#include "decoder/film_protocol.h"

#include <memory>

struct AVFrame;
struct SwsContext;

namespace film {

using Tile = std::array<std::byte, TileBytes>;

/// Turns decoded frames into tiles.
class TileMaker
{
public:
    explicit TileMaker(const Request& request);
    ~TileMaker();
    TileMaker(const TileMaker&) = delete;
    TileMaker& operator=(const TileMaker&) = delete;

    /// False for a frame that cannot become one: of another size where only tiles are wanted, in a form that the
    /// library does not know, the part outside. The frame is cropped by this.
    bool Make(AVFrame& frame, Tile& tile);

private:
    bool Crop(AVFrame& frame) const;
    bool Scale(const AVFrame& frame, int format, std::uint8_t* to, int rowBytes);

    Request request;
    SwsContext* scaler = nullptr;
    int wholeHeight = 0; ///< of the frame before it was cropped
};

} // namespace film
