#pragma once

#include <cstdint>
#include <memory>

struct AVFormatContext;
struct AVIOContext;
struct AVStream;

namespace film {

/// An open file as the film library reads it. Nothing else is opened, whatever the film asks for.
class Source
{
public:
    explicit Source(int file); ///< the caller's to close, after this
    ~Source();
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    /// False for what is no film.
    bool Open();

    /// The first stream of moving pictures; null if there is none.
    AVStream* Pictures() const;

    AVFormatContext* Format() const { return format; }

    /// Frames count one by one in the film's own time, as in an AVI: a hole is a frame that stays.
    bool CountsFrames() const;

private:
    static int Read(void* opaque, std::uint8_t* to, int size);
    static std::int64_t Seek(void* opaque, std::int64_t offset, int whence);

    int file;
    std::int64_t place = 0;
    AVIOContext* io = nullptr;
    AVFormatContext* format = nullptr;
};

} // namespace film
