#include "platform/player/pcm_source.h"

#include "platform/paths.h"
#include "platform/zip_archive.h"

#include <QString>
#include <SDL.h>
#include <algorithm>
#include <libopenmpt/libopenmpt.hpp>
#include <ostream>

namespace {

constexpr qint64 MostBytes = qint64(64) << 20; ///< of a file, and of a module that was packed
constexpr int MostTries = 8;                   ///< entries of an archive that are tried

class ModuleSource : public PcmSource
{
public:
    explicit ModuleSource(const QByteArray& bytes) : module(bytes.constData(), std::size_t(bytes.size()), quiet) {}

    std::size_t Read(std::span<std::int16_t> stereo) override
    {
        return module.read_interleaved_stereo(ModuleRate, stereo.size() / 2, stereo.data());
    }

private:
    std::ostream quiet{nullptr};
    openmpt::module module;
};

class WaveSource : public PcmSource
{
public:
    explicit WaveSource(const QByteArray& bytes)
    {
        if (!SDL_LoadWAV_RW(SDL_RWFromConstMem(bytes.constData(), int(bytes.size())), 1, &spec, &samples, &length))
            return;
        if (!IsPlayableRate(spec.freq))
            return;
        frame = SDL_AUDIO_BITSIZE(spec.format) / 8u * spec.channels;
        converted.reset(SDL_NewAudioStream(spec.format, spec.channels, spec.freq, AUDIO_S16SYS, 2, ModuleRate));
    }
    ~WaveSource() override { SDL_FreeWAV(samples); }
    WaveSource(const WaveSource&) = delete;
    WaveSource& operator=(const WaveSource&) = delete;

    bool Opened() const { return converted != nullptr; }

    std::size_t Read(std::span<std::int16_t> stereo) override
    {
        const int wanted = int(stereo.size_bytes());
        while (SDL_AudioStreamAvailable(converted.get()) < wanted && at < length)
            Feed();
        const int got = SDL_AudioStreamGet(converted.get(), stereo.data(), wanted);
        return got > 0 ? std::size_t(got) / 4 : 0;
    }

private:
    void Feed()
    {
        constexpr Uint32 Frames = 4096;
        const Uint32 size = std::min(Frames * frame, length - at);
        SDL_AudioStreamPut(converted.get(), samples + at, int(size));
        at += size;
        if (at == length)
            SDL_AudioStreamFlush(converted.get());
    }

    struct Free
    {
        void operator()(SDL_AudioStream* stream) const { SDL_FreeAudioStream(stream); }
    };
    SDL_AudioSpec spec{};
    Uint8* samples = nullptr;
    Uint32 length = 0, at = 0, frame = 1; ///< in bytes
    std::unique_ptr<SDL_AudioStream, Free> converted;
};

std::unique_ptr<PcmSource> OpenBytes(const QByteArray& bytes)
{
    if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WAVE") {
        auto wave = std::make_unique<WaveSource>(bytes);
        return wave->Opened() ? std::move(wave) : nullptr;
    }
    try {
        return std::make_unique<ModuleSource>(bytes);
    } catch (const std::exception&) {
        return nullptr;
    }
}

std::unique_ptr<PcmSource> OpenPacked(const QString& path)
{
    const auto archive = ZipArchive::Open(path);
    if (!archive)
        return nullptr;
    const int entries = std::min(int(archive->Entries().size()), MostTries);
    for (int entry = 0; entry < entries; ++entry) {
        const auto bytes = archive->Read(entry, MostBytes);
        auto source = bytes ? OpenBytes(*bytes) : nullptr;
        if (source)
            return source;
    }
    return nullptr;
}

} // namespace

std::unique_ptr<PcmSource> OpenPcm(const HandedFile& file)
{
    const QString path = QString::fromStdString(file.Path());
    const auto bytes = paths::ReadWhole(path, MostBytes);
    if (!bytes)
        return nullptr;
    return bytes->startsWith("PK\3\4") ? OpenPacked(path) : OpenBytes(*bytes);
}
