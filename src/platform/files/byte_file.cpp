#include "platform/files/byte_file.h"

#include "platform/files/beside_file.h"
#include "platform/files/in_place.h"
#include "platform/files/paths.h"

#include <QFile>
#include <fcntl.h>

namespace {

constexpr qint64 Page = 4096;
constexpr size_t MostPieces = 4096; ///< kept between two syncs

bool WithinOnePage(qint64 at, qsizetype size)
{
    return size == 0 || at / Page == (at + size - 1) / Page;
}

} // namespace

ByteFile::ByteFile(QString told) : path(std::move(told)) {}

ByteFile::~ByteFile()
{
    Close();
}

void ByteFile::Close()
{
    (void)Sync();
    if (file >= 0)
        Steps().Close(std::exchange(file, -1));
}

Result<> ByteFile::Failed(int error) const
{
    return Fail(path, qt_error_string(error));
}

/// 0 or the system's error number.
int ByteFile::Open(bool toWrite)
{
    const QString found = paths::Existing(path);
    const QByteArray name = QFile::encodeName(found.isEmpty() ? path : found);
    FileFacts facts{};
    if (file >= 0 && (writable || !toWrite) && Steps().Stat(name, &facts) == 0 && facts.st_dev == device &&
        facts.st_ino == number)
        return 0;
    Close();
    const int way = (toWrite ? O_RDWR : O_RDONLY) | O_NONBLOCK | O_NOCTTY;
    file = Persist([&] { return Steps().Open(name, way, 0); });
    if (file < 0)
        return errno;
    int error = fstat(file, &facts) == 0 ? 0 : errno;
    if (!error && !S_ISREG(facts.st_mode))
        error = S_ISDIR(facts.st_mode) ? EISDIR : ENODEV;
    if (error)
        Close();
    writable = toWrite;
    device = facts.st_dev;
    number = facts.st_ino;
    return error;
}

Result<qint64> ByteFile::Size()
{
    FileFacts facts{};
    int error = Open(false);
    if (!error && fstat(file, &facts) != 0)
        error = errno;
    if (error)
        return tl::unexpected(Failed(error).error());
    return facts.st_size;
}

Result<QByteArray> ByteFile::Read(qint64 at, qsizetype size)
{
    if (const int error = Open(false))
        return tl::unexpected(Failed(error).error());
    QByteArray bytes(size, Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled < size) {
        const ssize_t got =
            Persist([&] { return Steps().ReadAt(file, bytes.data() + filled, size_t(size - filled), at + filled); });
        if (got < 0)
            return tl::unexpected(Failed(errno).error());
        if (got == 0)
            break;
        filled += got;
    }
    bytes.resize(filled);
    return bytes;
}

int ByteFile::PutBack(const Piece& piece)
{
    const int error = WriteAll(file, piece.Old, piece.At);
    if (error || piece.Old.size() == piece.Written)
        return error;
    return Persist([&] { return Steps().Truncate(file, piece.At + piece.Old.size()); }) == 0 ? 0 : errno;
}

Result<> ByteFile::Write(qint64 at, QByteArrayView bytes)
{
    if (const int error = Open(true))
        return Failed(error);
    const Result<qint64> size = Size();
    if (!size)
        return tl::unexpected(size.error());
    if (at < 0 || at > *size)
        return Failed(ERANGE);
    if (!WithinOnePage(at, bytes.size()))
        return Sync().and_then([&] { return in_place::WriteAt(paths::Canonical(path), at, bytes); });
    const Result<QByteArray> old = Read(at, bytes.size());
    if (!old)
        return tl::unexpected(old.error());
    Piece piece{at, *old, bytes.size()};
    if (const int error = WriteAll(file, bytes, at)) {
        (void)PutBack(piece); // a part at most was written, over bytes that have their place on the disk
        return Failed(error);
    }
    kept.push_back(std::move(piece));
    return kept.size() < MostPieces ? Result<>() : Sync();
}

Result<> ByteFile::Sync()
{
    if (kept.empty())
        return {};
    const int error = Persist([&] { return Steps().Sync(file); }) == 0 ? 0 : errno;
    if (error) {
        for (auto piece = kept.rbegin(); piece != kept.rend(); ++piece)
            (void)PutBack(*piece);
        (void)Steps().Sync(file);
    }
    kept.clear();
    return error ? Failed(error) : Result<>();
}
