#include "platform/sound/player/conversion.h"
#include "platform/sound/player/pcm_source.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <mpg123.h>

namespace {

/// Bytes in memory, as the library reads a file.
struct Place
{
    QByteArrayView Bytes;
    qsizetype At = 0;
};

ssize_t ReadPlace(void* place, void* to, size_t size)
{
    Place& from = *static_cast<Place*>(place);
    const size_t got = std::min(size, size_t(from.Bytes.size() - from.At));
    std::memcpy(to, from.Bytes.data() + from.At, got);
    from.At += qsizetype(got);
    return ssize_t(got);
}

off_t SeekPlace(void* place, off_t to, int from)
{
    Place& at = *static_cast<Place*>(place);
    const qsizetype base = from == SEEK_SET ? 0 : from == SEEK_CUR ? at.At : at.Bytes.size();
    if (to < -base || to > at.Bytes.size() - base)
        return -1;
    return at.At = base + to;
}

class Mp3Source : public PcmSource
{
public:
    Mp3Source(QByteArrayView bytes, int toRate) : rate(toRate), place{bytes}, decoder(mpg123_new(nullptr, nullptr))
    {
        mpg123_param(decoder.get(), MPG123_ADD_FLAGS, MPG123_QUIET | MPG123_FORCE_STEREO, 0);
        mpg123_replace_reader_handle(decoder.get(), ReadPlace, SeekPlace, nullptr);
        if (mpg123_open_handle(decoder.get(), &place) == MPG123_OK)
            TakeForm();
    }

    bool Opened() const { return bool(conversion); }

    std::size_t Read(std::span<std::int16_t> stereo) override
    {
        while (!conversion.Holds(stereo) && !ended)
            Feed();
        return conversion.Get(stereo);
    }

private:
    void TakeForm()
    {
        long from = 0;
        int channels = 0, encoding = 0;
        if (mpg123_getformat(decoder.get(), &from, &channels, &encoding) != MPG123_OK)
            return;
        if (encoding == MPG123_ENC_SIGNED_16)
            conversion = Conversion(AUDIO_S16SYS, channels, int(from), rate);
    }
    void Feed()
    {
        std::array<unsigned char, 16384> sound;
        size_t got = 0;
        const int result = mpg123_read(decoder.get(), sound.data(), sound.size(), &got);
        conversion.Put(std::as_bytes(std::span(sound).first(got)));
        // Songs that were put together from several may change their rate half-way.
        if (result == MPG123_NEW_FORMAT)
            TakeForm();
        ended = result != MPG123_OK && result != MPG123_NEW_FORMAT;
        if (ended)
            conversion.End();
    }

    struct Free
    {
        void operator()(mpg123_handle* held) const { mpg123_delete(held); }
    };
    int rate;
    Place place;
    std::unique_ptr<mpg123_handle, Free> decoder;
    Conversion conversion;
    bool ended = false;
};

} // namespace

std::unique_ptr<PcmSource> OpenMp3(QByteArrayView bytes, int rate)
{
    auto mp3 = std::make_unique<Mp3Source>(bytes, rate);
    return mp3->Opened() ? std::move(mp3) : nullptr;
}
