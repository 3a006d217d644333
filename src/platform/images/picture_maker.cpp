#include "platform/images/picture_maker.h"

#include "platform/files/file_steps.h"
#include "platform/images/bitmap_file.h"
#include "platform/images/image_kinds.h"

#include <chrono>
#include <future>
#include <limits>
#include <sys/mman.h>
#include <unistd.h>

namespace images {

namespace {

using namespace std::chrono_literals;

constexpr auto Beat = 20ms; ///< between two turns

/// A file that lies in memory and has no name.
class UnnamedFile
{
public:
    explicit UnnamedFile(const QByteArray& bytes) : Handle(memfd_create("picture", MFD_CLOEXEC))
    {
        for (qsizetype done = 0; Error == 0 && done < bytes.size();) {
            const ssize_t put =
                Persist([&] { return write(Handle, bytes.data() + done, size_t(bytes.size() - done)); });
            Error = put < 0 ? errno : 0;
            done += put;
        }
    }
    ~UnnamedFile()
    {
        if (Handle >= 0)
            close(Handle);
    }
    UnnamedFile(const UnnamedFile&) = delete;
    UnnamedFile& operator=(const UnnamedFile&) = delete;

    int Handle;
    int Error = 0;
};

} // namespace

PictureMaker::PictureMaker(QString program_) : program(std::move(program_)), helper(program, givenUp) {}

Result<DecoderProcess::Reply> PictureMaker::Make(decoder::Request request, const QImage& picture, const Turn& turn)
{
    if (!decoder::WithinLimits(quint64(picture.width()), quint64(picture.height())))
        return Fail({}, picture.isNull() ? QStringLiteral("There is no picture.")
                                         : QStringLiteral("The picture is too large."));
    const UnnamedFile file(BitmapFile(picture));
    if (file.Error != 0)
        return Fail({}, qt_error_string(file.Error));
    request.Kind = WindowsBitmapKind;
    givenUp = false;
    for (;;) {
        if (const int error = helper.Start())
            return Fail(program, qt_error_string(error));
        const bool last = helper.IsFresh() || givenUp;
        request.Serial = ++serial;
        const DecoderProcess::Reply reply = Ask(request, file.Handle, turn);
        if (reply.How == DecoderProcess::Fate::Answered && reply.Answer.How == decoder::Outcome::Done)
            return reply;
        helper.Stop();
        if (givenUp)
            return Fail({}, QStringLiteral("Stopped."));
        if (last || reply.How != DecoderProcess::Fate::Fault)
            return Fail({}, QStringLiteral("The picture cannot be converted."));
    }
}

/// There is no deadline: the helper has its own limit of processor time, by the size of the picture.
DecoderProcess::Reply PictureMaker::Ask(const decoder::Request& request, int file, const Turn& turn)
{
    constexpr int Endless = std::numeric_limits<int>::max();
    auto reply = std::async(std::launch::async, [&] { return helper.Ask(request, file, Endless); });
    while (turn && !givenUp && reply.wait_for(Beat) != std::future_status::ready)
        givenUp = !turn();
    return reply.get();
}

} // namespace images
