#include "platform/decoder_process.h"

#include "decoder/channel.h"
#include "platform/file_steps.h"

#include <QElapsedTimer>
#include <QFile>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

class DecoderProcess::Deadline
{
public:
    explicit Deadline(int patience) : most(patience) { timer.start(); }
    int Left() const { return int(std::max<qint64>(0, most - timer.elapsed())); }

private:
    QElapsedTimer timer;
    qint64 most;
};

namespace {

constexpr int Glance = 50; ///< ms between looks at whether the wait was given up

class SpawnPlan
{
public:
    /// The helper's standard input is the socket; it prints nothing, whatever its libraries complain about; no signal
    /// is blocked or ignored, and no other open file gets through.
    explicit SpawnPlan(int socket)
    {
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, socket, STDIN_FILENO);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
        posix_spawnattr_init(&attributes);
        sigset_t set;
        sigemptyset(&set);
        posix_spawnattr_setsigmask(&attributes, &set);
        sigfillset(&set);
        posix_spawnattr_setsigdefault(&attributes, &set);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnPlan()
    {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;

    int Run(pid_t& child, const QString& program) const
    {
        QByteArray path = QFile::encodeName(program);
        char* const arguments[] = {path.data(), nullptr};
        return posix_spawn(&child, path.constData(), &actions, &attributes, arguments, environ);
    }

private:
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

QImage ImageFor(const decoder::Answer& answer)
{
    return {int(answer.Width), int(answer.Height), answer.Alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32};
}

} // namespace

DecoderProcess::DecoderProcess(QString program_, const std::atomic<bool>& givenUp_)
    : program(std::move(program_)), givenUp(givenUp_)
{
}

DecoderProcess::~DecoderProcess()
{
    Stop();
}

int DecoderProcess::Start()
{
    if (Runs())
        return 0;
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return errno;
    pid_t started = 0;
    const int error = SpawnPlan(ends[1]).Run(started, program);
    close(ends[1]);
    if (error != 0) {
        close(ends[0]);
        return error;
    }
    socket = ends[0];
    child = started;
    fresh = true;
    return 0;
}

void DecoderProcess::Stop()
{
    if (!Runs())
        return;
    close(std::exchange(socket, -1));
    kill(child, SIGKILL);
    Persist([this] { return waitpid(child, nullptr, 0); });
    child = 0;
}

DecoderProcess::Reply DecoderProcess::Ask(const decoder::Request& request, int file, int patience)
{
    const Deadline deadline(patience);
    if (!decoder::SendAll(socket, decoder::Pack(request), file))
        return {};
    decoder::AnswerBytes bytes;
    const Fate fate = Receive(bytes, deadline);
    if (fate != Fate::Answered)
        return {.How = fate, .Answer = {}, .Pixels = {}};
    Reply reply = Unpacked(bytes, request, deadline);
    fresh = fresh && reply.How != Fate::Answered;
    return reply;
}

DecoderProcess::Reply DecoderProcess::Unpacked(const decoder::AnswerBytes& bytes, const decoder::Request& request,
                                               const Deadline& deadline) const
{
    const auto answer = decoder::UnpackAnswer(bytes);
    if (!answer || answer->Serial != request.Serial)
        return {};
    const bool wanted = request.What == decoder::Task::Pixels && answer->How == decoder::Outcome::Done;
    if (answer->Pixels != wanted)
        return {};
    Reply reply{.How = Fate::Answered, .Answer = *answer, .Pixels = {}};
    if (!wanted)
        return reply;
    reply.Pixels = ImageFor(*answer);
    if (reply.Pixels.isNull() || size_t(reply.Pixels.sizeInBytes()) != decoder::PixelBytes(*answer))
        return {};
    reply.How = Receive(std::as_writable_bytes(std::span(reply.Pixels.bits(), decoder::PixelBytes(*answer))), deadline);
    return reply;
}

DecoderProcess::Fate DecoderProcess::Receive(std::span<std::byte> bytes, const Deadline& deadline) const
{
    while (!bytes.empty()) {
        pollfd wait{socket, POLLIN, 0};
        const int left = deadline.Left();
        if (left == 0 || givenUp)
            return Fate::TimedOut;
        if (Persist([&] { return poll(&wait, 1, std::min(left, Glance)); }) == 0)
            continue;
        const ssize_t got = Persist([&] { return recv(socket, bytes.data(), bytes.size(), MSG_DONTWAIT); });
        if (got < 0 && errno == EAGAIN)
            continue;
        if (got <= 0)
            return Fate::Fault;
        bytes = bytes.subspan(size_t(got));
    }
    return Fate::Answered;
}
