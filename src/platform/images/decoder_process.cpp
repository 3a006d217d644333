#include "platform/images/decoder_process.h"

#include "decoder/channel.h"
#include "platform/files/file_steps.h"
#include "platform/processes/helper_socket.h"
#include "platform/processes/helper_start.h"

#include <QElapsedTimer>
#include <csignal>
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

constexpr int Glance = 50; ///< ms between looks at whether the wait was given up or is over

decoder::Payload PayloadOf(const decoder::Request& request, const decoder::Answer& answer)
{
    using decoder::Payload;
    constexpr Payload OfTasks[] = {Payload::None, Payload::Words, Payload::Numbers, Payload::File};
    return answer.How == decoder::Outcome::Done ? OfTasks[int(request.What)] : Payload::None;
}

QImage ImageFor(const decoder::Answer& answer)
{
    const bool numbers = answer.Behind == decoder::Payload::Numbers;
    return {int(answer.Width), int(answer.Height),
            numbers        ? QImage::Format_Indexed8
            : answer.Alpha ? QImage::Format_ARGB32
                           : QImage::Format_RGB32};
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
    StartedHelper started;
    if (const int error = StartHelper(program, started))
        return error;
    socket = started.Socket;
    child = started.Child;
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
        return {.How = fate, .Answer = {}, .Pixels = {}, .File = {}};
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
    if (answer->Behind != PayloadOf(request, *answer))
        return {};
    Reply reply{.How = Fate::Answered, .Answer = *answer, .Pixels = {}, .File = {}};
    reply.How = ReceivePayload(reply, deadline);
    return reply;
}

DecoderProcess::Fate DecoderProcess::ReceivePayload(Reply& reply, const Deadline& deadline) const
{
    if (reply.Answer.Behind == decoder::Payload::None)
        return Fate::Answered;
    if (reply.Answer.Behind == decoder::Payload::File) {
        reply.File.resize(qsizetype(reply.Answer.FileBytes));
        return Receive(std::as_writable_bytes(std::span(reply.File.data(), size_t(reply.File.size()))), deadline);
    }
    reply.Pixels = ImageFor(reply.Answer);
    if (reply.Pixels.isNull())
        return Fate::Fault;
    if (reply.Answer.Behind == decoder::Payload::Numbers) {
        QList<QRgb> colours(decoder::MostColours);
        if (const Fate fate = Receive(std::as_writable_bytes(std::span(colours)), deadline); fate != Fate::Answered)
            return fate;
        reply.Pixels.setColorTable(colours);
    }
    return Receive(std::as_writable_bytes(std::span(reply.Pixels.bits(), size_t(reply.Pixels.sizeInBytes()))),
                   deadline);
}

DecoderProcess::Fate DecoderProcess::Receive(std::span<std::byte> bytes, const Deadline& deadline) const
{
    constexpr Fate Fates[] = {Fate::Answered, Fate::Fault, Fate::TimedOut};
    return Fates[int(ReceiveFrom(socket, bytes, Glance, [&] { return deadline.Left() > 0 && !givenUp; }))];
}
