#include "decoder/film/film_source.h"

extern "C" {
#include <libavformat/avformat.h>
}
#include <cstring>
#include <string_view>
#include <unistd.h>

namespace film {

namespace {

constexpr int IoBytes = 1 << 16;

/// Films as they come; no playlists and the like, which name other files.
constexpr const char* Containers =
    "avi,mov,mp4,matroska,webm,mpeg,mpegvideo,mpegts,ogg,flv,live_flv,asf,gif,apng,nut,ivf,"
    "h264,hevc,m4v,flic,smk,bink,dv,yuv4mpegpipe,mjpeg,rm,wtv,mxf,vc1,nuv,webp_pipe,"
    "ea,film_cpk,4xm,roq,idcin,vmd,wc3movie,psxstr,dxa,anm";

} // namespace

Source::Source(int opened) : file(opened) {}

Source::~Source()
{
    avformat_close_input(&format);
    if (io)
        av_freep(&io->buffer);
    avio_context_free(&io);
}

bool Source::Open()
{
    io = avio_alloc_context(static_cast<unsigned char*>(av_malloc(IoBytes)), IoBytes, 0, this, Read, nullptr, Seek);
    format = avformat_alloc_context();
    if (!io || !format)
        return false;
    format->pb = io;
    AVDictionary* options = nullptr;
    av_dict_set(&options, "format_whitelist", Containers, 0);
    const int opened = avformat_open_input(&format, nullptr, nullptr, &options); // on failure `format` is freed
    av_dict_free(&options);
    return opened >= 0 && avformat_find_stream_info(format, nullptr) >= 0;
}

AVStream* Source::Pictures() const
{
    for (unsigned i = 0; i < format->nb_streams; ++i) {
        AVStream* const stream = format->streams[i];
        if (stream->codecpar->codec_type == AVMEDIA_TYPE_VIDEO && !(stream->disposition & AV_DISPOSITION_ATTACHED_PIC))
            return stream;
    }
    return nullptr;
}

bool Source::CountsFrames() const
{
    return std::string_view(format->iformat->name) == "avi";
}

int Source::Read(void* opaque, std::uint8_t* to, int size)
{
    auto& source = *static_cast<Source*>(opaque);
    const ssize_t got = pread(source.file, to, std::size_t(size), source.place);
    if (got <= 0)
        return got == 0 ? AVERROR_EOF : AVERROR(EIO);
    source.place += got;
    return int(got);
}

std::int64_t Source::Seek(void* opaque, std::int64_t offset, int whence)
{
    auto& source = *static_cast<Source*>(opaque);
    const off_t end = lseek(source.file, 0, SEEK_END);
    if (end < 0)
        return AVERROR(EIO);
    if (whence & AVSEEK_SIZE)
        return end;
    const std::int64_t base = whence == SEEK_CUR ? source.place : whence == SEEK_END ? end : 0;
    if (offset < -base)
        return AVERROR(EINVAL);
    source.place = base + offset;
    return source.place;
}

} // namespace film
