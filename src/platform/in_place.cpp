#include "platform/in_place.h"

#include "platform/beside_file.h"
#include "platform/paths.h"
#include "platform/standard_folders.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <csignal>
#include <fcntl.h>
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

/// A kept copy: the process, the path and a character 0 before the bytes. Gives back where it lies.
Result<QString> KeepOld(const QString& path, const QByteArray& old)
{
    const QString copy = KeptFolder() + QString::number(getpid()) + QLatin1Char('-') +
                         QString::number(QRandomGenerator::system()->generate64(), 16);
    const QByteArray kept = QFile::encodeName(path) + '\0' + old;
    const auto written = paths::WriteWholePrivate(copy, kept);
    if (written)
        return copy;
    Remove(copy); // it may be there all the same if only the last sync failed
    return tl::unexpected(written.error());
}

bool StillRuns(const QString& copyName)
{
    const pid_t process = copyName.section(QLatin1Char('-'), 0, 0).toInt();
    return process > 0 && process != getpid() && (kill(process, 0) == 0 || errno == EPERM);
}

/// The path a kept copy belongs to, once its bytes are back; empty if it was none or could not be restored.
QString RestoreOne(const QString& copy)
{
    const auto kept = paths::ReadWhole(copy, paths::LargestDocument + 65536);
    const qsizetype end = kept ? kept->indexOf('\0') : -1;
    if (end <= 0)
        return {};
    const int file = Persist([&] { return Steps().Open(kept->constData(), O_WRONLY | O_NOFOLLOW, 0); });
    if (file < 0)
        return {};
    const int error = Overwrite(file, QByteArrayView(*kept).sliced(end + 1));
    Steps().Close(file);
    return error ? QString() : QFile::decodeName(kept->left(end));
}

} // namespace

namespace in_place {

Result<> Write(const QString& path, QByteArrayView bytes)
{
    const auto old = paths::ReadWhole(path, paths::LargestDocument);
    if (!old)
        return tl::unexpected(old.error());
    const auto copy = KeepOld(path, *old);
    if (!copy)
        return tl::unexpected(copy.error());
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

QStringList RestoreInterrupted()
{
    QStringList restored;
    const QDir folder(KeptFolder());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden)) {
        // A copy that never got its name was cut off itself; its file was not touched yet.
        const bool unfinished = name.startsWith(QLatin1Char('.'));
        if (StillRuns(unfinished ? name.section(QLatin1Char('-'), 1) : name))
            continue;
        const QString copy = folder.filePath(name);
        if (unfinished)
            Remove(copy);
        const QString path = unfinished ? QString() : RestoreOne(copy);
        if (path.isEmpty())
            continue;
        restored.append(path);
        Remove(copy);
    }
    return restored;
}

} // namespace in_place
