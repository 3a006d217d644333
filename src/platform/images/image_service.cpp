#include "platform/images/image_service.h"

#include "platform/files/paths.h"
#include "platform/files/regular_file.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPointer>
#include <QThread>
#include <chrono>
#include <future>
#include <sys/stat.h>

namespace images {

namespace {

using namespace std::chrono_literals;

constexpr auto Still = 200ms;            ///< the time that a wait stops everything
constexpr auto EventsEvery = 20ms;       ///< between events from then on
constexpr qint64 TooYoung = 100'000'000; ///< ns: a file changed so lately may change again within one tick of its clock
constexpr qint64 SoonEnough = 1000;      ///< ms
constexpr quint64 SecondNs = 1'000'000'000;

QString CannotBeRead()
{
    return QStringLiteral("The image cannot be read.");
}

qint64 ChangedAt(const struct stat& facts)
{
    return qint64(quint64(facts.st_mtim.tv_sec) * SecondNs) + facts.st_mtim.tv_nsec;
}

Result<FileState> StateOf(const QString& told, int kind)
{
    const QString found = paths::Existing(told);
    const QString path = found.isEmpty() ? told : found;
    struct stat facts = {};
    if (stat(QFile::encodeName(path).constData(), &facts) != 0)
        return Fail(path, qt_error_string(errno));
    const int wanted = kind < 0 ? ImageKindOfSheet(path) : kind;
    if (wanted < 0 || wanted >= int(ImageKinds().size()))
        return Fail(path, QStringLiteral("This is no image of a known kind."));
    return FileState{path, wanted, ChangedAt(facts), qint64(facts.st_size), quint64(facts.st_ino)};
}

bool IsOld(const FileState& file)
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return std::abs(qint64(quint64(now.tv_sec) * SecondNs) + now.tv_nsec - file.Time) > TooYoung;
}

/// For a wait that nobody can end: the windows repaint.
bool Repaint()
{
    const auto* const application = QCoreApplication::instance();
    if (application && QThread::currentThread() == application->thread())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
    return true;
}

/// Waits, after the first moments in turns. False: a turn said that it is enough.
template <class Value>
bool Await(const std::future<Value>& future, const Turn& turn)
{
    if (future.wait_for(Still) == std::future_status::ready)
        return true;
    while (future.wait_for(EventsEvery) != std::future_status::ready)
        if (!turn())
            return false;
    return true;
}

QString ReasonOf(const DecoderProcess::Reply& reply)
{
    if (reply.How == DecoderProcess::Fate::TimedOut)
        return QStringLiteral("The image cannot be read: it takes too long.");
    if (reply.How == DecoderProcess::Fate::Answered && reply.Answer.How == decoder::Outcome::TooLarge)
        return QStringLiteral("The image cannot be read: it is too large.");
    return CannotBeRead();
}

} // namespace

size_t qHash(const FileState& state, size_t seed)
{
    return qHashMulti(seed, state.Path, state.Kind, state.Time, state.Size, state.Node);
}

Service::Service(ServicePlan plan_)
    : plan(std::move(plan_)), kept(plan.KeptBytes), helper(plan.Decoder, givenUp), worker([this] { Work(); })
{
    if (const auto* const application = QCoreApplication::instance())
        postbox.moveToThread(application->thread());
}

Service::~Service()
{
    {
        const std::lock_guard lock(mutex);
        ending = givenUp = true;
    }
    changed.notify_all();
    worker.join();
    for (const Job& job : jobs)
        job.Done(Fail(job.File.Path, CannotBeRead()));
}

Result<Picture> Service::Load(const QString& path, int kind, const Turn& turn)
{
    const Result<FileState> file = StateOf(path, kind);
    if (!file)
        return tl::unexpected(file.error());
    if (auto picture = Look(*file))
        return *picture;
    return WaitFor(*file, decoder::Task::Pixels, turn).map([](const Decoded& decoded) { return decoded.Image; });
}

void Service::LoadLater(const QString& path, int kind, QObject* context, PictureReady ready)
{
    // The pointer to the context is looked at in the main thread alone.
    auto deliver = [this, guard = QPointer<QObject>(context), ready = std::move(ready)](const Result<Picture>& result) {
        const auto hand = [guard, ready, result] {
            if (guard)
                ready(result);
        };
        QMetaObject::invokeMethod(&postbox, hand, Qt::QueuedConnection);
    };
    const Result<FileState> file = StateOf(path, kind);
    if (!file)
        return deliver(tl::unexpected(file.error()));
    if (const auto picture = Look(*file))
        return deliver(*picture);
    auto done = [deliver](const Result<Decoded>& decoded) {
        deliver(decoded.map([](const Decoded& whole) { return whole.Image; }));
    };
    Queue({*file, decoder::Task::Pixels, std::move(done)}, false);
}

std::optional<Picture> Service::Kept(const QString& path, int kind)
{
    const Result<FileState> file = StateOf(path, kind);
    return file ? Look(*file) : std::nullopt;
}

Result<Header> Service::ReadHeader(const QString& path, int kind, const Turn& turn)
{
    const Result<FileState> file = StateOf(path, kind);
    if (!file)
        return tl::unexpected(file.error());
    if (const auto picture = Look(*file))
        return Header{picture->Size(), picture->Kind, picture->Bits};
    return WaitFor(*file, decoder::Task::Header, turn).map([](const Decoded& decoded) {
        return Header{decoded.Size, decoded.Image.Kind, decoded.Image.Bits};
    });
}

void Service::Warm()
{
    {
        const std::lock_guard lock(mutex);
        warmWanted = true;
    }
    changed.notify_one();
}

Result<Service::Decoded> Service::WaitFor(const FileState& file, decoder::Task what, const Turn& turn)
{
    const auto promise = std::make_shared<std::promise<Result<Decoded>>>();
    const quint32 job =
        Queue({file, what, [promise](Result<Decoded> result) { promise->set_value(std::move(result)); }}, true);
    std::future<Result<Decoded>> future = promise->get_future();
    if (Await(future, turn ? turn : Repaint))
        return future.get();
    GiveUp(job);
    return Fail(file.Path, QStringLiteral("The reading was stopped."));
}

/// A helper that is at it is ended; what waits in the queue goes.
void Service::GiveUp(quint32 job)
{
    const std::lock_guard lock(mutex);
    givenUp = givenUp || jobAtHand == job;
    std::erase_if(jobs, [job](const Job& waiting) { return waiting.Number == job; });
}

/// Who waits comes before those that asked for later.
quint32 Service::Queue(Job job, bool first)
{
    quint32 number = 0;
    {
        const std::lock_guard lock(mutex);
        number = job.Number = ++lastJob;
        jobs.insert(first ? jobs.begin() : jobs.end(), std::move(job));
    }
    changed.notify_one();
    return number;
}

std::optional<Picture> Service::Look(const FileState& file)
{
    const std::lock_guard lock(mutex);
    const Picture* const picture = kept.object(file);
    return picture ? std::optional(*picture) : std::nullopt;
}

void Service::Keep(const FileState& file, const Picture& picture)
{
    if (!IsOld(file))
        return;
    const std::lock_guard lock(mutex);
    kept.insert(file, new Picture(picture), picture.Pixels.sizeInBytes());
}

void Service::Work()
{
    std::unique_lock lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return ending || warmWanted || !jobs.empty(); });
        if (ending)
            return;
        if (jobs.empty()) {
            warmWanted = false;
            lock.unlock();
            helper.Start(); // Whether it can be started shows at the first image.
            lock.lock();
            continue;
        }
        const Job job = std::move(jobs.front());
        jobs.pop_front();
        jobAtHand = job.Number;
        givenUp = false;
        lock.unlock();
        job.Done(Carry(job));
        lock.lock();
        jobAtHand = 0;
    }
}

Result<Service::Decoded> Service::Carry(const Job& job)
try {
    if (const auto picture = Look(job.File)) // the same image may have stood twice in the queue
        return Decoded{*picture, picture->Size()};
    const RegularFile file(job.File.Path, decoder::MostFileBytes);
    if (file.Error != 0)
        return Fail(job.File.Path, qt_error_string(file.Error));
    const Result<DecoderProcess::Reply> reply = AskHelper(job, file.Handle);
    if (!reply)
        return tl::unexpected(reply.error());
    const decoder::Answer& answer = reply->Answer;
    if (reply->How != DecoderProcess::Fate::Answered || answer.How != decoder::Outcome::Done) {
        // Broken images make the library leak, so one that could not be read costs its helper; the next stands ready.
        helper.Stop();
        Warm();
        return Fail(job.File.Path, ReasonOf(*reply));
    }
    const Decoded decoded{{reply->Pixels, job.File.Kind, int(answer.Bits), int(answer.ColoursUsed), answer.EndsEarly},
                          {int(answer.Width), int(answer.Height)}};
    if (job.What == decoder::Task::Pixels)
        Keep(job.File, decoded.Image);
    return decoded;
} catch (const std::bad_alloc&) {
    helper.Stop(); // it may be in the midst of an answer
    return Fail(job.File.Path, CannotBeRead());
}

/// A helper that has served before may have died of something else than this image: then a fresh one tries once more,
/// unless it died of the time that the image took.
Result<DecoderProcess::Reply> Service::AskHelper(const Job& job, int file)
{
    for (;;) {
        if (const int error = helper.Start())
            return Fail(plan.Decoder, qt_error_string(error));
        const bool last = helper.IsFresh();
        QElapsedTimer timer;
        timer.start();
        const decoder::Request request{++serial, quint32(job.File.Kind), job.What};
        DecoderProcess::Reply reply = helper.Ask(request, file, plan.Patience);
        if (reply.How != DecoderProcess::Fate::Fault || last || timer.hasExpired(SoonEnough))
            return reply;
        helper.Stop();
    }
}

} // namespace images
