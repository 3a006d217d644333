// gemforge-player: plays what is handed over to its standard input until the other side of it is closed. It is started
// by Gemforge alone. Files of strangers break nothing but this process, and the libraries of sound burden nobody else.
#include "decoder/channel.h"
#include "platform/player/device.h"
#include "platform/player/media_voice.h"
#include "platform/player/module_voice.h"

#include <chrono>
#include <cstdio>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>

namespace {

constexpr int Socket = STDIN_FILENO;
constexpr int Glance = 40;                        ///< ms between looks at whether a sound has ended
constexpr unsigned LoadPatience = 10;             ///< s for a file or a device; the alarm ends the process
constexpr rlim_t MostMemory = 2u << 30;           ///< bytes, of addresses
constexpr std::chrono::milliseconds Linger(1000); ///< the device is closed after this silence

class Player
{
public:
    /// Until nobody is left to play for.
    void Run()
    {
        while (wishes.Receive(Patience())) {
            CarryOut(player::Voice::Media, media);
            CarryOut(player::Voice::Module, module);
            Tell();
            CloseAfterSilence();
        }
        media.Stop();
        module.Stop();
    }

private:
    /// More may have come while a file was opened.
    int Patience() const
    {
        if (wishes.HasAny())
            return 0;
        return device.IsOpen() ? Glance : -1;
    }

    template <class AVoice>
    void CarryOut(player::Voice of, AVoice& voice)
    {
        while (const auto wish = wishes.Take(of)) {
            alarm(LoadPatience);
            voice.Stop();
            const bool plays = wish->What == player::Task::Play && device.Open() && voice.Load(*wish);
            // What is not wanted any more must not be heard.
            if (plays && wishes.Receive(0) && !wishes.Has(of))
                voice.Start();
            alarm(0);
        }
    }

    void Tell()
    {
        const player::State state{.Serial = wishes.LastSerial(),
                                  .Playing = std::uint32_t(media.Playing()) | std::uint32_t(module.Playing()) << 1};
        if (wishes.HasAny() || (state.Serial == told.Serial && state.Playing == told.Playing))
            return;
        if (send(Socket, &state, sizeof(state), MSG_DONTWAIT | MSG_NOSIGNAL) == sizeof(state))
            told = state;
    }

    void CloseAfterSilence()
    {
        const auto now = std::chrono::steady_clock::now();
        if (media.Playing() || module.Playing())
            heard = now;
        if (!device.IsOpen() || wishes.HasAny() || now - heard < Linger)
            return;
        media.Stop();
        module.Stop();
        device.Close();
    }

    Wishes wishes{Socket};
    Device device;
    MediaVoice media;
    ModuleVoice module;
    player::State told;
    std::chrono::steady_clock::time_point heard{};
};

void SetLimits()
{
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
#ifndef __SANITIZE_ADDRESS__
    const rlimit memory{MostMemory, MostMemory};
    setrlimit(RLIMIT_AS, &memory);
#endif
}

} // namespace

int main()
{
    struct stat facts = {};
    if (fstat(Socket, &facts) != 0 || !S_ISSOCK(facts.st_mode)) {
        std::fputs("gemforge-player is started by Gemforge.\n", stderr);
        return 2;
    }
    SetLimits();
    Player().Run();
    return 0;
}
