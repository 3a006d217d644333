#include "decoder/film_files.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}
#include <QtEndian>

namespace {

QByteArray Le(quint32 number, int bytes = 4)
{
    const quint32 little = qToLittleEndian(number);
    return QByteArray(reinterpret_cast<const char*>(&little), 4).first(bytes);
}

QByteArray RiffChunk(const QByteArray& name, const QByteArray& data)
{
    return name + Le(quint32(data.size())) + data + QByteArray(data.size() % 2, '\0');
}

QByteArray RiffList(const QByteArray& name, const QByteArray& data)
{
    return RiffChunk("LIST", QByteArray(name + data));
}

/// Rows from below, three bytes a pixel, filled up to four.
QByteArray FrameData(const QImage& frame)
{
    if (frame.isNull())
        return {};
    const QImage below = frame.convertToFormat(QImage::Format_BGR888).mirrored();
    return {reinterpret_cast<const char*>(below.constBits()), below.sizeInBytes()};
}

QByteArray StreamHeader(const AviPlan& plan, quint32 frames)
{
    const QByteArray type = plan.HasPictures ? "vids" : "auds";
    const QByteArray size = Le(quint32(plan.Size.width()), 2) + Le(quint32(plan.Size.height()), 2);
    return RiffChunk("strh", type + plan.Codec + Le(0) + Le(0) + Le(0) + Le(1) + Le(25) + Le(0) + Le(frames) + Le(0) +
                                 Le(0xffffffff) + Le(0) + Le(0) + size);
}

QByteArray StreamFormat(const AviPlan& plan)
{
    if (!plan.HasPictures)
        return RiffChunk("strf", Le(1, 2) + Le(1, 2) + Le(8000) + Le(8000) + Le(1, 2) + Le(8, 2));
    const quint32 row = (quint32(plan.Size.width()) * 3 + 3) & ~3u;
    return RiffChunk("strf", Le(40) + Le(quint32(plan.Size.width())) + Le(quint32(plan.Size.height())) + Le(1, 2) +
                                 Le(24, 2) + plan.Codec + Le(row * quint32(plan.Size.height())) + Le(0) + Le(0) +
                                 Le(0) + Le(0));
}

/// A file in memory that a container is written to.
struct FilmBytes
{
    QByteArray Bytes;
    qsizetype Place = 0;

    static int Write(void* to, uint8_t* from, int size)
    {
        auto& file = *static_cast<FilmBytes*>(to);
        file.Bytes.resize(std::max(file.Bytes.size(), file.Place + size));
        memcpy(file.Bytes.data() + file.Place, from, size_t(size));
        file.Place += size;
        return size;
    }
    static int64_t Seek(void* in, int64_t offset, int whence)
    {
        auto& file = *static_cast<FilmBytes*>(in);
        if (whence & AVSEEK_SIZE)
            return file.Bytes.size();
        file.Place = offset + (whence == SEEK_CUR ? file.Place : whence == SEEK_END ? file.Bytes.size() : 0);
        return file.Place;
    }
};

/// What an encoder and a container need while they are at work.
struct Encoding
{
    AVCodecContext* Codec = nullptr;
    AVFormatContext* Format = nullptr;
    AVFrame* Frame = av_frame_alloc();
    AVPacket* Packet = av_packet_alloc();
    SwsContext* Scaler = nullptr;
    FilmBytes Film;

    ~Encoding()
    {
        sws_freeContext(Scaler);
        av_packet_free(&Packet);
        av_frame_free(&Frame);
        avcodec_free_context(&Codec);
        if (Format && Format->pb)
            av_freep(&Format->pb->buffer);
        if (Format)
            avio_context_free(&Format->pb);
        avformat_free_context(Format);
    }

    bool Open(const AVCodec* encoder, const char* container, QSize size)
    {
        Codec = avcodec_alloc_context3(encoder);
        Codec->width = size.width();
        Codec->height = size.height();
        Codec->time_base = {1, 25};
        Codec->framerate = {25, 1};
        Codec->pix_fmt = encoder->pix_fmts ? encoder->pix_fmts[0] : AV_PIX_FMT_BGR24;
        Codec->qmin = 1;
        Codec->qmax = 3;
        if (avformat_alloc_output_context2(&Format, nullptr, container, nullptr) < 0)
            return false;
        constexpr int Buffer = 4096;
        Format->pb = avio_alloc_context(static_cast<uint8_t*>(av_malloc(Buffer)), Buffer, 1, &Film, nullptr,
                                        FilmBytes::Write, FilmBytes::Seek);
        if (Format->oformat->flags & AVFMT_GLOBALHEADER)
            Codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
        AVStream* const stream = avformat_new_stream(Format, nullptr);
        stream->time_base = Codec->time_base;
        stream->avg_frame_rate = Codec->framerate;
        return avcodec_open2(Codec, encoder, nullptr) >= 0 &&
               avcodec_parameters_from_context(stream->codecpar, Codec) >= 0 &&
               avformat_write_header(Format, nullptr) >= 0;
    }

    void Put(const QImage& picture, int number)
    {
        const QImage from = picture.convertToFormat(QImage::Format_RGB32);
        Frame->format = Codec->pix_fmt;
        Frame->width = Codec->width;
        Frame->height = Codec->height;
        av_frame_get_buffer(Frame, 0);
        Scaler = sws_getCachedContext(Scaler, from.width(), from.height(), AV_PIX_FMT_BGRA, from.width(), from.height(),
                                      Codec->pix_fmt, SWS_BICUBIC | SWS_ACCURATE_RND, nullptr, nullptr, nullptr);
        const uint8_t* const rows[4] = {from.constBits()};
        const int steps[4] = {int(from.bytesPerLine())};
        sws_scale(Scaler, rows, steps, 0, from.height(), Frame->data, Frame->linesize);
        Frame->pts = number;
        avcodec_send_frame(Codec, Frame);
        av_frame_unref(Frame);
        Drain();
    }

    void Drain()
    {
        while (avcodec_receive_packet(Codec, Packet) >= 0) {
            av_packet_rescale_ts(Packet, Codec->time_base, Format->streams[0]->time_base);
            Packet->duration = av_rescale_q(1, Codec->time_base, Format->streams[0]->time_base);
            av_interleaved_write_frame(Format, Packet);
        }
    }

    QByteArray Close()
    {
        avcodec_send_frame(Codec, nullptr);
        Drain();
        av_write_trailer(Format);
        avio_flush(Format->pb);
        return Film.Bytes;
    }
};

} // namespace

QByteArray BuildAvi(const QList<QImage>& frames, const AviPlan& plan)
{
    const auto count = quint32(frames.size());
    const QByteArray main =
        RiffChunk("avih", Le(40000) + Le(0) + Le(0) + Le(0x10) + Le(count) + Le(0) + Le(1) + Le(0) +
                              Le(quint32(plan.Size.width())) + Le(quint32(plan.Size.height())) + QByteArray(16, '\0'));
    const QByteArray stream = RiffList("strl", StreamHeader(plan, count) + StreamFormat(plan));
    QByteArray data, index;
    for (const QImage& frame : frames) {
        const QByteArray bytes = FrameData(frame);
        index += "00db" + Le(0x10) + Le(quint32(4 + data.size())) + Le(quint32(bytes.size()));
        data += RiffChunk("00db", bytes);
    }
    return RiffChunk("RIFF",
                     "AVI " + RiffList("hdrl", main + stream) + RiffList("movi", data) + RiffChunk("idx1", index));
}

QList<QImage> FilmFrames(int count, QSize size)
{
    QList<QImage> frames;
    for (int i = 0; i < count; ++i) {
        QImage frame(size, QImage::Format_RGB32);
        frame.fill(qRgb(40 + i * 7 % 160, 200 - i * 11 % 160, 100));
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < 8; ++x)
                frame.setPixel((x + i * 2) % size.width(), y,
                               y < size.height() / 2 ? qRgb(250, 20, 20) : qRgb(20, 20, 250));
        frames << frame;
    }
    return frames;
}

QByteArray EncodedFilm(const char* name, const char* container, const QList<QImage>& frames)
{
    av_log_set_level(AV_LOG_QUIET);
    const AVCodec* const encoder = avcodec_find_encoder_by_name(name);
    if (!encoder)
        return {};
    Encoding encoding;
    if (!encoding.Open(encoder, container, frames.constFirst().size()))
        return {};
    for (int i = 0; i < frames.size(); ++i)
        encoding.Put(frames[i], i);
    return encoding.Close();
}
