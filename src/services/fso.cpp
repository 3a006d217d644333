#include "services/fso.h"

#include "platform/files/beside_file.h"
#include "platform/files/file_attributes.h"
#include "platform/files/file_steps.h"
#include "platform/files/regular_file.h"
#include "platform/files/whole_file.h"
#include "services/folder_tree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace fso {

namespace {

constexpr mode_t CopiedMode = 0777, FolderMode = 0700;
constexpr qsizetype PieceSize = qsizetype(1) << 20;

QByteArray Coded(const QString& path)
{
    return QFile::encodeName(path);
}

tl::unexpected<Failure> FailedWith(const QString& path, int error)
{
    return Fail(path, qt_error_string(error));
}

/// What stands at a path itself, a link too.
std::optional<FileFacts> FactsOf(const QString& path)
{
    FileFacts facts{};
    return lstat(Coded(path), &facts) == 0 ? std::optional(facts) : std::nullopt;
}

bool IsReadOnly(const FileFacts& facts)
{
    return !S_ISLNK(facts.st_mode) && !(facts.st_mode & S_IWUSR);
}

/// Canonical, or cleaned where nothing stands.
QString RealPath(const QString& path)
{
    const QFileInfo info(path);
    const QString real = info.canonicalFilePath();
    if (!real.isEmpty())
        return real;
    const QString holder = QFileInfo(info.path()).canonicalFilePath();
    return holder.isEmpty() ? QDir::cleanPath(path) : QDir::cleanPath(holder + QLatin1Char('/') + info.fileName());
}

bool LiesIn(const QString& path, const QString& folder)
{
    const QString inner = RealPath(path), outer = RealPath(folder);
    return inner == outer || inner.startsWith(outer.endsWith(QLatin1Char('/')) ? outer : outer + QLatin1Char('/'));
}

void TakeTimes(const QString& path, const FileFacts& facts)
{
    const timespec times[] = {facts.st_atim, facts.st_mtim};
    utimensat(AT_FDCWD, Coded(path), times, 0); // a copy with another time is still one
}

/// A file to be copied, open.
struct CopySource
{
    explicit CopySource(const QString& from) : Path(from), File(from, std::numeric_limits<quint64>::max())
    {
        Error = File.Error;
        if (Error == 0 && fstat(File.Handle, &Facts) != 0)
            Error = errno;
    }

    const QString Path;
    RegularFile File;
    FileFacts Facts{};
    int Error = 0;
};

/// Hands the bytes over piece by piece.
Result<> CopyBytes(const CopySource& from, const CountedTurn& turn,
                   const std::function<Result<>(QByteArrayView piece, off_t at)>& put)
{
    QByteArray piece(qMin<qint64>(PieceSize, from.Facts.st_size + 1), Qt::Uninitialized);
    for (off_t at = 0;;) {
        const ssize_t got =
            Persist([&] { return Steps().ReadAt(from.File.Handle, piece.data(), size_t(piece.size()), at); });
        if (got <= 0)
            return got == 0 ? Result<>() : FailedWith(from.Path, errno);
        if (Result<> done = put(QByteArrayView(piece).first(got), at); !done)
            return done;
        at += got;
        if (turn && !turn(int(at / PieceSize), int(from.Facts.st_size / PieceSize) + 1))
            return Stopped(from.Path);
    }
}

void TakeAttributes(const CopySource& from, const QString& to)
{
    constexpr int Kept = AttributeHidden | AttributeSystem | AttributeArchive;
    if (const int attributes = AttributesOf(from.Path); attributes & Kept)
        (void)SetAttributes(to, attributes); // where the file system has them
    TakeTimes(to, from.Facts);
}

/// Takes the target's place when it is whole, and is safe on the disk then.
Result<> CopyOver(const QString& path, const QString& to, const CountedTurn& turn)
{
    const CopySource from(path);
    if (from.Error != 0)
        return FailedWith(path, from.Error);
    WholeFile copy;
    Result<> done = copy.Open(to, from.Facts.st_mode & CopiedMode);
    if (done)
        done = CopyBytes(from, turn, [&](QByteArrayView piece, off_t at) { return copy.Put(piece, at); });
    if (done)
        done = copy.Commit();
    if (done)
        TakeAttributes(from, to);
    return done;
}

/// A new file among many, whose folder is synced when all are there.
Result<> CopyToNew(const QString& path, const QString& to, const CountedTurn& turn)
{
    const CopySource from(path);
    if (from.Error != 0)
        return FailedWith(path, from.Error);
    const int file = Persist([&] {
        return Steps().Open(Coded(to), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                            from.Facts.st_mode & CopiedMode);
    });
    if (file < 0)
        return FailedWith(to, errno);
    Result<> done = CopyBytes(from, turn, [&](QByteArrayView piece, off_t at) -> Result<> {
        const int error = WriteAll(file, piece, at);
        return error == 0 ? Result<>() : FailedWith(to, error);
    });
    if (Steps().Close(file) != 0 && done)
        done = FailedWith(to, errno);
    if (done)
        TakeAttributes(from, to);
    else
        Steps().Unlink(Coded(to));
    return done;
}

/// All of a file system safe on the disk.
Result<> SyncAllAt(const QString& folder)
{
    const int file = Persist([&] { return Steps().Open(Coded(folder), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0); });
    if (file < 0)
        return FailedWith(folder, errno);
    const int error = Persist([&] { return Steps().SyncAll(file); }) == 0 ? 0 : errno;
    Steps().Close(file);
    return error == 0 ? Result<>() : FailedWith(folder, error);
}

/// A new name for what stands under an old one. EXDEV: on another file system.
int Rename(const QString& from, const QString& to)
{
    return Steps().RenameNew(Coded(from), Coded(to)) == 0 ? 0 : errno;
}

Result<> CopyLink(const QString& from, const QString& to)
{
    std::array<char, 4096> target{};
    const ssize_t size = Steps().ReadLink(Coded(from), target.data(), target.size());
    if (size < 0 || size_t(size) == target.size())
        return FailedWith(from, size < 0 ? errno : ENAMETOOLONG);
    const QByteArray told(target.data(), size);
    return symlink(told, Coded(to)) == 0 ? Result<>() : FailedWith(to, errno);
}

/// May an entry of a copied folder stand at `to`?
Result<> CheckPlace(const TreeEntry& entry, const QString& to, bool overwrite)
{
    if (!entry.IsFolder() && !entry.IsFile() && !entry.IsLink())
        return Fail(to, QStringLiteral("Neither a file nor a folder."));
    const std::optional<FileFacts> there = FactsOf(to);
    if (!there)
        return {};
    if (entry.IsFolder())
        return S_ISDIR(there->st_mode) ? Result<>() : FailedWith(to, EEXIST);
    return overwrite && !S_ISDIR(there->st_mode) ? Result<>() : FailedWith(to, EEXIST);
}

/// A folder's copy under way; what it made is removed unless it comes to its end.
class FolderCopy
{
public:
    FolderCopy(QString ofFolder, QString into, bool over, const CountedTurn& callback)
        : from(std::move(ofFolder)), to(std::move(into)), overwrite(over), turn(callback)
    {
    }
    ~FolderCopy()
    {
        for (auto one = made.rbegin(); one != made.rend(); ++one)
            if (one->Folder)
                rmdir(Coded(one->Path));
            else
                Steps().Unlink(Coded(one->Path));
    }
    FolderCopy(const FolderCopy&) = delete;
    FolderCopy& operator=(const FolderCopy&) = delete;

    Result<> Run(const std::vector<TreeEntry>& entries, const FileFacts& facts)
    {
        for (const TreeEntry& entry : entries)
            if (Result<> fine = CheckPlace(entry, Place(entry), overwrite); !fine)
                return fine;
        if (Result<> ready = MakeFolder(to, facts); !ready)
            return ready;
        const int all = int(entries.size());
        for (int done = 0; done < all; ++done) {
            if (turn && !turn(done, all))
                return Stopped(to);
            // Within a large file the count stays.
            const CountedTurn within = turn ? [&](int, int) { return turn(done, all); } : CountedTurn();
            if (Result<> copied = CopyEntry(entries[size_t(done)], within); !copied)
                return copied;
        }
        if (Result<> safe = SyncAllAt(to); !safe)
            return safe;
        // Folders take their permissions last: a read-only one must still take what it holds.
        for (auto one = made.rbegin(); one != made.rend(); ++one)
            if (one->Folder) {
                chmod(Coded(one->Path), one->Folder->st_mode & CopiedMode);
                TakeTimes(one->Path, *one->Folder);
            }
        made.clear();
        return {};
    }

private:
    struct Made
    {
        QString Path;
        std::optional<FileFacts> Folder; ///< what it is a copy of; none: no folder
    };

    QString Place(const TreeEntry& entry) const { return to + QLatin1Char('/') + entry.Path; }

    Result<> MakeFolder(const QString& path, const FileFacts& facts)
    {
        const std::optional<FileFacts> there = FactsOf(path);
        if (there && S_ISDIR(there->st_mode))
            return {};
        if (there || mkdir(Coded(path), FolderMode) != 0)
            return FailedWith(path, there ? EEXIST : errno);
        made.push_back({path, facts});
        return {};
    }

    Result<> CopyEntry(const TreeEntry& entry, const CountedTurn& within)
    {
        const QString source = from + QLatin1Char('/') + entry.Path, place = Place(entry);
        if (entry.IsFolder())
            return MakeFolder(place, entry.Facts);
        const std::optional<FileFacts> there = FactsOf(place);
        // A link there is replaced, not written through.
        if (there && (entry.IsLink() || S_ISLNK(there->st_mode)) && Steps().Unlink(Coded(place)) != 0)
            return FailedWith(place, errno);
        Result<> copied = entry.IsLink() ? CopyLink(source, place)
                          : there        ? CopyOver(source, place, within)
                                         : CopyToNew(source, place, within);
        if (copied && !there)
            made.push_back({place, std::nullopt});
        return copied;
    }

    const QString from, to;
    const bool overwrite;
    const CountedTurn& turn;
    std::vector<Made> made;
};

} // namespace

QString WithoutClosing(const QString& path)
{
    QString open = path;
    while (open.size() > 1 && open.endsWith(QLatin1Char('/')))
        open.chop(1);
    return open;
}

Result<> CopyFile(const QString& from, const QString& told, bool overwrite, const CountedTurn& turn)
{
    const QString to = told.endsWith(QLatin1Char('/')) ? told + QFileInfo(from).fileName() : told;
    const std::optional<FileFacts> there = FactsOf(to);
    if (there && (!overwrite || S_ISDIR(there->st_mode)))
        return FailedWith(to, EEXIST);
    if (there && RealPath(from) == RealPath(to))
        return Fail(to, QStringLiteral("A file cannot be copied over itself."));
    return CopyOver(from, to, turn);
}

Result<> MoveFile(const QString& from, const QString& told, const CountedTurn& turn)
{
    const QString to = told.endsWith(QLatin1Char('/')) ? told + QFileInfo(from).fileName() : told;
    const int error = Rename(from, to);
    if (error != EXDEV)
        return error == 0 ? Result<>() : FailedWith(to, error);
    if (Result<> copied = CopyFile(from, to, false, turn); !copied)
        return copied;
    return DeleteFile(from, true);
}

Result<> DeleteFile(const QString& path, bool force)
{
    const std::optional<FileFacts> facts = FactsOf(path);
    if (!facts)
        return FailedWith(path, errno);
    if (S_ISDIR(facts->st_mode) || (!force && IsReadOnly(*facts)))
        return FailedWith(path, S_ISDIR(facts->st_mode) ? EISDIR : EACCES);
    return Steps().Unlink(Coded(path)) == 0 ? Result<>() : FailedWith(path, errno);
}

Result<> CopyFolder(const QString& told, const QString& toldTarget, bool overwrite, const CountedTurn& turn)
{
    const QString from = WithoutClosing(told), to = WithoutClosing(toldTarget);
    if (LiesIn(to, from))
        return Fail(to, QStringLiteral("A folder cannot be copied into itself."));
    const std::optional<FileFacts> facts = FactsOf(RealPath(from));
    const auto entries = FolderTree(RealPath(from), turn);
    if (!facts || !entries)
        return entries ? FailedWith(from, ENOENT) : tl::unexpected(entries.error());
    return FolderCopy(RealPath(from), to, overwrite, turn).Run(*entries, *facts);
}

Result<> MoveFolder(const QString& told, const QString& toldTarget, const CountedTurn& turn)
{
    const QString from = WithoutClosing(told), to = WithoutClosing(toldTarget);
    const int error = Rename(from, to);
    if (error != EXDEV)
        return error == 0 ? Result<>() : FailedWith(to, error);
    if (FactsOf(to))
        return FailedWith(to, EEXIST);
    if (Result<> copied = CopyFolder(from, to, false, turn); !copied)
        return copied;
    return DeleteFolder(from, true, turn);
}

Result<> DeleteFolder(const QString& told, bool force, const CountedTurn& turn)
{
    const QString path = WithoutClosing(told);
    const std::optional<FileFacts> facts = FactsOf(path);
    if (!facts)
        return FailedWith(path, errno);
    if (S_ISLNK(facts->st_mode))
        return Steps().Unlink(Coded(path)) == 0 ? Result<>() : FailedWith(path, errno);
    auto entries = FolderTree(path, turn);
    if (!entries)
        return tl::unexpected(entries.error());
    entries->insert(entries->begin(), TreeEntry{{}, *facts});
    const auto locked =
        std::find_if(entries->begin(), entries->end(), [](const TreeEntry& entry) { return IsReadOnly(entry.Facts); });
    if (!force && locked != entries->end())
        return FailedWith(path + QLatin1Char('/') + locked->Path, EACCES);
    for (const TreeEntry& entry : *entries) // a folder without write permission keeps what it holds
        if (entry.IsFolder() && IsReadOnly(entry.Facts))
            chmod(Coded(path + QLatin1Char('/') + entry.Path), entry.Facts.st_mode | S_IRWXU);
    const int all = int(entries->size());
    for (int done = 0; done < all; ++done) {
        if (turn && !turn(done, all))
            return Stopped(path);
        const TreeEntry& entry = (*entries)[size_t(all - 1 - done)];
        const QByteArray name = Coded(WithoutClosing(path + QLatin1Char('/') + entry.Path));
        if ((entry.IsFolder() ? rmdir(name) : Steps().Unlink(name)) != 0)
            return FailedWith(QFile::decodeName(name), errno);
    }
    return {};
}

Result<> CreateFolder(const QString& told)
{
    const QString path = WithoutClosing(told);
    return mkdir(Coded(path), CopiedMode) == 0 ? Result<>() : FailedWith(path, errno);
}

} // namespace fso
