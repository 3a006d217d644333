#include "platform/player_process.h"

#include "decoder/channel.h"
#include "platform/file_steps.h"
#include "platform/helper_start.h"

#include <QThread>
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int EndPatience = 400; ///< ms; it has a device to close

std::array<char, 4> EndingOf(const QString& name)
{
    const QByteArray ending = name.mid(name.lastIndexOf(u'.') + 1).toLower().toLatin1().left(4);
    std::array<char, 4> letters{};
    std::copy(ending.begin(), ending.end(), letters.begin());
    return letters;
}

} // namespace

PlayerProcess::PlayerProcess(QString program_) : program(std::move(program_)) {}

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
    told = {.Serial = serial, .Playing = 0};
    asked = {};
    return true;
}

bool PlayerProcess::Play(player::Voice voice, int file, const QString& name)
{
    const player::Request request{.Of = voice, .What = player::Task::Play, .Ending = EndingOf(name)};
    for (int attempt = 0; attempt < 2; ++attempt) {
        Listen();
        if (!Start())
            return false;
        if (Send(request, file))
            return true;
        Kill();
    }
    return false;
}

void PlayerProcess::Stop(player::Voice voice)
{
    Listen();
    if (child > 0 && !Send({.Of = voice, .What = player::Task::Stop}, -1))
        Kill();
}

bool PlayerProcess::Send(player::Request request, int file)
{
    request.Serial = ++serial;
    asked[size_t(request.Of)] = request;
    return decoder::SendAll(socket, std::as_bytes(std::span(&request, 1)), file);
}

/// Takes what the process has told since; one that is gone is forgotten.
void PlayerProcess::Listen()
{
    while (child > 0) {
        player::State state;
        const ssize_t got = Persist([&] { return recv(socket, &state, sizeof(state), MSG_DONTWAIT); });
        if (got < 0 && errno == EAGAIN)
            return;
        if (got == sizeof(state))
            told = state;
        else
            Kill();
    }
}

bool PlayerProcess::IsPlaying()
{
    Listen();
    if (child <= 0)
        return false;
    return std::any_of(asked.begin(), asked.end(), [this](const player::Request& last) {
        const bool carriedOut = last.Serial <= told.Serial;
        return carriedOut ? (told.Playing >> std::uint32_t(last.Of) & 1) != 0 : last.What == player::Task::Play;
    });
}

void PlayerProcess::End()
{
    if (child <= 0)
        return;
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
    if (socket >= 0)
        close(std::exchange(socket, -1));
    kill(child, SIGKILL);
    Persist([this] { return waitpid(child, nullptr, 0); });
    child = 0;
}
