#include "platform/files/name_swap.h"

#include "platform/files/beside_file.h"
#include "platform/files/name_swap_note.h"
#include "platform/files/paths.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <sys/stat.h>

namespace {

using name_swap::PutBack;

/// What stands under a name: our file, the user's as it was taken, or what somebody has written meanwhile.
enum class Standing { Nothing, Own, Taken, Foreign };

bool StandsThere(const QByteArray& path)
{
    FileFacts facts{};
    return lstat(path, &facts) == 0;
}

/// A failure where it cannot be read: better looked at again at the next start than judged.
Result<Standing> WhatStands(const QByteArray& path, const SwapNote& note)
{
    if (!StandsThere(path))
        return Standing::Nothing;
    const auto bytes = paths::ReadWhole(QFile::decodeName(path), paths::LargestDocument);
    if (!bytes)
        return tl::unexpected(bytes.error());
    const QByteArray hash = SwapHash(*bytes);
    if (bytes->size() == note.OwnSize && hash == note.OwnHash)
        return Standing::Own;
    return bytes->size() == note.TakenSize && hash == note.TakenHash ? Standing::Taken : Standing::Foreign;
}

/// Two names for each other's file: at once, or by way of a third name. 0 or the error number.
int ExchangeNames(const QByteArray& a, const QByteArray& b, const QByteArray& spare)
{
    if (Steps().Exchange(a, b) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP)
        return errno;
    if (Steps().RenameNew(a, spare) != 0)
        return errno;
    if (Steps().RenameNew(b, a) == 0)
        return Steps().RenameNew(spare, b) == 0 ? 0 : errno;
    const int error = errno;
    Steps().RenameNew(spare, a);
    return error;
}

/// Moves a text that is neither of the two known ones to the first free backup name of `file`.
int KeepAside(const QByteArray& from, const QByteArray& file, QStringList& kept)
{
    for (int n = 0; n < 1000; ++n) {
        const QByteArray to = file + QStringLiteral("_%1.GemforgeBackup").arg(n, 3, 10, QLatin1Char('0')).toLatin1();
        if (Steps().RenameNew(from, to) == 0) {
            kept << QFile::decodeName(to);
            return 0;
        }
        if (errno != EEXIST)
            return errno;
    }
    return EEXIST;
}

Result<> Done(const QByteArray& path, int error)
{
    return error ? Fail(QFile::decodeName(path), qt_error_string(error)) : Result<>();
}

Result<> Remove(const QByteArray& path)
{
    return Done(path, Steps().Unlink(path) == 0 ? 0 : errno);
}

/// One folder's swap, put back. Every step leaves a state that the same routine can go on from.
class Restorer
{
public:
    Restorer(const QByteArray& noteFolder, const SwapNote& swapNote, PutBack& found)
        : note(swapNote), folder(noteFolder), file(folder + note.File), result(found)
    {
    }

    /// The first failure; the rest is put back all the same.
    Result<> Run()
    {
        const QByteArray kept = folder + note.Kept, spare = folder + note.Spare;
        Result<> done = Settle(spare, kept);
        if (done)
            done = Settle(kept, spare);
        if (done)
            done = Done(file, SyncFolderOf(file));
        for (const name_swap::FolderMove& move : note.Folders)
            if (const Result<> moved = FolderBack(move); !moved && done)
                done = moved;
        return done;
    }

private:
    Result<> FolderBack(const name_swap::FolderMove& move)
    {
        const QDir base(QFile::decodeName(folder));
        const auto path = [&](const QString& name) {
            return QFile::encodeName(QDir::cleanPath(base.absoluteFilePath(name)));
        };
        const QByteArray from = path(move.From), to = path(move.To);
        if (!StandsThere(to))
            return {};
        if (Steps().RenameNew(to, from) == 0)
            return Done(from, SyncFolderOf(from));
        if (errno != EEXIST)
            return Done(to, errno);
        result.Kept << QFile::decodeName(to); // somebody has made the folder anew
        return {};
    }

    /// Leaves nothing under `other`, one of the two names beside the file's own.
    Result<> Settle(const QByteArray& other, const QByteArray& free)
    {
        const auto there = WhatStands(other, note), inPlace = WhatStands(file, note);
        if (!there || !inPlace)
            return tl::unexpected(there ? inPlace.error() : there.error());
        if (*there == Standing::Nothing)
            return {};
        if (*there == Standing::Own || (*there == Standing::Taken && *inPlace == Standing::Taken))
            return Remove(other);
        if (*inPlace == Standing::Nothing)
            return Restored(Steps().RenameNew(other, file) == 0 ? 0 : errno);
        if (*inPlace == Standing::Taken)
            return Done(other, KeepAside(other, file, result.Kept));
        if (const Result<> back = Restored(ExchangeNames(file, other, free)); !back)
            return back;
        const auto behind = WhatStands(other, note);
        if (!behind)
            return tl::unexpected(behind.error());
        return *behind == Standing::Own ? Remove(other) : Done(other, KeepAside(other, file, result.Kept));
    }

    Result<> Restored(int error)
    {
        const QString path = QFile::decodeName(file);
        if (!error && !result.Restored.contains(path))
            result.Restored << path;
        return Done(file, error);
    }

    const SwapNote& note;
    QByteArray folder, file;
    PutBack& result;
};

Result<> PutBackNoted(HeldNote& held, const QByteArray& folder, const SwapNote& note, PutBack& result)
{
    if (const Result<> done = Restorer(folder, note, result).Run(); !done)
        return done;
    return Done(folder, held.Remove());
}

/// True: nothing is left to do in that folder.
bool FinishFolder(const QByteArray& folder, PutBack& result)
{
    HeldNote held;
    std::optional<SwapNote> note;
    const int error = held.TakeOver(folder, note);
    if (error == ENOENT || error == ENOTDIR)
        return StandsThere(folder); // a disk that is not there now may come back
    if (error == EBUSY)
        return false;
    const Result<> done = error ? Done(folder, error) : PutBackNoted(held, folder, *note, result);
    if (!done)
        result.Failures.push_back(done.error());
    return done.has_value();
}

/// A failure: a name is taken.
Result<SwapNote> MakeNote(const name_swap::Plan& plan, const QByteArray& taken, const QByteArray& own)
{
    const QString folder = paths::FolderOfPath(plan.File);
    const QByteArray kept = QFile::encodeName(plan.KeptName);
    SwapNote note{QFile::encodeName(paths::FileNameOfPath(plan.File)),
                  kept,
                  kept + '~',
                  taken.size(),
                  SwapHash(taken),
                  own.size(),
                  SwapHash(own),
                  {}};
    const auto isFree = [](const QString& path) { return !StandsThere(QFile::encodeName(path)); };
    for (const QByteArray& name : {note.Kept, note.Spare})
        if (const QString path = folder + QFile::decodeName(name); !isFree(path))
            return Fail(path, qt_error_string(EEXIST));
    for (const name_swap::FolderMove& move : plan.Folders) {
        if (!isFree(move.From) && !isFree(move.To))
            return Fail(move.To, qt_error_string(EEXIST));
        note.Folders.push_back({QDir(folder).relativeFilePath(move.From), QDir(folder).relativeFilePath(move.To)});
    }
    return note;
}

/// Whole when it first has its name.
int WriteOwn(const QByteArray& path, const QByteArray& bytes, mode_t mode)
{
    BesideFile file;
    if (const int error = file.Open(path, mode))
        return error;
    if (const int error = file.Append(bytes))
        return error;
    if (const int error = file.Settle())
        return error;
    return file.MoveToNew();
}

} // namespace

namespace name_swap {

struct Swap::Held
{
    QByteArray Folder;
    SwapNote Note;
    HeldNote File;
    QString Reminder;

    int TakePlace(const QByteArray& bytes, const std::vector<FolderMove>& folders);
};

int Swap::Held::TakePlace(const QByteArray& bytes, const std::vector<FolderMove>& folders)
{
    const QByteArray file = Folder + Note.File, kept = Folder + Note.Kept;
    FileFacts facts{};
    if (Steps().Stat(file, &facts) != 0)
        return errno;
    if (const int error = WriteOwn(kept, bytes, facts.st_mode & 0666))
        return error;
    if (const int error = ExchangeNames(file, kept, Folder + Note.Spare))
        return error;
    if (const int error = SyncFolderOf(file))
        return error;
    for (const FolderMove& move : folders) {
        const QByteArray from = QFile::encodeName(move.From);
        if (!StandsThere(from))
            continue;
        if (Steps().RenameNew(from, QFile::encodeName(move.To)) != 0)
            return errno;
        if (const int error = SyncFolderOf(from))
            return error;
    }
    return 0;
}

void PutBack::Add(PutBack other)
{
    Restored += other.Restored;
    Kept += other.Kept;
    Failures.insert(Failures.end(), other.Failures.begin(), other.Failures.end());
}

Swap::Swap(std::unique_ptr<Held> swapInForce) : held(std::move(swapInForce)) {}
Swap::Swap(Swap&& other) noexcept = default;

Swap::~Swap()
{
    End();
}

PutBack Swap::End()
{
    PutBack result;
    if (!held)
        return result;
    if (const Result<> done = PutBackNoted(held->File, held->Folder, held->Note, result))
        ForgetFolder(held->Reminder);
    else
        result.Failures.push_back(done.error());
    held.reset();
    return result;
}

Result<Swap> Begin(const Plan& plan)
{
    auto held = std::make_unique<Swap::Held>();
    const auto fail = [&](int error) {
        return Fail(plan.File, error == EBUSY ? QStringLiteral("another program is testing in this folder")
                                              : qt_error_string(error));
    };
    held->Folder = QFile::encodeName(paths::FolderOfPath(plan.File));
    if (const PutBack left = FinishIn(QFile::decodeName(held->Folder)); !left.Failures.empty())
        return tl::unexpected(left.Failures.front());
    const auto taken = paths::ReadWhole(plan.File, paths::LargestDocument);
    if (!taken)
        return tl::unexpected(taken.error());
    // The two are told apart by their bytes.
    const QByteArray bytes = plan.Bytes == *taken ? plan.Bytes + '\n' : plan.Bytes;
    const auto note = MakeNote(plan, *taken, bytes);
    if (!note)
        return tl::unexpected(note.error());
    held->Note = *note;
    const auto reminder = RememberFolder(held->Folder);
    if (!reminder)
        return tl::unexpected(reminder.error());
    held->Reminder = *reminder;
    if (const int error = held->File.Make(held->Folder, held->Note)) {
        ForgetFolder(held->Reminder);
        return fail(error);
    }
    const int error = held->TakePlace(bytes, plan.Folders);
    Swap swap(std::move(held));
    if (!error)
        return swap;
    const PutBack undone = swap.End();
    return undone.Failures.empty()
               ? fail(error)
               : Fail(plan.File, qt_error_string(error) + QStringLiteral("; it is put back at the next start"));
}

PutBack FinishAll()
{
    PutBack result;
    for (const auto& [reminder, folder] : RememberedFolders())
        if (FinishFolder(folder, result))
            ForgetFolder(reminder);
    return result;
}

PutBack FinishIn(const QString& folder)
{
    PutBack result;
    FinishFolder(QFile::encodeName(folder), result);
    return result;
}

} // namespace name_swap
