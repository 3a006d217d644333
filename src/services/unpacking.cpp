#include "services/unpacking.h"

#include "platform/archives/zip_archive.h"
#include "platform/files/beside_file.h"
#include "platform/files/paths.h"

#include <QFile>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <limits>
#include <memory>
#include <unistd.h>

namespace {

constexpr int UnpackSteps = 1000;       ///< of progress
constexpr qsizetype LongestName = 4096; ///< what the system takes as a path; an archive's may be far deeper
constexpr mode_t Permissions = 0777, OwnersAlways = 0600, Usual = 0666;

Result<> FailedAt(const QString& path, int error)
{
    return Fail(path, qt_error_string(error));
}

bool IsPlain(mode_t mode)
{
    const mode_t kind = mode & S_IFMT;
    return kind == 0 || kind == S_IFREG || kind == S_IFDIR;
}

qint64 SizeOf(const ZipArchive& archive, const std::vector<Unpacked>& files)
{
    constexpr qint64 Half = std::numeric_limits<qint64>::max() / 2; // sizes of strangers must not overflow
    qint64 all = 0;
    for (const Unpacked& file : files)
        all = std::min(all, Half) + std::min(archive.Entries()[size_t(file.Entry)].Size, Half);
    return all;
}

Result<> CheckContent(const ZipArchive& archive, const std::vector<Unpacked>& files, const UnpackLimits& limits)
{
    for (const Unpacked& file : files) {
        const ZipEntry& entry = archive.Entries()[size_t(file.Entry)];
        if (entry.Encrypted)
            return Fail(archive.Path(), QStringLiteral("The archive is encrypted."));
        if (!IsPlain(entry.Mode))
            return Fail(archive.Path(), QStringLiteral("The archive holds a link: ") + entry.Name);
    }
    const qint64 all = SizeOf(archive, files);
    if (archive.Entries().size() > size_t(limits.Entries) || all > limits.Bytes ||
        (all > limits.AnyRatio && all / limits.Ratio > archive.FileSize()))
        return Fail(archive.Path(), QStringLiteral("The archive unpacks to more than is sound."));
    return {};
}

/// What is to be made in a target folder, held against what stands there.
class Ground
{
public:
    explicit Ground(QString target) : root(std::move(target)) {}

    Result<> Check(const QString& path)
    {
        if (Result<> above = CheckFolders(paths::FolderOfPath(path)); !above || path.endsWith(QLatin1Char('/')))
            return above;
        files.insert(path);
        FileFacts facts{};
        const QByteArray name = QFile::encodeName(root + path);
        if (lstat(name, &facts) != 0)
            return errno == ENOENT ? Result<>() : FailedAt(root + path, errno);
        if (S_ISDIR(facts.st_mode))
            return FailedAt(root + path, EISDIR);
        if (S_ISREG(facts.st_mode) && Steps().MayWrite(name) != 0)
            return FailedAt(root + path, errno);
        return {};
    }
    /// A name that is to be both.
    Result<> CheckAgainstEachOther() const
    {
        for (const QString& folder : folders)
            if (files.contains(folder.chopped(1)))
                return FailedAt(root + folder, ENOTDIR);
        return {};
    }

private:
    /// `path`: below the root, each folder with "/".
    Result<> CheckFolders(const QString& path)
    {
        if (path.isEmpty() || folders.contains(path))
            return {};
        if (Result<> above = CheckFolders(paths::FolderOfPath(path.chopped(1))); !above)
            return above;
        folders.insert(path);
        FileFacts facts{};
        if (lstat(QFile::encodeName(root + path.chopped(1)), &facts) != 0)
            return errno == ENOENT ? Result<>() : FailedAt(root + path, errno);
        if (S_ISLNK(facts.st_mode))
            return Fail(root + path, QStringLiteral("The folder is a link."));
        return S_ISDIR(facts.st_mode) ? Result<>() : FailedAt(root + path, ENOTDIR);
    }

    const QString root;
    QSet<QString> folders, files;
};

/// Files that wait for their places in a hidden folder of the target; what was not placed goes with the scope.
class Waiting
{
public:
    ~Waiting()
    {
        for (const QByteArray& name : names)
            if (!name.isEmpty())
                Steps().Unlink(name);
        if (!folder.isEmpty())
            rmdir(folder);
    }
    Waiting() = default;
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    int Open(const QString& target)
    {
        const QByteArray name = NameBeside(QFile::encodeName(target));
        if (Steps().MakeFolder(name, 0700) != 0)
            return errno;
        folder = name + '/';
        return 0;
    }
    /// The file for the next entry, open to write.
    int Add(mode_t mode, int& file)
    {
        const QByteArray name = folder + QByteArray::number(qsizetype(names.size()));
        file = Persist([&] { return Steps().Open(name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode); });
        if (file < 0)
            return errno;
        names.push_back(name);
        return 0;
    }
    int Sync() const
    {
        const int file = Persist([&] { return Steps().Open(folder, O_RDONLY | O_DIRECTORY, 0); });
        if (file < 0)
            return errno;
        const int error = Persist([&] { return Steps().SyncAll(file); }) == 0 ? 0 : errno;
        Steps().Close(file);
        return error;
    }
    int Place(size_t at, const QByteArray& to)
    {
        if (Steps().Rename(names[at], to) != 0)
            return errno;
        names[at].clear();
        return 0;
    }

private:
    QByteArray folder;
    std::vector<QByteArray> names;
};

/// Takes away what unpackings that were killed have left waiting.
void SweepWaiting(const QString& target)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(QFile::encodeName(target)), closedir);
    while (const dirent* entry = open ? readdir(open.get()) : nullptr) {
        if (!IsLeftover(dirfd(open.get()), entry->d_name, S_IFDIR))
            continue;
        const QByteArray folder = QFile::encodeName(target) + entry->d_name + '/';
        const std::unique_ptr<DIR, int (*)(DIR*)> inner(opendir(folder), closedir);
        while (const dirent* file = inner ? readdir(inner.get()) : nullptr)
            unlinkat(dirfd(inner.get()), file->d_name, 0);
        rmdir(folder);
    }
}

int SetTime(int file, const QDateTime& changed)
{
    const timespec time{time_t(changed.toSecsSinceEpoch()), 0};
    const timespec times[] = {time, time};
    return futimens(file, times);
}

class Unpacking
{
public:
    Unpacking(const ZipArchive& from, const std::vector<Unpacked>& which, QString to, const CountedTurn& callback)
        : archive(from),
          files(which),
          target(std::move(to)),
          turn(callback),
          all(std::max<qint64>(SizeOf(archive, files), 1))
    {
    }

    Result<> Run()
    {
        SweepWaiting(target);
        if (const int error = waiting.Open(target))
            return FailedAt(target, error);
        for (const Unpacked& file : files)
            if (!IsFolder(file))
                if (Result<> read = Read(file.Entry); !read)
                    return read;
        if (const int error = waiting.Sync())
            return FailedAt(target, error);
        return PlaceAll();
    }

private:
    static bool IsFolder(const Unpacked& file) { return file.Path.endsWith(QLatin1Char('/')); }

    Result<> Read(int index)
    {
        const ZipEntry& entry = archive.Entries()[size_t(index)];
        int file = -1;
        const mode_t mode = entry.Mode ? (entry.Mode & Permissions) | OwnersAlways : Usual;
        if (const int error = waiting.Add(mode, file))
            return FailedAt(target, error);
        off_t at = 0;
        Result<> read = archive.ReadPieces(index, entry.Size, [&](QByteArrayView piece) -> Result<> {
            if (const int error = WriteAll(file, piece, at))
                return FailedAt(target, error);
            at += piece.size();
            return GoOn(done + at);
        });
        if (read && entry.Changed.isValid())
            SetTime(file, entry.Changed); // a file is whole without it
        if (Steps().Close(file) != 0 && errno != EINTR && read)
            read = FailedAt(target, errno);
        done += at;
        return read.and_then([&] { return GoOn(done); });
    }
    Result<> GoOn(qint64 bytes) const
    {
        const bool goOn = !turn || turn(int(std::min(bytes, all) * UnpackSteps / all), UnpackSteps);
        return goOn ? Result<>() : Stopped(archive.Path());
    }
    Result<> PlaceAll()
    {
        size_t at = 0;
        for (const Unpacked& file : files) {
            if (const int error = MakeFolders(paths::FolderOfPath(file.Path)))
                return FailedAt(target + file.Path, error);
            if (IsFolder(file))
                continue;
            if (const int error = waiting.Place(at++, QFile::encodeName(target + file.Path)))
                return FailedAt(target + file.Path, error);
        }
        const int error = waiting.Sync();
        return error ? FailedAt(target, error) : Result<>();
    }
    int MakeFolders(const QString& path)
    {
        if (path.isEmpty() || made.contains(path))
            return 0;
        if (const int error = MakeFolders(paths::FolderOfPath(path.chopped(1))))
            return error;
        made.insert(path);
        return Steps().MakeFolder(QFile::encodeName(target + path), 0777) == 0 || errno == EEXIST ? 0 : errno;
    }

    const ZipArchive& archive;
    const std::vector<Unpacked>& files;
    const QString target;
    const CountedTurn& turn;
    const qint64 all;
    qint64 done = 0;
    QSet<QString> made;
    Waiting waiting;
};

} // namespace

std::optional<QString> SafeName(const QString& name)
{
    QString path = name;
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (path.size() > LongestName)
        return {};
    const bool drive = path.size() > 1 && path[1] == QLatin1Char(':') && path[0].isLetter();
    if (drive || path.startsWith(QLatin1Char('/')) || path.contains(QChar(u'\0')))
        return {};
    QStringList parts = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    parts.removeAll(QStringLiteral("."));
    if (parts.isEmpty() || parts.contains(QLatin1String("..")))
        return {};
    return parts.join(QLatin1Char('/')) + (path.endsWith(QLatin1Char('/')) ? QStringLiteral("/") : QString());
}

Result<> Unpack(const ZipArchive& archive, const std::vector<Unpacked>& files, const QString& told,
                const CountedTurn& turn, const UnpackLimits& limits)
{
    const QString target = paths::Closed(paths::Existing(told));
    if (!paths::FolderExists(target))
        return FailedAt(told, ENOENT);
    if (Result<> content = CheckContent(archive, files, limits); !content)
        return content;
    Ground ground(target);
    for (const Unpacked& file : files)
        if (Result<> place = ground.Check(file.Path); !place)
            return place;
    return ground.CheckAgainstEachOther().and_then([&] { return Unpacking(archive, files, target, turn).Run(); });
}
