#pragma once

#include <QByteArrayView>
#include <cstdint>
#include <memory>
#include <span>

/// Sound as pairs of 16 bits, left and right.
class PcmSource
{
public:
    virtual ~PcmSource() = default;

    /// Frames (pairs) written to `stereo`, whose size is even; 0 at the end.
    virtual std::size_t Read(std::span<std::int16_t> stereo) = 0;
};

constexpr int DeviceRate = 44100;
constexpr int ModuleRate = 22050; ///< frames a second of a module, and of a wave that is played as one

// All give null for what is not of their kind, or broken. `bytes` live as long as the source.

std::unique_ptr<PcmSource> OpenModule(QByteArrayView bytes); ///< at ModuleRate
std::unique_ptr<PcmSource> OpenWave(QByteArrayView bytes, int rate);
std::unique_ptr<PcmSource> OpenMp3(QByteArrayView bytes, int rate);
/// `font`: the open sound font; -1, and any other file that is none: nothing sounds.
std::unique_ptr<PcmSource> OpenMidi(QByteArrayView bytes, int font, int rate);
