#include "platform/in_place.h"

#include "platform/beside_file.h"
#include "platform/paths.h"
#include "platform/standard_folders.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace {

QString KeptFolder()
{
    return folders::State() + QLatin1String("overwritten/");
}

int Overwrite(int file, QByteArrayView bytes)
{
    if (const int error = WriteAll(file, bytes, 0))
        return error;
    if (Persist([&] { return Steps().Truncate(file, bytes.size()); }) != 0)
        return errno;
    return Persist([&] { return Steps().Sync(file); }) == 0 ? 0 : errno;
}

void Remove(const QString& copy)
{
    Steps().Unlink(QFile::encodeName(copy));
}

/// Both states of a file whose bytes are being changed, as they lie in the state folder: path, size of the old bytes
/// (a character 0 behind each), old bytes, new bytes. The name begins with the process.
struct Kept
{
    QByteArray Path, Old, New;
};

Result<QString> Keep(const Kept& kept)
{
    const QString copy = KeptFolder() + QString::number(getpid()) + QLatin1Char('-') +
                         QString::number(QRandomGenerator::system()->generate64(), 16);
    const QByteArray head = kept.Path + '\0' + QByteArray::number(kept.Old.size()) + '\0';
    const auto written = paths::WriteWholePrivate(copy, QByteArray(head + kept.Old + kept.New));
    if (written)
        return copy;
    Remove(copy); // it may be there all the same if only the last sync failed
    return tl::unexpected(written.error());
}

std::optional<Kept> Parsed(const QByteArray& bytes)
{
    const qsizetype pathEnd = bytes.indexOf('\0');
    const qsizetype sizeEnd = pathEnd < 0 ? -1 : bytes.indexOf('\0', pathEnd + 1);
    if (pathEnd <= 0 || sizeEnd < 0)
        return {};
    const qsizetype size = bytes.mid(pathEnd + 1, sizeEnd - pathEnd - 1).toLongLong();
    if (size < 0 || size > bytes.size() - sizeEnd - 1)
        return {};
    return Kept{bytes.left(pathEnd), bytes.mid(sizeEnd + 1, size), bytes.mid(sizeEnd + 1 + size)};
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

enum class Outcome { NothingToDo, Finished, Later };

Outcome Finish(const Kept& kept)
{
    const auto found = paths::ReadWhole(QFile::decodeName(kept.Path), paths::LargestDocument);
    if (!found)
        return Outcome::Later;
    if (*found == kept.New || *found == kept.Old || !IsBetween(*found, kept))
        return Outcome::NothingToDo;
    const int file = Persist([&] { return Steps().Open(kept.Path, O_WRONLY | O_NOFOLLOW, 0); });
    if (file < 0)
        return Outcome::Later;
    const bool whole = !Overwrite(file, kept.New) || !Overwrite(file, kept.Old);
    Steps().Close(file);
    return whole ? Outcome::Finished : Outcome::Later;
}

} // namespace

namespace in_place {

Result<> Write(const QString& path, QByteArrayView bytes)
{
    const auto old = paths::ReadWhole(path, paths::LargestDocument);
    if (!old)
        return tl::unexpected(old.error());
    const auto copy = Keep({QFile::encodeName(path), *old, bytes.toByteArray()});
    if (!copy)
        return Fail(path, QStringLiteral("The file can only be written in place, and no safety copy could be made: ") +
                              copy.error().Path);
    const int file = Persist([&] { return Steps().Open(QFile::encodeName(path), O_WRONLY | O_NOFOLLOW, 0); });
    if (file < 0) {
        const int error = errno;
        Remove(*copy);
        return Fail(path, qt_error_string(error));
    }
    const int error = Overwrite(file, bytes);
    const bool whole = !error || !Overwrite(file, *old);
    Steps().Close(file); // synced, or given up
    if (whole)
        Remove(*copy);
    if (!error)
        return {};
    const QString kept = whole ? QString() : QLatin1String("^^") + *copy;
    return Fail(path, qt_error_string(error) + kept);
}

QStringList FinishInterrupted()
{
    QStringList finished;
    const QDir folder(KeptFolder());
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
