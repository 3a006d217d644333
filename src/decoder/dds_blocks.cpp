#include "decoder/dds_blocks.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace decoder {

namespace {

constexpr std::size_t SurfaceHeader = 128, SurfaceWidthAt = 16, SurfaceFormAt = 84;
constexpr std::uint32_t BlockSide = 4;
constexpr std::string_view BlockForms[] = {"DXT1", "DXT2", "DXT3", "DXT4", "DXT5"};

std::uint32_t SurfaceWidth(Bytes file)
{
    std::uint32_t width = 0;
    std::memcpy(&width, file.data() + SurfaceWidthAt, sizeof(width));
    return width;
}

} // namespace

std::optional<std::uint32_t> OddBlockWidth(Bytes file)
{
    if (file.size() < SurfaceHeader)
        return {};
    const std::string_view form(reinterpret_cast<const char*>(file.data()) + SurfaceFormAt, 4);
    const std::uint32_t width = SurfaceWidth(file);
    const bool odd = width % BlockSide != 0 && width <= LongestSide;
    return odd && std::ranges::find(BlockForms, form) != std::end(BlockForms) ? std::optional(width) : std::nullopt;
}

std::vector<std::byte> WholeBlocks(Bytes file)
{
    std::vector<std::byte> whole(file.begin(), file.end());
    const std::uint32_t width = (SurfaceWidth(file) + BlockSide - 1) / BlockSide * BlockSide;
    std::memcpy(whole.data() + SurfaceWidthAt, &width, sizeof(width));
    return whole;
}

} // namespace decoder
