// gemforge-decoder: decodes images of strangers, one request after the other, until the other side of its standard
// input is closed. It is started by Gemforge alone.
#include "decoder/channel.h"
#include "decoder/program/confinement.h"
#include "decoder/program/limits.h"
#include "decoder/program/load_image.h"
#include "decoder/program/reduce_image.h"

#include <cstdio>
#include <malloc.h>
#include <new>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int Socket = STDIN_FILENO;
constexpr std::uint64_t MostMemory = std::uint64_t(1536) << 20; ///< the largest file, its largest image and a copy
constexpr std::size_t ChunkPixels = 1 << 16;                    ///< small enough to stay near the processor

/// The handed over file, closed with the scope.
class Handed
{
public:
    explicit Handed(int handle) : file(handle) {}
    ~Handed() { close(file); }
    Handed(const Handed&) = delete;
    Handed& operator=(const Handed&) = delete;

    /// Its bytes; empty if it cannot be read or is larger than is read at all.
    std::vector<std::byte> Read() const
    {
        const off_t size = lseek(file, 0, SEEK_END); // asking for its facts would need the right to ask for any file's
        if (size < 0 || std::size_t(size) > decoder::MostFileBytes)
            return {};
        std::vector<std::byte> bytes(static_cast<std::size_t>(size));
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t got = pread(file, bytes.data() + done, bytes.size() - done, off_t(done));
            if (got <= 0)
                break;
            done += std::size_t(got);
        }
        bytes.resize(done);
        return bytes;
    }

private:
    int file;
};

bool SendPixels(const decoder::Decoded& decoded)
{
    const std::size_t width = decoded.What.Width;
    const std::uint32_t rows = std::uint32_t(std::max<std::size_t>(1, ChunkPixels / width));
    std::vector<std::uint32_t> chunk(rows * width);
    for (std::uint32_t row = 0; row < decoded.What.Height;) {
        std::size_t filled = 0;
        for (; row < decoded.What.Height && filled < chunk.size(); ++row, filled += width)
            WriteRow(decoded, row, std::span(chunk).subspan(filled, width));
        if (!decoder::SendAll(Socket, std::as_bytes(std::span(chunk).first(filled))))
            return false;
    }
    return true;
}

decoder::Decoded DecodeFile(const decoder::Request& request, int file)
try {
    return decoder::Finished(request, decoder::Decode(request, Handed(file).Read(), limits::StartClock),
                             limits::StartClock);
} catch (const std::bad_alloc&) {
    return {.What = {.Serial = request.Serial, .How = decoder::Outcome::TooLarge}, .Image = {}};
}

/// False when there is nobody left to serve.
bool Serve()
{
    decoder::RequestBytes bytes;
    int file = -1;
    if (!decoder::ReceiveAll(Socket, bytes, file) || file < 0)
        return false;
    const auto request = decoder::UnpackRequest(bytes);
    if (!request)
        return false;
    limits::StartClock(0);
    const decoder::Decoded decoded = DecodeFile(*request, file);
    if (!decoder::SendAll(Socket, decoder::Pack(decoded.What)))
        return false;
    return decoded.What.Behind == decoder::Payload::Words ? SendPixels(decoded)
                                                          : decoder::SendAll(Socket, decoded.Made);
}

} // namespace

int main()
{
    struct stat facts = {};
    if (fstat(Socket, &facts) != 0 || !S_ISSOCK(facts.st_mode)) {
        std::fputs("gemforge-decoder is started by Gemforge.\n", stderr);
        return 2;
    }
    limits::Set(MostMemory);
    confinement::Enter({});
    while (Serve())
        malloc_trim(0);
    return 0;
}
