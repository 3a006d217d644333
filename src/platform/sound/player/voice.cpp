#include "platform/sound/player/voice.h"

#include "decoder/channel.h"
#include "platform/files/file_steps.h"
#include "platform/processes/helper_start.h"

#include <csignal>
#include <cstring>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::chrono::seconds Patience(10); ///< with a process from which nothing comes
constexpr int Ahead = 44100 * 4 / 10;        ///< bytes that must be there before the first is heard
constexpr std::size_t Frame = 4;             ///< bytes
constexpr int MostLooks = 100;               ///< a millisecond apart

} // namespace

Voice::~Voice()
{
    Stop();
}

bool Voice::Start(player::Voice which, const HandedFile& file)
{
    StartedHelper started;
    if (StartHelper(QStringLiteral("/proc/self/exe"), started, "decode") != 0)
        return false;
    child = started.Child;
    const std::lock_guard lock(mutex);
    socket = started.Socket;
    return decoder::SendAll(socket, std::as_bytes(std::span(&which, 1)), file.Handle());
}

void Voice::Stop()
{
    {
        const std::lock_guard lock(mutex);
        if (socket >= 0)
            close(std::exchange(socket, -1));
        begun = atEnd = false;
        hungry.reset();
        left = 0;
    }
    if (child <= 0)
        return;
    kill(child, SIGKILL);
    Persist([this] { return waitpid(child, nullptr, 0); });
    child = 0;
}

/// Whether the process ended by itself and has sent all. It closes the socket and ends, unless a file has taken it
/// over.
bool Voice::HasDoneAll()
{
    for (int look = 0; look < MostLooks; ++look) {
        int status = 0;
        if (Persist([&] { return waitpid(child, &status, WNOHANG); }) != 0) {
            child = 0;
            return WIFEXITED(status) && WEXITSTATUS(status) == 0;
        }
        usleep(1000);
    }
    return false;
}

std::optional<player::Trouble> Voice::Ended()
{
    bool sentAll = false, lost = false;
    {
        const std::lock_guard lock(mutex);
        sentAll = atEnd;
        lost = hungry && Clock::now() - *hungry > Patience;
    }
    if (!sentAll && !lost)
        return {};
    const bool whole = sentAll && HasDoneAll();
    Stop();
    return whole ? player::Trouble::None : player::Trouble::File;
}

/// A little must be there, or all that comes.
bool Voice::MayBegin()
{
    int there = 0;
    pollfd gone{socket, POLLRDHUP, 0};
    begun = begun || (ioctl(socket, FIONREAD, &there) == 0 && there >= Ahead) || poll(&gone, 1, 0) > 0;
    return begun;
}

void Voice::Mix(std::span<Uint8> bytes)
{
    const std::lock_guard lock(mutex);
    if (socket < 0 || atEnd)
        return;
    if (!hungry)
        hungry = Clock::now();
    if (!MayBegin())
        return;
    sound.resize(std::max(sound.size(), bytes.size()));
    const ssize_t got = Persist([&] { return recv(socket, sound.data() + left, bytes.size() - left, MSG_DONTWAIT); });
    if (got <= 0) {
        atEnd = got == 0 || errno != EAGAIN;
        return;
    }
    hungry.reset();
    left += std::size_t(got);
    const std::size_t whole = left - left % Frame;
    SDL_MixAudioFormat(bytes.data(), sound.data(), AUDIO_S16SYS, Uint32(whole), SDL_MIX_MAXVOLUME);
    left -= whole;
    std::memmove(sound.data(), sound.data() + whole, left);
}
