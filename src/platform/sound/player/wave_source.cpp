#include "platform/sound/player/conversion.h"
#include "platform/sound/player/pcm_source.h"

#include <algorithm>

namespace {

/// Conversion from other rates would swell without measure.
constexpr bool IsPlayableRate(int rate)
{
    return rate >= 1000 && rate <= 384000;
}

class WaveSource : public PcmSource
{
public:
    WaveSource(QByteArrayView bytes, int rate)
    {
        SDL_AudioSpec spec{};
        if (!SDL_LoadWAV_RW(SDL_RWFromConstMem(bytes.data(), int(bytes.size())), 1, &spec, &samples, &length))
            return;
        if (!IsPlayableRate(spec.freq))
            return;
        frame = SDL_AUDIO_BITSIZE(spec.format) / 8u * spec.channels;
        conversion = Conversion(spec.format, spec.channels, spec.freq, rate);
    }
    ~WaveSource() override { SDL_FreeWAV(samples); }
    WaveSource(const WaveSource&) = delete;
    WaveSource& operator=(const WaveSource&) = delete;

    bool Opened() const { return bool(conversion); }

    std::size_t Read(std::span<std::int16_t> stereo) override
    {
        while (!conversion.Holds(stereo) && at < length)
            Feed();
        return conversion.Get(stereo);
    }

private:
    void Feed()
    {
        constexpr Uint32 Frames = 4096;
        const Uint32 size = std::min(Frames * frame, length - at);
        conversion.Put(std::as_bytes(std::span(samples + at, size)));
        at += size;
        if (at == length)
            conversion.End();
    }

    Uint8* samples = nullptr;
    Uint32 length = 0, at = 0, frame = 1; ///< in bytes
    Conversion conversion;
};

} // namespace

std::unique_ptr<PcmSource> OpenWave(QByteArrayView bytes, int rate)
{
    auto wave = std::make_unique<WaveSource>(bytes, rate);
    return wave->Opened() ? std::move(wave) : nullptr;
}
