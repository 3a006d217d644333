#include "platform/files/in_place.h"

#include "platform/files/beside_file.h"
#include "platform/files/byte_file.h"
#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace {

constexpr qint64 Whole = -1; ///< in the place of an offset: the bytes are all of the file

int Overwrite(int file, QByteArrayView bytes, qint64 at)
{
    if (const int error = WriteAll(file, bytes, std::max<qint64>(at, 0)))
        return error;
    if (at == Whole && Persist([&] { return Steps().Truncate(file, bytes.size()); }) != 0)
        return errno;
    return Persist([&] { return Steps().Sync(file); }) == 0 ? 0 : errno;
}

/// As before a write that failed, without what it added at the file's end.
int RestoreOld(int file, const QByteArray& old, qint64 at, qsizetype written)
{
    if (at != Whole && old.size() < written && Persist([&] { return Steps().Truncate(file, at + old.size()); }) != 0)
        return errno;
    return Overwrite(file, old, at);
}

void Remove(const QString& copy)
{
    Steps().Unlink(QFile::encodeName(copy));
}

/// Both states of bytes that are being changed, as they lie in the state folder: path, where in the file (or Whole),
/// size of the old bytes (a character 0 behind each), old bytes, new bytes. The name begins with the process.
struct Kept
{
    QByteArray Path;
    qint64 At;
    QByteArray Old, New;
};

Result<QString> Keep(const Kept& kept)
{
    const QString copy = in_place::Folder() + QString::number(getpid()) + QLatin1Char('-') +
                         QString::number(QRandomGenerator::system()->generate64(), 16);
    const QByteArray head =
        kept.Path + '\0' + QByteArray::number(kept.At) + '\0' + QByteArray::number(kept.Old.size()) + '\0';
    const auto written = paths::WriteWholePrivate(copy, QByteArray(head + kept.Old + kept.New));
    if (written)
        return copy;
    Remove(copy); // it may be there all the same if only the last sync failed
    return tl::unexpected(written.error());
}

std::optional<Kept> Parsed(const QByteArray& bytes)
{
    const qsizetype pathEnd = bytes.indexOf('\0');
    const qsizetype atEnd = pathEnd < 0 ? -1 : bytes.indexOf('\0', pathEnd + 1);
    const qsizetype sizeEnd = atEnd < 0 ? -1 : bytes.indexOf('\0', atEnd + 1);
    if (pathEnd <= 0 || sizeEnd < 0)
        return {};
    const qint64 at = bytes.mid(pathEnd + 1, atEnd - pathEnd - 1).toLongLong();
    const qsizetype size = bytes.mid(atEnd + 1, sizeEnd - atEnd - 1).toLongLong();
    if (at < Whole || size < 0 || size > bytes.size() - sizeEnd - 1)
        return {};
    return Kept{bytes.left(pathEnd), at, bytes.mid(sizeEnd + 1, size), bytes.mid(sizeEnd + 1 + size)};
}

/// Could a write that was cut off have left these bytes? Each place then holds its old byte, its new one or nothing
/// yet; any other byte shows that somebody has written the file since.
bool IsBetween(const QByteArray& found, const Kept& kept)
{
    for (qsizetype i = 0; i < found.size(); ++i) {
        const bool old = i < kept.Old.size() ? found[i] == kept.Old[i] : i < kept.New.size() && found[i] == '\0';
        if (!old && (i >= kept.New.size() || found[i] != kept.New[i]))
            return false;
    }
    return found.size() >= std::min(kept.Old.size(), kept.New.size());
}

bool StillRuns(const QString& copyName)
{
    const pid_t process = copyName.section(QLatin1Char('-'), 0, 0).toInt();
    return process > 0 && process != getpid() && (kill(process, 0) == 0 || errno == EPERM);
}

/// The bytes of the file, or those of that place.
Result<QByteArray> Stands(const QString& path, qint64 at, qsizetype size)
{
    return at == Whole ? paths::ReadWhole(path, paths::LargestDocument) : ByteFile(path).Read(at, size);
}

enum class Outcome { NothingToDo, Finished, Later };

Outcome Finish(const Kept& kept)
{
    const auto found = Stands(QFile::decodeName(kept.Path), kept.At, std::max(kept.Old.size(), kept.New.size()));
    if (!found)
        return Outcome::Later;
    if (*found == kept.New || *found == kept.Old || !IsBetween(*found, kept))
        return Outcome::NothingToDo;
    const int file = Persist([&] { return Steps().Open(kept.Path, O_WRONLY | O_NOFOLLOW, 0); });
    if (file < 0)
        return Outcome::Later;
    const bool whole = !Overwrite(file, kept.New, kept.At) || !RestoreOld(file, kept.Old, kept.At, kept.New.size());
    Steps().Close(file);
    return whole ? Outcome::Finished : Outcome::Later;
}

Result<> WriteOver(const QString& path, qint64 at, QByteArrayView bytes, const std::function<Result<>()>& before)
{
    const auto old = Stands(path, at, bytes.size());
    if (!old)
        return tl::unexpected(old.error());
    const auto copy = Keep({QFile::encodeName(path), at, *old, bytes.toByteArray()});
    if (!copy)
        return Fail(path, QStringLiteral("The file can only be written in place, and no safety copy could be made: ") +
                              copy.error().Path);
    if (Result<> ready = before ? before() : Result<>(); !ready) {
        Remove(*copy);
        return ready;
    }
    const int file = Persist([&] { return Steps().Open(QFile::encodeName(path), O_WRONLY | O_NOFOLLOW, 0); });
    if (file < 0) {
        const int error = errno;
        Remove(*copy);
        return Fail(path, qt_error_string(error));
    }
    const int error = Overwrite(file, bytes, at);
    const bool whole = !error || !RestoreOld(file, *old, at, bytes.size());
    Steps().Close(file); // synced, or given up
    if (whole)
        Remove(*copy);
    if (!error)
        return {};
    const QString kept = whole ? QString() : QLatin1String("^^") + *copy;
    return Fail(path, qt_error_string(error) + kept);
}

} // namespace

namespace in_place {

QString Folder()
{
    return folders::State() + QLatin1String("overwritten/");
}

Result<> Write(const QString& path, QByteArrayView bytes, const std::function<Result<>()>& before)
{
    return WriteOver(path, Whole, bytes, before);
}

Result<> WriteAt(const QString& path, qint64 at, QByteArrayView bytes)
{
    return WriteOver(path, at, bytes, {});
}

QStringList FinishInterrupted()
{
    QStringList finished;
    const QDir folder(Folder());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden)) {
        // A copy that never got its name was cut off itself; its file was not touched yet.
        const bool unnamed = name.startsWith(QLatin1Char('.'));
        if (StillRuns(unnamed ? name.section(QLatin1Char('-'), 1) : name))
            continue;
        const QString copy = folder.filePath(name);
        const auto bytes = paths::ReadWhole(copy, 2 * paths::LargestDocument + 65536);
        const std::optional<Kept> kept = bytes && !unnamed ? Parsed(*bytes) : std::nullopt;
        const Outcome outcome = kept ? Finish(*kept) : Outcome::NothingToDo;
        if (outcome == Outcome::Finished)
            finished.append(QFile::decodeName(kept->Path));
        if (outcome != Outcome::Later && (bytes || unnamed))
            Remove(copy);
    }
    return finished;
}

} // namespace in_place
