#include "platform/sound/player/pcm_source.h"

#include <cstdlib>
#include <fluidsynth.h>
#include <string>
#include <unistd.h>

namespace {

template <class Held, void (*Delete)(Held*)>
struct DeleteBy
{
    void operator()(Held* held) const { Delete(held); }
};

/// Reads the font, which is open already: its handle as digits stands for its name.
class FontReader
{
public:
    explicit FontReader(const char* handle) : font(std::atoi(handle)) {}

    int Read(void* to, std::size_t size)
    {
        for (auto* next = static_cast<char*>(to); size > 0;) {
            const ssize_t got = pread(font, next, size, at);
            if (got <= 0)
                return FLUID_FAILED;
            next += got, at += got, size -= std::size_t(got);
        }
        return FLUID_OK;
    }
    int Seek(off_t offset, int from)
    {
        const off_t base = from == SEEK_SET ? 0 : from == SEEK_CUR ? at : lseek(font, 0, SEEK_END);
        at = base + offset;
        return base >= 0 && at >= 0 ? FLUID_OK : FLUID_FAILED;
    }
    off_t Tell() const { return at; }

private:
    int font;
    off_t at = 0;
};

FontReader& ReaderOf(void* handle)
{
    return *static_cast<FontReader*>(handle);
}

void ReadByHandle(fluid_sfloader_t* loader)
{
    fluid_sfloader_set_callbacks(
        loader, [](const char* handle) -> void* { return new FontReader(handle); },
        [](void* to, fluid_long_long_t size, void* handle) { return ReaderOf(handle).Read(to, std::size_t(size)); },
        [](void* handle, fluid_long_long_t offset, int from) { return ReaderOf(handle).Seek(off_t(offset), from); },
        [](void* handle) -> fluid_long_long_t { return ReaderOf(handle).Tell(); },
        [](void* handle) {
            delete &ReaderOf(handle);
            return int(FLUID_OK);
        });
}

class MidiSource : public PcmSource
{
public:
    MidiSource(QByteArrayView bytes, int font, int rate) : settings(new_fluid_settings())
    {
        fluid_settings_setnum(settings.get(), "synth.sample-rate", rate);
        fluid_settings_setint(settings.get(), "synth.lock-memory", 0);
        fluid_settings_setstr(settings.get(), "player.timing-source", "sample"); // no clock, no thread
        synth.reset(new_fluid_synth(settings.get()));
        fluid_sfloader_t* const loader = new_fluid_defsfloader(settings.get());
        ReadByHandle(loader);
        fluid_synth_add_sfloader(synth.get(), loader);
        if (fluid_synth_sfload(synth.get(), std::to_string(font).c_str(), 1) == FLUID_FAILED)
            return;
        player.reset(new_fluid_player(synth.get()));
        opened = fluid_player_add_mem(player.get(), bytes.data(), std::size_t(bytes.size())) == FLUID_OK &&
                 fluid_player_play(player.get()) == FLUID_OK;
    }

    bool Opened() const { return opened; }

    std::size_t Read(std::span<std::int16_t> stereo) override
    {
        if (fluid_player_get_status(player.get()) != FLUID_PLAYER_PLAYING)
            return 0;
        const std::size_t frames = stereo.size() / 2;
        const bool done =
            fluid_synth_write_s16(synth.get(), int(frames), stereo.data(), 0, 2, stereo.data(), 1, 2) == FLUID_OK;
        return done ? frames : 0;
    }

private:
    std::unique_ptr<fluid_settings_t, DeleteBy<fluid_settings_t, delete_fluid_settings>> settings;
    std::unique_ptr<fluid_synth_t, DeleteBy<fluid_synth_t, delete_fluid_synth>> synth;
    std::unique_ptr<fluid_player_t, DeleteBy<fluid_player_t, delete_fluid_player>> player;
    bool opened = false;
};

} // namespace

std::unique_ptr<PcmSource> OpenMidi(QByteArrayView bytes, int font, int rate)
{
    auto midi = std::make_unique<MidiSource>(bytes, font, rate);
    return midi->Opened() ? std::move(midi) : nullptr;
}
