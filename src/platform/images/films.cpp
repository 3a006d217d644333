#include "platform/images/films.h"

#include "decoder/channel.h"
#include "platform/files/file_steps.h"
#include "platform/files/paths.h"
#include "platform/files/regular_file.h"
#include "platform/processes/helper_socket.h"
#include "platform/processes/helper_start.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <csignal>
#include <limits>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

namespace films {

namespace {

constexpr int OrdinaryPatience = 30'000; ///< ms
constexpr int FilmBeat = 20;             ///< ms between two turns
constexpr quint64 AnySize = std::numeric_limits<quint64>::max();

/// A helper that is ended with the scope.
class FilmProcess
{
public:
    explicit FilmProcess(const QString& program) : Error(StartHelper(program, started)) {}
    ~FilmProcess()
    {
        if (Error != 0)
            return;
        close(started.Socket);
        kill(started.Child, SIGKILL);
        Persist([this] { return waitpid(started.Child, nullptr, 0); });
    }
    FilmProcess(const FilmProcess&) = delete;
    FilmProcess& operator=(const FilmProcess&) = delete;

    int Socket() const { return started.Socket; }

private:
    StartedHelper started;

public:
    const int Error;
};

/// The talk with the helper: what is received, and the turns between.
class Talk
{
public:
    Talk(int socket_, int patience_, const Turn& goes_) : socket(socket_), patience(patience_), goes(goes_)
    {
        sinceTurn.start();
    }

    template <class Message, std::size_t Size>
    std::optional<Message> Next(std::optional<Message> (*unpack)(decoder::Bytes))
    {
        std::array<std::byte, Size> bytes;
        return Receive(bytes) ? unpack(bytes) : std::nullopt;
    }

    bool Receive(std::span<std::byte> bytes)
    {
        QElapsedTimer silence;
        silence.start();
        return ReceiveFrom(socket, bytes, FilmBeat, [&] { return TakeTurn() && !silence.hasExpired(patience); }) ==
               Received::All;
    }

    /// Also where frames come faster than they can be waited for.
    bool TakeTurn()
    {
        if (!Stopped && sinceTurn.hasExpired(FilmBeat)) {
            Stopped = goes && !goes();
            sinceTurn.start();
        }
        return !Stopped;
    }

    bool Stopped = false;

private:
    int socket, patience;
    const Turn& goes;
    QElapsedTimer sinceTurn;
};

End ReadFrames(Talk& talk, const Listener& listener)
{
    std::array<std::byte, film::TileBytes> pixels;
    for (;;) {
        const auto frame = talk.Next<film::Frame, sizeof(film::FrameBytes)>(film::UnpackFrame);
        if (!frame)
            return End::Broken;
        if (frame->What == film::Step::End)
            return End::Whole;
        if (!talk.Receive(pixels) || !talk.TakeTurn())
            return End::Broken;
        if (!listener.Shows(int(frame->Number), pixels))
            return End::Whole;
    }
}

Reading Converse(Talk& talk, const Listener& listener)
{
    const auto facts = talk.Next<Facts, sizeof(film::FactsBytes)>(film::UnpackFacts);
    if (!facts)
        return {.How = End::NotOpened, .Reason = {}, .Told = {}};
    constexpr End Ends[] = {End::Whole, End::NotOpened, End::NoDecoder, End::WrongSize};
    Reading reading{.How = Ends[int(facts->How)], .Reason = {}, .Told = *facts};
    if (facts->How != film::Outcome::Reads)
        return reading;
    listener.Begins(*facts);
    reading.How = ReadFrames(talk, listener);
    return reading;
}

Reading NotOpened(int error)
{
    return {.How = End::NotOpened, .Reason = qt_error_string(error), .Told = {}};
}

} // namespace

Reading Read(const QString& path, const Plan& plan, const Listener& listener)
{
    return ReadWith(QCoreApplication::applicationDirPath() + QStringLiteral("/gemforge-film"), OrdinaryPatience, path,
                    plan, listener);
}

Reading ReadWith(const QString& helper, int patience, const QString& path, const Plan& plan, const Listener& listener)
{
    const QString found = paths::Existing(path);
    const RegularFile file(found.isEmpty() ? path : found, AnySize);
    if (file.Error != 0)
        return NotOpened(file.Error);
    const FilmProcess process(helper);
    if (process.Error != 0)
        return NotOpened(process.Error);
    decoder::SendAll(process.Socket(), film::Pack(plan), file.Handle); // if it is gone, nothing comes
    Talk talk(process.Socket(), patience, listener.Goes);
    Reading reading = Converse(talk, listener);
    if (talk.Stopped)
        reading.How = End::Stopped;
    return reading;
}

} // namespace films
