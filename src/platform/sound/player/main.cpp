// gemforge-player: plays what is handed over to its standard input until the other side of it is closed. It is started
// by Gemforge alone. It reads no byte of what it plays: each sound is decoded by a process of its own, this program
// again, which can do nothing else; a file of a stranger breaks nothing but that.
#include "decoder/channel.h"
#include "platform/sound/player/decode.h"
#include "platform/sound/player/device.h"
#include "platform/sound/player/wishes.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>

namespace {

constexpr int Gemforge = STDIN_FILENO;            ///< its end of the socket
constexpr int Glance = 40;                        ///< ms between looks at whether a sound has ended
constexpr unsigned DevicePatience = 10;           ///< s for opening a device; the alarm ends the process
constexpr std::chrono::milliseconds Linger(1000); ///< the device is closed after this silence
constexpr player::Voice Both[] = {player::Voice::Media, player::Voice::Module};

class Player
{
public:
    /// Until nobody is left to play for.
    void Run()
    {
        while (wishes.Receive(device.IsOpen() ? Glance : -1)) {
            for (const player::Voice voice : Both)
                CarryOut(voice);
            Tell();
            CloseAfterSilence();
        }
    }

private:
    void CarryOut(player::Voice of)
    {
        Voice& voice = device.Of(of);
        if (const auto ended = voice.Ended())
            state.Troubles[std::size_t(of)] = *ended;
        const auto wish = wishes.Take(of);
        if (!wish)
            return;
        voice.Stop();
        state.Troubles[std::size_t(of)] = player::Trouble::None;
        if (wish->What == player::Task::Play)
            state.Troubles[std::size_t(of)] = Begin(of, wish->File);
    }

    player::Trouble Begin(player::Voice of, const HandedFile& file)
    {
        alarm(DevicePatience);
        const bool opened = device.Open();
        alarm(0);
        if (!opened)
            return player::Trouble::NoDevice;
        return device.Of(of).Start(of, file) ? player::Trouble::None : player::Trouble::File;
    }

    void Tell()
    {
        state.Serial = wishes.LastSerial();
        state.Playing = 0;
        for (const player::Voice voice : Both)
            state.Playing |= std::uint32_t(device.Of(voice).Playing()) << std::uint32_t(voice);
        if (state != told && send(Gemforge, &state, sizeof(state), MSG_DONTWAIT | MSG_NOSIGNAL) == sizeof(state))
            told = state;
    }

    void CloseAfterSilence()
    {
        const auto now = std::chrono::steady_clock::now();
        if (state.Playing != 0)
            heard = now;
        if (device.IsOpen() && now - heard >= Linger)
            device.Close();
    }

    Wishes wishes{Gemforge};
    Device device;
    player::State state, told;
    std::chrono::steady_clock::time_point heard{};
};

} // namespace

int main(int argc, char** argv)
{
    struct stat facts = {};
    if (fstat(Gemforge, &facts) != 0 || !S_ISSOCK(facts.st_mode)) {
        std::fputs("gemforge-player is started by Gemforge.\n", stderr);
        return 2;
    }
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    if (argc > 1 && argv[1] == std::string_view("decode"))
        _exit(DecodeForPlayer());      // what a library has to say at an end would need more than it may do
    setenv("OMP_NUM_THREADS", "1", 1); // what decodes may start no threads
    Player().Run();
    return 0;
}
