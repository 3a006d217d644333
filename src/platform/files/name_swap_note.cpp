#include "platform/files/name_swap_note.h"

#include "platform/files/beside_file.h"
#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

constexpr const char* SwapNoteName = ".gemforge-swap";
constexpr const char* SwapNoteMark = "gemforge swap 1";
constexpr qint64 LargestSwapNote = 1 << 20;

QString RemindersFolder()
{
    return folders::State() + QLatin1String("swaps/");
}

int SyncedNote(int file, const QByteArray& bytes)
{
    if (const int error = WriteAll(file, bytes, 0))
        return error;
    return Persist([&] { return Steps().Sync(file); }) == 0 ? 0 : errno;
}

} // namespace

QByteArray SwapNote::ToBytes() const
{
    QByteArrayList fields = {
        SwapNoteMark, File, Kept, Spare, QByteArray::number(TakenSize), TakenHash, QByteArray::number(OwnSize),
        OwnHash};
    for (const name_swap::FolderMove& move : Folders)
        fields << QFile::encodeName(move.From) << QFile::encodeName(move.To);
    return fields.join('\0') + '\0';
}

std::optional<SwapNote> SwapNote::Parsed(const QByteArray& bytes)
{
    constexpr qsizetype FixedFields = 8;
    QByteArrayList fields = bytes.split('\0');
    if (fields.size() <= FixedFields || fields.first() != SwapNoteMark || !fields.takeLast().isEmpty())
        return {};
    for (const QByteArray& name : fields.mid(1, 3))
        if (name.isEmpty() || name.contains('/'))
            return {};
    SwapNote note{fields.at(1), fields.at(2),
                  fields.at(3), fields.at(4).toLongLong(),
                  fields.at(5), fields.at(6).toLongLong(),
                  fields.at(7), {}};
    for (qsizetype i = FixedFields; i + 1 < fields.size(); i += 2)
        note.Folders.push_back({QFile::decodeName(fields.at(i)), QFile::decodeName(fields.at(i + 1))});
    return note;
}

QByteArray SwapHash(QByteArrayView bytes)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(bytes);
    return hash.result().toHex();
}

HeldNote::~HeldNote()
{
    if (file >= 0)
        Steps().Close(file);
}

int HeldNote::Make(const QByteArray& noteFolder, const SwapNote& note)
{
    path = noteFolder + SwapNoteName;
    const QByteArray draft = NameBeside(path); // swept if it is left
    file = Persist([&] { return Steps().Open(draft, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, 0644); });
    if (file < 0)
        return errno;
    // Locked and whole before it has its name, so that nobody takes it for one that was left.
    int error = flock(file, LOCK_EX | LOCK_NB) == 0 ? SyncedNote(file, note.ToBytes()) : errno;
    if (!error && Steps().RenameNew(draft, path) != 0)
        error = errno == EEXIST ? EBUSY : errno;
    if (!error)
        return SyncFolderOf(path);
    Steps().Unlink(draft);
    Steps().Close(std::exchange(file, -1));
    return error;
}

int HeldNote::TakeOver(const QByteArray& noteFolder, std::optional<SwapNote>& note)
{
    path = noteFolder + SwapNoteName;
    file = Persist([&] { return Steps().Open(path, O_RDONLY | O_NOFOLLOW, 0); });
    if (file < 0)
        return errno == EACCES ? EBUSY : errno; // another user's
    if (flock(file, LOCK_EX | LOCK_NB) != 0)
        return EBUSY;
    // Whoever held it may have ended and removed it between the two calls.
    FileFacts own{}, named{};
    if (fstat(file, &own) != 0 || Steps().Stat(path, &named) != 0 || own.st_ino != named.st_ino)
        return ENOENT;
    const auto bytes = paths::ReadWhole(QFile::decodeName(path), LargestSwapNote);
    note = bytes ? SwapNote::Parsed(*bytes) : std::nullopt;
    return note ? 0 : EBADMSG;
}

int HeldNote::Remove()
{
    if (Steps().Unlink(path) != 0 && errno != ENOENT)
        return errno;
    return SyncFolderOf(path);
}

Result<QString> RememberFolder(const QByteArray& folder)
{
    const QString reminder = RemindersFolder() + QString::number(getpid()) + QLatin1Char('-') +
                             QString::number(QRandomGenerator::system()->generate64(), 16);
    if (const auto written = paths::WriteWholePrivate(reminder, folder); !written)
        return tl::unexpected(written.error());
    return reminder;
}

void ForgetFolder(const QString& reminder)
{
    Steps().Unlink(QFile::encodeName(reminder));
}

std::vector<std::pair<QString, QByteArray>> RememberedFolders()
{
    std::vector<std::pair<QString, QByteArray>> all;
    const QDir reminders(RemindersFolder());
    for (const QString& name : reminders.entryList(QDir::Files)) {
        const QString path = reminders.filePath(name);
        if (const auto bytes = paths::ReadWhole(path, LargestSwapNote); bytes && bytes->endsWith('/'))
            all.emplace_back(path, *bytes);
    }
    return all;
}
