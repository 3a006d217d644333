#pragma once

#include "platform/images/decoder_process.h"
#include "platform/images/images.h"

#include <QCache>
#include <QObject>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace images {

struct ServicePlan
{
    QString Decoder;                            ///< path of the helper
    int Patience = 10000;                       ///< ms for one image, its waiting for a start included
    qsizetype KeptBytes = qsizetype(192) << 20; ///< of pixels, over all pictures that are kept
};

/// A file as it was when it was looked at: any of them changes when it is painted anew.
struct FileState
{
    QString Path;
    int Kind = -1;
    qint64 Time = 0; ///< ns of its last change
    qint64 Size = 0;
    quint64 Node = 0;

    bool operator==(const FileState&) const = default;
};
size_t qHash(const FileState& state, size_t seed = 0);

/// The queue before the helper, worked off by one thread, and the pictures that are kept. The routines of images.h
/// are its callers.
class Service
{
public:
    explicit Service(ServicePlan plan);
    ~Service();
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    Result<Picture> Load(const QString& path, int kind, const Turn& turn = {});
    void LoadLater(const QString& path, int kind, QObject* context, PictureReady ready);
    std::optional<Picture> Kept(const QString& path, int kind);
    Result<Header> ReadHeader(const QString& path, int kind, const Turn& turn = {});
    void Warm();

private:
    /// A decoded image; of a header no pixels.
    struct Decoded
    {
        Picture Image;
        QSize Size;
    };
    struct Job
    {
        FileState File;
        decoder::Task What = decoder::Task::Pixels;
        std::function<void(Result<Decoded>)> Done;
        quint32 Number = 0;
    };

    Result<Decoded> WaitFor(const FileState& file, decoder::Task what, const Turn& turn);
    void GiveUp(quint32 job);
    std::optional<Picture> Look(const FileState& file);
    void Keep(const FileState& file, const Picture& picture);
    void Work();
    Result<Decoded> Carry(const Job& job);
    Result<DecoderProcess::Reply> AskHelper(const Job& job, int file);
    quint32 Queue(Job job, bool first); ///< its number

    ServicePlan plan;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Job> jobs;
    bool warmWanted = false;
    QCache<FileState, Picture> kept;
    bool ending = false;
    std::atomic<bool> givenUp = false; ///< nobody waits for the job at hand any more
    quint32 lastJob = 0, jobAtHand = 0;
    quint32 serial = 0;
    QObject postbox; ///< lives in the main thread; what is ready goes there
    DecoderProcess helper;
    std::thread worker;
};

} // namespace images
