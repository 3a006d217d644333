#pragma once

#include "decoder/film/tile_maker.h"

#include <functional>

namespace film {

/// Where a film's frames go. Each returns false when nobody wants more.
struct Listener
{
    std::function<bool(const Facts& facts)> Begins; ///< before any frame is decoded
    std::function<bool(std::uint32_t number, const Tile& tile)> Shows;
    std::function<void()> Works; ///< a piece of the film has been worked off
};

/// Reads the film that lies in an open file, every frame from the first on. A damaged one makes no tile, and numbers
/// count it.
void ReadFilm(int file, const Request& request, const Listener& listener);

} // namespace film
