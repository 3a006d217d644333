#include "services/registry_store.h"

#include "platform/files/file_steps.h"
#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"

#include <QFile>
#include <QScopeGuard>
#include <QThread>
#include <fcntl.h>
#include <sys/file.h>

namespace {

constexpr qint64 LargestRegistry = qint64(16) << 20;
constexpr int LongestWait = 2000, LockBeat = 5; ///< ms for a lock that another program holds

/// The lock on a file that is replaced lies in a file of its own.
class RegistryLock
{
public:
    RegistryLock() = default;
    ~RegistryLock()
    {
        if (file >= 0)
            Steps().Close(file);
    }
    RegistryLock(const RegistryLock&) = delete;
    RegistryLock& operator=(const RegistryLock&) = delete;

    /// 0 or the system's error number. A file system without locks has to do without.
    int Take(const QString& path)
    {
        file = Persist([&] { return Steps().Open(QFile::encodeName(path), O_RDWR | O_CREAT | O_NOFOLLOW, 0600); });
        if (file < 0)
            return errno;
        for (int waited = 0; Persist([&] { return flock(file, LOCK_EX | LOCK_NB); }) != 0; waited += LockBeat) {
            if (errno != EWOULDBLOCK)
                return errno == ENOTSUP || errno == ENOLCK || errno == ENOSYS ? 0 : errno;
            if (waited >= LongestWait)
                return EBUSY;
            QThread::msleep(LockBeat);
        }
        return 0;
    }

private:
    int file = -1;
};

} // namespace

/// One state of the file. It is held open, so that no later state can have its number.
class RegistryStore::Held
{
public:
    explicit Held(const QByteArray& name)
        : file(Persist([&] { return Steps().Open(name, O_RDONLY | O_NONBLOCK | O_NOCTTY, 0); }))
    {
        if (file >= 0)
            fstat(file, &facts);
    }
    ~Held()
    {
        if (file >= 0)
            Steps().Close(file);
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

    bool IsStill(const QByteArray& name) const
    {
        FileFacts now{};
        if (Steps().Stat(name, &now) != 0)
            return file < 0;
        return file >= 0 && now.st_dev == facts.st_dev && now.st_ino == facts.st_ino && now.st_size == facts.st_size &&
               now.st_mtim.tv_sec == facts.st_mtim.tv_sec && now.st_mtim.tv_nsec == facts.st_mtim.tv_nsec;
    }
    bool IsThere() const { return file >= 0; }

private:
    const int file;
    FileFacts facts{};
};

RegistryStore::RegistryStore(QString file, Keeping kept)
    : path(file.isEmpty() ? folders::Config() + QLatin1String("registry.json") : std::move(file)), keeping(kept)
{
}

RegistryStore::~RegistryStore() = default;

void RegistryStore::Look()
{
    const QByteArray name = QFile::encodeName(path);
    if (seen && (keeping == Keeping::Memory || seen->IsStill(name)))
        return;
    seen = std::make_unique<Held>(name);
    root = {};
    damage.clear();
    if (!paths::FileExists(path))
        return;
    const auto bytes = paths::ReadWhole(path, LargestRegistry);
    if (!bytes)
        damage = bytes.error().Reason;
    else if (auto read = RegistryFrom(*bytes, damage))
        root = std::move(*read);
    else
        damage.prepend(QStringLiteral("The file is damaged: "));
}

const RegistryKey& RegistryStore::Root()
{
    if (!changing)
        Look();
    return root;
}

Result<> RegistryStore::Save() const
{
    const QByteArray bytes = JsonOf(root);
    return bytes.size() > LargestRegistry ? Fail(path, qt_error_string(EFBIG)) : paths::WriteWholePrivate(path, bytes);
}

Result<bool> RegistryStore::ChangeFile(const std::function<bool(RegistryKey& root)>& change)
{
    folders::MakePrivate(paths::FolderOfPath(path)); // if it cannot be made, the lock tells why
    RegistryLock lock;
    if (const int error = lock.Take(path + QLatin1String(".lock")))
        return Fail(path, qt_error_string(error));
    Look();
    if (!damage.isEmpty())
        return Fail(path, damage);
    if (!change(root))
        return false;
    const Result<> saved = Save();
    seen.reset(); // saved or not, the file is read again
    return saved.map([] { return true; });
}

Result<bool> RegistryStore::Change(const std::function<bool(RegistryKey& root)>& change)
{
    if (changing)
        return change(root);
    changing = true;
    const auto end = qScopeGuard([this] { changing = false; });
    if (keeping == Keeping::File)
        return ChangeFile(change);
    Look();
    return change(root);
}
