#pragma once

#include "decoder/protocol.h"

#include <functional>
#include <memory>
#include <vector>

struct FIBITMAP;

namespace decoder {

struct Release
{
    void operator()(FIBITMAP* bitmap) const;
};
using Bitmap = std::unique_ptr<FIBITMAP, Release>;

/// What a request comes to. With an answer that says Words there is an image, a standard one of 1, 4, 8, 24 or 32
/// bits; with Numbers and File the bytes that follow the answer.
struct Decoded
{
    Answer What;
    Bitmap Image;
    std::vector<std::byte> Made = {};
};

using SizeKnown = std::function<void(std::uint64_t pixels)>;

/// Decodes a file's bytes. The header is held against the limits and its size told to `known` before any pixel is
/// decoded.
Decoded Decode(const Request& request, Bytes file, const SizeKnown& known);

/// Writes row `row`, counted from the top, as words 0xAARRGGBB.
void WriteRow(const Decoded& decoded, std::uint32_t row, std::span<std::uint32_t> to);

} // namespace decoder
