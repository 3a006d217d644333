#include "platform/sound/player_process.h"

#include "decoder/channel.h"
#include "platform/files/file_steps.h"
#include "platform/processes/helper_start.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QThread>
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int EndPatience = 400; ///< ms; it has a device to close

} // namespace

PlayerProcess::PlayerProcess(QString program_, Failed failed_, std::function<void()> changed_)
    : program(std::move(program_)), failed(std::move(failed_)), changed(std::move(changed_))
{
}

PlayerProcess::~PlayerProcess()
{
    End();
}

bool PlayerProcess::Start()
{
    if (child > 0)
        return true;
    StartedHelper started;
    if (StartHelper(program, started) != 0)
        return false;
    // A process that takes nothing any more must not stop the windows; it is replaced.
    fcntl(started.Socket, F_SETFL, O_NONBLOCK);
    child = started.Child;
    socket = started.Socket;
    told = {.Serial = serial};
    asked = {};
    if (QCoreApplication::instance()) {
        ear = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
        QObject::connect(ear.get(), &QSocketNotifier::activated, ear.get(), [this] { Listen(); });
    }
    return true;
}

bool PlayerProcess::Play(player::Voice voice, int file, const QString& name)
{
    const player::Request request{.Of = voice, .What = player::Task::Play};
    for (int attempt = 0; attempt < 2; ++attempt) {
        Listen();
        if (!Start())
            return false;
        names[size_t(voice)] = name;
        if (Send(request, file)) {
            TellChange();
            return true;
        }
        Kill();
    }
    return false;
}

void PlayerProcess::Stop(player::Voice voice)
{
    Listen();
    if (child <= 0)
        return;
    if (!Send({.Of = voice, .What = player::Task::Stop}, -1))
        Kill();
    TellChange();
}

bool PlayerProcess::Send(player::Request request, int file)
{
    request.Serial = ++serial;
    asked[size_t(request.Of)] = request;
    return decoder::SendAll(socket, std::as_bytes(std::span(&request, 1)), file);
}

/// Takes what the process has told since; one that is gone is forgotten, and what it played was not played.
void PlayerProcess::Listen()
{
    while (child > 0) {
        player::State state;
        const ssize_t got = Persist([&] { return recv(socket, &state, sizeof(state), MSG_DONTWAIT); });
        if (got < 0 && errno == EAGAIN)
            return;
        if (got == sizeof(state)) {
            Take(state);
            continue;
        }
        std::array<bool, player::Voices> lost{};
        for (std::uint32_t voice = 0; voice < player::Voices; ++voice)
            lost[voice] = MayPlay(player::Voice(voice));
        Kill();
        TellChange();
        for (std::uint32_t voice = 0; voice < player::Voices; ++voice)
            if (lost[voice])
                Report(player::Voice(voice), player::Trouble::NoDevice);
    }
}

void PlayerProcess::Take(const player::State& state)
{
    told = state;
    for (std::uint32_t voice = 0; voice < player::Voices; ++voice) {
        player::Request& last = asked[voice];
        const bool failing = state.Troubles[voice] != player::Trouble::None && last.What == player::Task::Play;
        if (!failing || last.Serial > state.Serial)
            continue;
        last.What = player::Task::Stop; // told once
        Report(player::Voice(voice), state.Troubles[voice]);
    }
    TellChange();
}

void PlayerProcess::TellChange() const
{
    if (changed)
        changed();
}

void PlayerProcess::Report(player::Voice voice, player::Trouble why)
{
    if (failed)
        failed(why, names[size_t(voice)]);
}

bool PlayerProcess::MayPlay(player::Voice voice) const
{
    const player::Request& last = asked[size_t(voice)];
    const bool carriedOut = last.Serial <= told.Serial;
    return carriedOut ? (told.Playing >> std::uint32_t(voice) & 1) != 0 : last.What == player::Task::Play;
}

bool PlayerProcess::IsPlaying()
{
    Listen();
    return child > 0 && (MayPlay(player::Voice::Media) || MayPlay(player::Voice::Module));
}

QString PlayerProcess::Playing()
{
    Listen();
    for (std::uint32_t voice = 0; child > 0 && voice < player::Voices; ++voice)
        if (MayPlay(player::Voice(voice)))
            return names[voice];
    return {};
}

void PlayerProcess::End()
{
    if (child <= 0)
        return;
    ear.reset();
    close(std::exchange(socket, -1));
    for (int waited = 0; waited < EndPatience; waited += 2) {
        if (Persist([this] { return waitpid(child, nullptr, WNOHANG); }) != 0) {
            child = 0;
            return;
        }
        QThread::msleep(2);
    }
    Kill();
}

void PlayerProcess::Kill()
{
    if (ear) {
        ear->setEnabled(false);
        ear.release()->deleteLater(); // it may be the one that called
    }
    if (socket >= 0)
        close(std::exchange(socket, -1));
    kill(child, SIGKILL);
    Persist([this] { return waitpid(child, nullptr, 0); });
    child = 0;
}
