#include "decoder/film/read_film.h"

#include "decoder/film/film_source.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}
#include <algorithm>
#include <limits>
#include <memory>

namespace film {

namespace {

constexpr std::int64_t LongestHole = 10'000; ///< frames that stay; more is no film but a damaged number

template <auto Free>
struct Freed
{
    template <class Thing>
    void operator()(Thing* thing) const
    {
        Free(&thing);
    }
};
using Codec = std::unique_ptr<AVCodecContext, Freed<avcodec_free_context>>;
using Packet = std::unique_ptr<AVPacket, Freed<av_packet_free>>;
using Picture = std::unique_ptr<AVFrame, Freed<av_frame_free>>;

Codec OpenCodec(const AVStream& stream)
{
    const AVCodec* const known = avcodec_find_decoder(stream.codecpar->codec_id);
    Codec codec(known ? avcodec_alloc_context3(known) : nullptr);
    if (!codec || avcodec_parameters_to_context(codec.get(), stream.codecpar) < 0)
        return {};
    codec->thread_count = 1; // a process without threads is confined more easily
    codec->max_pixels = MostFramePixels;
    codec->pkt_timebase = stream.time_base;
    return avcodec_open2(codec.get(), known, nullptr) >= 0 ? std::move(codec) : Codec();
}

std::uint32_t Clamped(std::int64_t number)
{
    return std::uint32_t(std::clamp<std::int64_t>(number, 0, std::numeric_limits<std::uint32_t>::max()));
}

AVRational RateOf(const AVStream& stream)
{
    for (const AVRational rate : {stream.avg_frame_rate, stream.r_frame_rate})
        if (rate.num > 0 && rate.den > 0)
            return rate;
    return {0, 1};
}

std::uint32_t LengthOf(const AVStream& stream, const AVFormatContext& format)
{
    if (stream.nb_frames > 0)
        return Clamped(stream.nb_frames);
    const AVRational rate = RateOf(stream);
    if (rate.num == 0 || format.duration <= 0)
        return 0;
    return Clamped(av_rescale_q(format.duration, {1, AV_TIME_BASE}, {rate.den, rate.num}));
}

Facts FactsOf(const AVStream& stream, const Source& source)
{
    const AVFormatContext& format = *source.Format();
    const AVRational rate = RateOf(stream);
    return {.How = Outcome::Reads,
            .Width = Clamped(stream.codecpar->width),
            .Height = Clamped(stream.codecpar->height),
            .Length = LengthOf(stream, format),
            .Counted = source.CountsFrames() && stream.nb_frames > 0,
            .RateCount = Clamped(rate.num),
            .RateSeconds = Clamped(rate.den)};
}

/// Decodes packet by packet and hands frames on.
class Run
{
public:
    Run(const Source& source_, const AVStream& stream_, Codec codec_, const Request& request, const Listener& listener_)
        : source(source_),
          stream(stream_),
          codec(std::move(codec_)),
          maker(request),
          listener(listener_),
          packet(av_packet_alloc()),
          picture(av_frame_alloc())
    {
    }

    void All()
    {
        while (wanted && av_read_frame(source.Format(), packet.get()) >= 0) {
            if (packet->stream_index == stream.index)
                Decode(packet.get());
            av_packet_unref(packet.get());
            listener.Works();
        }
        if (wanted)
            Decode(nullptr); // what it still holds back
    }

private:
    void Decode(const AVPacket* part)
    {
        avcodec_send_packet(codec.get(), part); // what is damaged gives no picture
        while (wanted && avcodec_receive_frame(codec.get(), picture.get()) >= 0) {
            Take();
            av_frame_unref(picture.get());
            listener.Works();
        }
    }

    /// A film that counts its frames may leave some out, which stay as they were.
    void Take()
    {
        if (const std::int64_t told = picture->best_effort_timestamp; source.CountsFrames() && told != AV_NOPTS_VALUE) {
            if (!first)
                first = told - next;
            const std::int64_t due = std::min(told - *first, next + LongestHole);
            while (wanted && hasTile && next < due)
                Show();
            next = std::max(next, due);
        }
        Tile made;
        if (maker.Make(*picture, made)) {
            tile = made;
            hasTile = true;
            Show();
        } else {
            hasTile = false;
            ++next;
        }
    }

    void Show() { wanted = listener.Shows(Clamped(next++), tile); }

    const Source& source;
    const AVStream& stream;
    Codec codec;
    TileMaker maker;
    const Listener& listener;
    Packet packet;
    Picture picture;
    Tile tile{};
    bool hasTile = false, wanted = true;
    std::int64_t next = 0;             ///< the number of the next frame
    std::optional<std::int64_t> first; ///< the time of frame 0
};

} // namespace

void ReadFilm(int file, const Request& request, const Listener& listener)
{
    Source source(file);
    AVStream* const stream = source.Open() ? source.Pictures() : nullptr;
    if (!stream || !WithinLimits(stream->codecpar->width, stream->codecpar->height)) {
        listener.Begins({.How = Outcome::NotOpened});
        return;
    }
    Facts facts = FactsOf(*stream, source);
    if (request.How == Fit::TilesOnly && (facts.Width != TileSide || facts.Height != TileSide)) {
        facts.How = Outcome::WrongSize;
        listener.Begins(facts);
        return;
    }
    Codec codec = OpenCodec(*stream);
    if (!codec) {
        listener.Begins({.How = Outcome::NoDecoder});
        return;
    }
    if (listener.Begins(facts))
        Run(source, *stream, std::move(codec), request, listener).All();
}

} // namespace film
