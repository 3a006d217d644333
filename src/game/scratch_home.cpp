#include "game/scratch_home.h"

#include "game/game_folders.h"
#include "platform/files/file_steps.h"
#include "platform/files/standard_folders.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

const QString InUseName = QStringLiteral("in_use");

bool IsOwnFolder(const QString& folder)
{
    FileFacts facts{};
    return lstat(QFile::encodeName(folder.chopped(1)), &facts) == 0 && S_ISDIR(facts.st_mode) &&
           facts.st_uid == geteuid();
}

/// In the user's cache; where that cannot be written (a service without a home), among the temporary files, where
/// anybody else may have made a folder of that name.
QString HomesFolder()
{
    const QString cache = folders::Cache();
    const QString spare = QDir::tempPath() + QStringLiteral("/gemforge-%1/").arg(geteuid());
    const bool useSpare =
        access(QFile::encodeName(cache), W_OK) != 0 && folders::MakePrivate(spare) && IsOwnFolder(spare);
    return (useSpare ? spare : cache) + QLatin1String("game/");
}

/// An open file with a lock on it; -1 if it cannot be opened, or another holds it.
int OpenLocked(const QString& path, bool wait)
{
    const int file = open(QFile::encodeName(path), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file >= 0 && flock(file, LOCK_EX | (wait ? 0 : LOCK_NB)) == 0)
        return file;
    if (file >= 0)
        close(file);
    return -1;
}

/// Nobody makes or sweeps homes at the same time: a new one is not locked at once.
class HomesLock
{
public:
    HomesLock() : file(OpenLocked(HomesFolder() + QLatin1String(".lock"), true)) {}
    ~HomesLock()
    {
        if (file >= 0)
            close(file);
    }
    HomesLock(const HomesLock&) = delete;
    HomesLock& operator=(const HomesLock&) = delete;

private:
    int file;
};

int Sweep()
{
    int swept = 0;
    const QDir homes(HomesFolder());
    for (const QString& name : homes.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks)) {
        const int lock = OpenLocked(homes.filePath(name) + u'/' + InUseName, false);
        if (lock < 0)
            continue;
        swept += QDir(homes.filePath(name)).removeRecursively();
        close(lock);
    }
    return swept;
}

} // namespace

Result<ScratchHome> ScratchHome::Make()
{
    if (!folders::MakePrivate(HomesFolder()))
        return Fail(HomesFolder(), qt_error_string(errno));
    const HomesLock lock;
    Sweep();
    ScratchHome home;
    const QString number = QString::number(QRandomGenerator::system()->generate64(), 16);
    const QString folder = HomesFolder() + QString::number(getpid()) + u'-' + number + u'/';
    if (!folders::MakePrivate(folder))
        return Fail(folder, qt_error_string(errno));
    home.folder = folder;
    home.held = OpenLocked(folder + InUseName, false);
    if (home.held < 0 || !folders::MakePrivate(home.UserFolder()))
        return Fail(folder, qt_error_string(errno));
    return home;
}

ScratchHome::ScratchHome(ScratchHome&& other) noexcept
    : folder(std::exchange(other.folder, {})), held(std::exchange(other.held, -1))
{
}

ScratchHome& ScratchHome::operator=(ScratchHome&& other) noexcept
{
    std::swap(folder, other.folder);
    std::swap(held, other.held);
    return *this;
}

ScratchHome::~ScratchHome()
{
    if (!folder.isEmpty())
        QDir(folder).removeRecursively();
    if (held >= 0)
        close(held);
}

QString ScratchHome::UserFolder() const
{
    return folder + GameUserFolderName() + u'/';
}

int SweepScratchHomes()
{
    if (!QDir(HomesFolder()).exists())
        return 0;
    const HomesLock lock;
    return Sweep();
}
