#include "platform/sound/player/pcm_source.h"

#include <libopenmpt/libopenmpt.hpp>
#include <ostream>

namespace {

class ModuleSource : public PcmSource
{
public:
    explicit ModuleSource(QByteArrayView bytes) : module(bytes.data(), std::size_t(bytes.size()), quiet) {}

    std::size_t Read(std::span<std::int16_t> stereo) override
    try {
        return module.read_interleaved_stereo(ModuleRate, stereo.size() / 2, stereo.data());
    } catch (const openmpt::exception&) {
        return 0;
    }

private:
    std::ostream quiet{nullptr};
    openmpt::module module;
};

} // namespace

std::unique_ptr<PcmSource> OpenModule(QByteArrayView bytes)
try {
    return std::make_unique<ModuleSource>(bytes);
} catch (const openmpt::exception&) {
    return nullptr;
}
