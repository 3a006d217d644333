#include "platform/files/beside_file.h"
#include "platform/files/paths.h"

#include <QFile>
#include <cerrno>
#include <fcntl.h>

namespace {

constexpr qsizetype Chunk = qsizetype(1) << 20;

/// An open file to read from, closed with the scope.
class Source
{
public:
    /// 0 or the error number; a folder or a device is refused. A fifo must not be waited for.
    int Open(const QString& path)
    {
        file = Persist([&] { return Steps().Open(QFile::encodeName(path), O_RDONLY | O_NONBLOCK | O_NOCTTY, 0); });
        if (file < 0 || fstat(file, &Facts) != 0)
            return errno;
        if (S_ISDIR(Facts.st_mode))
            return EISDIR;
        return S_ISREG(Facts.st_mode) ? 0 : ENODEV;
    }
    ssize_t Read(char* to, qsizetype size) const
    {
        return Persist([&] { return Steps().Read(file, to, size_t(size)); });
    }

    Source() = default;
    ~Source()
    {
        if (file >= 0)
            Steps().Close(file);
    }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    FileFacts Facts{};

private:
    int file = -1;
};

/// As given if it exists, else looked up; the given path if there is none, so that opening it tells why.
QString Found(const QString& path)
{
    const QString found = paths::Existing(path);
    return found.isEmpty() ? path : found;
}

int CopyBytes(const Source& from, BesideFile& to)
{
    QByteArray buffer(Chunk, Qt::Uninitialized);
    for (;;) {
        const ssize_t got = from.Read(buffer.data(), buffer.size());
        if (got < 0)
            return errno;
        if (got == 0)
            return 0;
        if (const int error = to.Append(QByteArrayView(buffer).first(got)))
            return error;
    }
}

int CopyTo(const Source& source, const QByteArray& target)
{
    BesideFile copy;
    if (const int error = copy.Open(target, 0600))
        return error;
    if (const int error = CopyBytes(source, copy))
        return error;
    if (const int error = copy.Mode(source.Facts.st_mode & 0777))
        return error;
    if (const int error = copy.Settle())
        return error;
    if (const int error = copy.MoveToNew())
        return error;
    return SyncFolderOf(target);
}

} // namespace

namespace paths {

Result<QByteArray> ReadWhole(const QString& told, qint64 limit)
{
    const QString path = Found(told);
    Source source;
    if (const int error = source.Open(path))
        return Fail(path, qt_error_string(error));
    // The size is only a hint: a file may grow meanwhile, and those of the system itself say 0.
    QByteArray bytes;
    bytes.reserve(qsizetype(std::min<qint64>(source.Facts.st_size, limit)) + 1);
    while (bytes.size() <= limit) {
        const qsizetype before = bytes.size();
        const qsizetype room = bytes.capacity() - before;
        const qsizetype step = room > 0 ? room : std::max(before / 2, qsizetype(4096));
        bytes.resize(before + step);
        const ssize_t got = source.Read(bytes.data() + before, step);
        if (got < 0)
            return Fail(path, qt_error_string(errno));
        bytes.resize(before + got);
        if (got == 0)
            return bytes;
    }
    return Fail(path, qt_error_string(EFBIG));
}

Result<> ReadPieces(const QString& told, qint64 limit, PieceTaker& taker)
{
    const QString path = Found(told);
    Source source;
    if (const int error = source.Open(path))
        return Fail(path, qt_error_string(error));
    if (source.Facts.st_size > limit)
        return Fail(path, qt_error_string(EFBIG));
    taker.Begin(source.Facts.st_size);
    QByteArray buffer(Chunk, Qt::Uninitialized);
    for (qint64 all = 0; all <= limit;) {
        const ssize_t got = source.Read(buffer.data(), buffer.size());
        if (got < 0)
            return Fail(path, qt_error_string(errno));
        if (got == 0)
            return {};
        taker.Take(QByteArrayView(buffer).first(got));
        all += got;
    }
    return Fail(path, qt_error_string(EFBIG)); // it grew meanwhile
}

Result<> CopyFileTo(const QString& from, const QString& to)
{
    const QString path = Found(from);
    Source source;
    if (const int error = source.Open(path))
        return Fail(path, qt_error_string(error));
    const QString target = ForWriting(to);
    if (const int error = CopyTo(source, QFile::encodeName(target)))
        return Fail(target, qt_error_string(error));
    return {};
}

} // namespace paths
