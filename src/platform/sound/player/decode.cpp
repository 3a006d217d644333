#include "platform/sound/player/decode.h"

#include "decoder/channel.h"
#include "decoder/program/confinement.h"
#include "decoder/program/limits.h"
#include "platform/archives/zip_archive.h"
#include "platform/sound/player/conversion.h"
#include "platform/sound/player/pcm_source.h"
#include "platform/sound/player_protocol.h"

#include <QByteArray>
#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr int Client = STDIN_FILENO;
#ifdef __SANITIZE_ADDRESS__
constexpr std::uint64_t MostMemory = RLIM_INFINITY; // its shadow memory is larger than any limit
#else
constexpr std::uint64_t MostMemory = std::uint64_t(2) << 30; ///< of addresses; the file is among them
#endif
constexpr qint64 MostBytes = qint64(256) << 20; ///< of a file
constexpr qint64 MostPacked = qint64(64) << 20; ///< of a module that was packed
constexpr int MostTries = 8;                    ///< entries of an archive that are tried
constexpr int Whole = 0, NoSound = 3;

/// The first sound font of the machine; the general ones come first.
int OpenSoundFont()
{
    constexpr const char* Fonts[] = {"/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/sounds/sf3/default-GM.sf3",
                                     "/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf2/FluidR3_GM.sf2",
                                     "/usr/share/soundfonts/default.sf2"};
    for (const char* font : Fonts)
        if (const int file = open(font, O_RDONLY | O_CLOEXEC); file >= 0)
            return file;
    return -1;
}

/// The file's bytes as they lie on disk; empty if it is too large or cannot be read so.
QByteArrayView BytesOf(int file)
{
    const off_t size = lseek(file, 0, SEEK_END);
    if (size <= 0 || size > MostBytes)
        return {};
    void* const bytes = mmap(nullptr, std::size_t(size), PROT_READ, MAP_PRIVATE, file, 0);
    return bytes == MAP_FAILED ? QByteArrayView() : QByteArrayView(static_cast<char*>(bytes), size);
}

bool IsForm(QByteArrayView bytes, const char* kind)
{
    return bytes.startsWith("RIFF") && bytes.size() >= 12 && bytes.sliced(8, 4) == QByteArrayView(kind);
}

std::unique_ptr<PcmSource> OpenMedia(QByteArrayView bytes, int font)
{
    if (IsForm(bytes, "WAVE"))
        return OpenWave(bytes, DeviceRate);
    if (bytes.startsWith("MThd") || IsForm(bytes, "RMID"))
        return OpenMidi(bytes, font, DeviceRate);
    return OpenMp3(bytes, DeviceRate); // its first bytes do not always tell what it is
}

std::unique_ptr<PcmSource> OpenUnpacked(QByteArrayView bytes)
{
    return IsForm(bytes, "WAVE") ? OpenWave(bytes, ModuleRate) : OpenModule(bytes);
}

/// A module, or the first of an archive, raised to the rate of the device.
class RaisedModule : public PcmSource
{
public:
    explicit RaisedModule(QByteArrayView bytes)
    {
        if (bytes.startsWith("PK\3\4"))
            OpenPacked(bytes);
        else
            source = OpenUnpacked(bytes);
    }

    bool Opened() const { return source != nullptr; }

    std::size_t Read(std::span<std::int16_t> stereo) override
    {
        while (!conversion.Holds(stereo) && !ended)
            Feed();
        return conversion.Get(stereo);
    }

private:
    void OpenPacked(QByteArrayView bytes)
    {
        const auto archive = ZipArchive::Of(bytes);
        const int entries = archive ? std::min(int(archive->Entries().size()), MostTries) : 0;
        for (int entry = 0; entry < entries && !source; ++entry) {
            unpacked = archive->Read(entry, MostPacked).value_or(QByteArray());
            source = OpenUnpacked(unpacked);
        }
    }
    void Feed()
    {
        std::array<std::int16_t, 2048> sound;
        const std::size_t frames = source->Read(sound);
        ended = frames == 0;
        if (ended)
            conversion.End();
        else
            conversion.Put(std::as_bytes(std::span(sound).first(frames * 2)));
    }

    QByteArray unpacked; ///< of an archive
    std::unique_ptr<PcmSource> source;
    Conversion conversion{AUDIO_S16SYS, 2, ModuleRate, DeviceRate};
    bool ended = false;
};

std::unique_ptr<PcmSource> OpenSound(player::Voice voice, QByteArrayView bytes, int font)
{
    if (voice == player::Voice::Media)
        return OpenMedia(bytes, font);
    auto module = std::make_unique<RaisedModule>(bytes);
    return module->Opened() ? std::move(module) : nullptr;
}

/// False if there was nothing to send, or nobody hears it.
bool SendSound(PcmSource& source)
{
    std::array<std::int16_t, 8192> stereo;
    bool any = false;
    while (const std::size_t frames = source.Read(stereo)) {
        if (!decoder::SendAll(Client, std::as_bytes(std::span(stereo).first(frames * 2))))
            return false;
        any = true;
    }
    return any;
}

} // namespace

int DecodeForPlayer()
{
    player::Voice voice{};
    int file = -1;
    if (!decoder::ReceiveAll(Client, std::as_writable_bytes(std::span(&voice, 1)), file) || file < 0)
        return NoSound;
    const int font = OpenSoundFont();
    limits::Set(MostMemory);
    confinement::Enter({});
    const std::unique_ptr<PcmSource> source = OpenSound(voice, BytesOf(file), font);
    return source && SendSound(*source) ? Whole : NoSound;
}
