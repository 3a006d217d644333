// gemforge-film: reads one film of a stranger and hands its frames over as tiles. It is started by Gemforge alone.
#include "decoder/channel.h"
#include "decoder/film/read_film.h"
#include "decoder/program/confinement.h"
#include "decoder/program/limits.h"

extern "C" {
#include <libavutil/log.h>
}
#include <cstdio>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int Socket = STDIN_FILENO;
constexpr std::uint64_t MostMemory = std::uint64_t(1536) << 20;
constexpr std::size_t FramesAtOnce = 16;

/// Frames are sent some at a time: one at a time, half of the work would be the sending.
class Sender
{
public:
    bool Begin(const film::Facts& facts) { return decoder::SendAll(Socket, film::Pack(facts)); }
    bool Show(std::uint32_t number, const film::Tile& tile)
    {
        Append(film::Pack(film::Frame{film::Step::Frame, number}));
        Append(tile);
        return waiting.size() < FramesAtOnce * film::TileBytes || Flush();
    }
    void End()
    {
        Append(film::Pack(film::Frame{}));
        Flush();
    }

private:
    template <class Bytes>
    void Append(const Bytes& bytes)
    {
        waiting.insert(waiting.end(), bytes.begin(), bytes.end());
    }
    bool Flush()
    {
        const bool sent = decoder::SendAll(Socket, waiting);
        waiting.clear();
        return sent;
    }
    std::vector<std::byte> waiting;
};

void Serve(int file, const film::Request& request)
{
    Sender sender;
    film::ReadFilm(file, request,
                   {.Begins = [&](const film::Facts& facts) { return sender.Begin(facts); },
                    .Shows = [&](std::uint32_t number, const film::Tile& tile) { return sender.Show(number, tile); },
                    .Works = [] { limits::StartClock(film::MostFramePixels); }});
    sender.End();
}

} // namespace

int main()
{
    struct stat facts = {};
    if (fstat(Socket, &facts) != 0 || !S_ISSOCK(facts.st_mode)) {
        std::fputs("gemforge-film is started by Gemforge.\n", stderr);
        return 2;
    }
    av_log_set_level(AV_LOG_QUIET);
    limits::Set(MostMemory);
    confinement::Enter({});
    limits::StartClock(film::MostFramePixels);
    film::RequestBytes bytes;
    int file = -1;
    if (!decoder::ReceiveAll(Socket, bytes, file) || file < 0)
        return 1;
    if (const auto request = film::UnpackRequest(bytes))
        Serve(file, *request);
    return 0;
}
