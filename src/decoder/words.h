#pragma once

#include <array>
#include <cstring>
#include <optional>
#include <span>

/// Messages are rows of words in the machine's own order; the first is the message's mark.
namespace decoder {

template <std::size_t Size>
using Words = std::array<std::uint32_t, Size>;

template <std::size_t Size>
std::array<std::byte, Size * 4> ToBytes(const Words<Size>& words)
{
    std::array<std::byte, Size * 4> bytes;
    std::memcpy(bytes.data(), words.data(), bytes.size());
    return bytes;
}

template <std::size_t Size>
std::optional<Words<Size>> ToWords(std::span<const std::byte> bytes, std::uint32_t mark)
{
    Words<Size> words;
    if (bytes.size() != sizeof(words))
        return {};
    std::memcpy(words.data(), bytes.data(), bytes.size());
    if (words[0] != mark)
        return {};
    return words;
}

} // namespace decoder
