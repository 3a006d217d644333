#pragma once

#include "platform/player/handed_file.h"

#include <cstdint>
#include <memory>
#include <span>

/// Sound as pairs of 16 bits, left and right, at ModuleRate.
class PcmSource
{
public:
    virtual ~PcmSource() = default;

    /// Frames (pairs) written to `stereo`, whose size is even; 0 at the end.
    virtual std::size_t Read(std::span<std::int16_t> stereo) = 0;
};

constexpr int ModuleRate = 22050;

/// Whether a wave of this many samples a second is played; conversion from others would swell without measure.
constexpr bool IsPlayableRate(int rate)
{
    return rate >= 1000 && rate <= 384000;
}

/// A module of any kind, one in a zip archive, or a wave; null if it is none of them, broken or too large.
std::unique_ptr<PcmSource> OpenPcm(const HandedFile& file);
