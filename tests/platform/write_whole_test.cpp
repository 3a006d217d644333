#include "fault_steps.h"
#include "platform/files/beside_notes.h"
#include "platform/files/in_place.h"
#include "platform/files/paths.h"
#include "platform/files/standard_folders.h"
#include "platform/processes/signals.h"
#include "test_support.h"

#include <QDir>
#include <QFile>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <sys/xattr.h>

namespace {

const QByteArray Old = "old text, which is the longer one\n";
const QByteArray New = "new text\n";

/// A way a file is written: what stands there before, and the system calls it meets.
struct Way
{
    const char* Name;
    bool Exists;
    bool Link;
    bool FolderClosed;
};

const Way Ways[] = {{"replaced", true, false, false},
                    {"made", false, false, false},
                    {"behind a link", true, true, false},
                    {"in place", true, false, true}};

class WriteWhole : public testing::Test
{
public:
    WriteWhole() { qputenv("XDG_STATE_HOME", QFile::encodeName(state.Path())); }
    ~WriteWhole() override { qunsetenv("XDG_STATE_HOME"); }

protected:
    QString Prepare(const Way& way)
    {
        QFile::remove(folder.Path(QStringLiteral("file")));
        QFile::remove(folder.Path(QStringLiteral("link")));
        if (way.Exists)
            folder.Write(QStringLiteral("file"), Old);
        if (!way.Link)
            return folder.Path(QStringLiteral("file"));
        QFile::link(QStringLiteral("file"), folder.Path(QStringLiteral("link")));
        return folder.Path(QStringLiteral("link"));
    }
    /// The system's calls, unsynced and five bytes a write, so that a write can break in the middle.
    FileSteps Table(const Way& way)
    {
        FileSteps steps = FileSteps::OfSystem();
        steps.Sync = [](int) { return 0; }; // hundreds of them would take their time
        steps.Write = [](int file, const void* from, size_t size, off_t at) {
            return pwrite(file, from, std::min<size_t>(size, 5), at);
        };
        if (way.FolderClosed)
            steps.Open = [open = steps.Open, closed = QFile::encodeName(folder.Path())](auto path, int flags,
                                                                                        auto mode) {
                if ((flags & O_CREAT) == 0 || !QByteArray(path).startsWith(closed))
                    return open(path, flags, mode);
                errno = EACCES;
                return -1;
            };
        return steps;
    }
    QByteArray Found() const { return folder.Read(QStringLiteral("file")); }
    QStringList Strays() const
    {
        QStringList names = QDir(folder.Path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
        names.removeAll(QStringLiteral("file"));
        names.removeAll(QStringLiteral("link"));
        return names + QDir(state.Path(QStringLiteral("gemforge/overwritten"))).entryList(QDir::Files | QDir::Hidden);
    }

    TestFolder folder, state;
};

/// As the user nobody where the tests run as root, for whom no permission counts; the folders become that user's.
class AsOrdinaryUser
{
public:
    explicit AsOrdinaryUser(std::initializer_list<QString> folders)
    {
        if (geteuid() != 0)
            return;
        for (const QString& path : folders)
            EXPECT_EQ(chown(QFile::encodeName(path), 65534, 65534), 0);
        EXPECT_EQ(seteuid(65534), 0);
    }
    ~AsOrdinaryUser() { EXPECT_EQ(seteuid(getuid()), 0); }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;
};

mode_t ModeOf(const QString& path)
{
    FileFacts facts{};
    return stat(QFile::encodeName(path), &facts) == 0 ? facts.st_mode & 07777 : 0;
}

} // namespace

// A step whose failure is not looked at: half a file, a lost file, a success told for a file that is not written.
TEST_F(WriteWhole, AnyFailingStepLeavesAllOldOrAllNew)
{
    for (const Way& way : Ways) {
        for (const int error : {EACCES, ENOSPC, EIO}) {
            int calls = 0, passedOver = 0;
            for (int nth = 1; nth == calls + 1; ++nth) {
                const QString path = Prepare(way);
                const auto count = std::make_shared<int>(0);
                Result<> result;
                {
                    const FileStepsScope scope(FailingAt(Table(way), nth, error, count));
                    result = paths::WriteWhole(path, New);
                }
                passedOver += result && *count >= nth;
                calls = std::min(*count, nth); // fewer than asked for: the whole way was gone
                SCOPED_TRACE(std::string(way.Name) + ", step " + std::to_string(nth) + ", error " +
                             std::to_string(error));
                const QByteArray before = way.Exists ? Old : QByteArray("<no such file>");
                const bool late = !result && result.error().Path == path && result.error().Reason.contains(u"(written");
                EXPECT_EQ(Found(), result || late ? New : before);
                EXPECT_TRUE(result || !result.error().Reason.isEmpty());
                // Only the removal itself may have been the step that failed.
                EXPECT_LE(Strays().size(), result && way.FolderClosed ? 1 : 0);
                for (const QString& stray : Strays())
                    QFile::remove(state.Path(QStringLiteral("gemforge/overwritten/")) + stray);
            }
            EXPECT_GE(calls, 10) << way.Name;
            // Closing what was read or synced may fail, and so may the removal of the kept copy; nothing else.
            EXPECT_LE(passedOver, error == EACCES ? calls : way.FolderClosed ? 4 : 1) << way.Name;
        }
    }
}

// A process that ends between two steps: the file must be whole, in place at the latest after the next start, and
// nothing be left beside it.
TEST_F(WriteWhole, EndOfProcessAtAnyStepLeavesAllOldOrAllNew)
{
    for (const Way& way : Ways) {
        int status = 0;
        for (int nth = 1; status == 0; ++nth) {
            const QString path = Prepare(way);
            const pid_t child = fork();
            if (child == 0) {
                const FileStepsScope scope(FailingAt(Table(way), nth, -1, std::make_shared<int>(0)));
                (void)paths::WriteWhole(path, New);
                _exit(nth > 10 ? 1 : 2); // the whole way was gone
            }
            waitpid(child, &status, 0);
            ASSERT_TRUE(WIFEXITED(status));
            SCOPED_TRACE(std::string(way.Name) + ", step " + std::to_string(nth));
            in_place::FinishInterrupted();
            beside::SweepNoted();
            EXPECT_EQ(Strays(), QStringList());
            const QByteArray before = way.Exists ? Old : QByteArray("<no such file>");
            EXPECT_TRUE(Found() == before || Found() == New) << Found().constData();
            EXPECT_NE(WEXITSTATUS(status), 2) << "too few steps seen";
        }
    }
}

// The disk breaks for good while a file is written in place: both texts must be kept elsewhere, told where, and the
// file be made whole later; not, however, over what its owner has written meanwhile.
TEST_F(WriteWhole, BothTextsSurviveADiskThatStaysFull)
{
    const QString path = Prepare(Ways[3]);
    FileSteps steps = Table(Ways[3]);
    FileFacts facts{};
    ASSERT_EQ(stat(QFile::encodeName(path), &facts), 0);
    const auto writes = std::make_shared<int>(0); // into the file itself; one gets through
    steps.Write = [write = steps.Write, target = facts.st_ino, writes](int file, auto from, size_t size, off_t at) {
        FileFacts own{};
        fstat(file, &own);
        if (own.st_ino != target || ++*writes == 1)
            return write(file, from, size, at);
        errno = ENOSPC;
        return ssize_t(-1);
    };
    Result<> result;
    {
        const FileStepsScope scope(steps);
        result = paths::WriteWhole(path, New);
    }
    ASSERT_FALSE(result);
    EXPECT_TRUE(result.error().Reason.contains(QLatin1String("overwritten/"))) << result.error().Reason;
    EXPECT_EQ(in_place::FinishInterrupted(), QStringList(path));
    EXPECT_EQ(Found(), New);
    EXPECT_TRUE(Strays().isEmpty());

    folder.Write(QStringLiteral("file"), Old);
    *writes = 0;
    {
        const FileStepsScope scope(steps);
        EXPECT_FALSE(paths::WriteWhole(path, New));
    }
    folder.Write(QStringLiteral("file"), "mended by hand");
    EXPECT_TRUE(in_place::FinishInterrupted().isEmpty());
    EXPECT_EQ(folder.Read(QStringLiteral("file")), "mended by hand");
    EXPECT_TRUE(Strays().isEmpty());
}

// Catches: a backup that is made before the new bytes are safe, from bytes that are no longer the old ones, twice, or
// not at all on one of the ways; a refusal that is passed over.
TEST_F(WriteWhole, WhatComesBeforeSeesTheOldFileAndMayRefuse)
{
    for (const Way& way : Ways) {
        SCOPED_TRACE(way.Name);
        const QByteArray old = way.Exists ? Old : QByteArray("<no such file>");
        const QString path = Prepare(way);
        const FileStepsScope scope(Table(way));
        int calls = 0;
        const auto look = [&](bool agrees) {
            return [&, agrees]() -> Result<> {
                ++calls;
                EXPECT_EQ(Found(), old);
                EXPECT_EQ(Strays().size(), 1) << "the new bytes";
                return agrees ? Result<>() : Result<>(Fail(QStringLiteral("backup"), QStringLiteral("no")));
            };
        };
        const auto refused = paths::WriteWhole(path, New, look(false));
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.error().Path, QStringLiteral("backup"));
        EXPECT_EQ(Found(), old);
        EXPECT_EQ(Strays(), QStringList());
        EXPECT_TRUE(paths::WriteWhole(path, New, look(true)));
        EXPECT_EQ(Found(), New);
        EXPECT_EQ(calls, 2);
        const FileSizeLimit full(3);
        EXPECT_FALSE(paths::WriteWhole(path, Old, look(true)));
        EXPECT_EQ(calls, 2) << "nothing was safe yet";
    }
}

// Catches: a limit of the user's on the size of files that ends the program in the middle of a save.
TEST_F(WriteWhole, AFileLimitIsAFailureThatIsTold)
{
    const QString path = Prepare(Ways[0]);
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_DFL);
        OutliveFileLimits();
        const rlimit limit{100, 100};
        setrlimit(RLIMIT_FSIZE, &limit);
        const auto written = paths::WriteWhole(path, QByteArray(1000, 'x'));
        _exit(!written && written.error().Reason == qt_error_string(EFBIG) ? 7 : 8);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7) << status;
    EXPECT_EQ(Found(), Old);
}

// A real full disk (no hook), and interrupted and short calls, which are no failures.
TEST_F(WriteWhole, FullDiskAndInterruptedCalls)
{
    const QString path = Prepare(Ways[0]);
    {
        const FileSizeLimit limit(1000);
        EXPECT_FALSE(paths::WriteWhole(path, QByteArray(100000, 'x')));
    }
    EXPECT_EQ(Found(), Old);
    EXPECT_TRUE(Strays().isEmpty());

    const auto count = std::make_shared<int>(0);
    FileSteps steps = Table(Ways[0]);
    const auto interrupt = [count](auto& step) {
        step = [inner = step, count](auto... arguments) {
            if (++*count % 2 == 0)
                return inner(arguments...);
            errno = EINTR;
            return decltype(inner(arguments...))(-1);
        };
    };
    interrupt(steps.Open), interrupt(steps.Write), interrupt(steps.Sync), interrupt(steps.Read);
    const FileStepsScope scope(steps);
    EXPECT_TRUE(paths::WriteWhole(path, New));
    EXPECT_EQ(*paths::ReadWhole(path, 1000), New);
}

// Replacing a file by a new one must not change who may read it, what is noted on it, or what leads to it.
TEST_F(WriteWhole, KeepsPermissionsAttributesAndLinks)
{
    const QString path = Prepare(Ways[2]);
    const QByteArray file = QFile::encodeName(folder.Path(QStringLiteral("file")));
    chmod(file, 0640);
    const bool attributes = setxattr(file, "user.DOSATTRIB", "0x2", 3, 0) == 0;
    ASSERT_TRUE(paths::WriteWhole(path, New));
    EXPECT_EQ(Found(), New);
    EXPECT_EQ(QFile::symLinkTarget(path), folder.Path(QStringLiteral("file")));
    EXPECT_EQ(ModeOf(QFile::decodeName(file)), mode_t(0640));
    char value[8] = {};
    EXPECT_EQ(getxattr(file, "user.DOSATTRIB", value, sizeof value), attributes ? 3 : -1);

    QFile::remove(QFile::decodeName(file));
    ASSERT_TRUE(paths::WriteWhole(path, New)) << "a link to a file that is yet to be made";
    EXPECT_EQ(Found(), New);

    QFile::remove(folder.Path(QStringLiteral("loop")));
    QFile::link(QStringLiteral("loop"), folder.Path(QStringLiteral("loop")));
    EXPECT_FALSE(paths::WriteWhole(folder.Path(QStringLiteral("loop")), New));
}

// A rename would leave the file's other names with the old bytes.
TEST_F(WriteWhole, FurtherNamesOfAFile)
{
    const QString path = Prepare(Ways[0]);
    ASSERT_EQ(link(QFile::encodeName(path), QFile::encodeName(folder.Path(QStringLiteral("link")))), 0);
    ASSERT_TRUE(paths::WriteWhole(path, New));
    EXPECT_EQ(folder.Read(QStringLiteral("link")), New);
    EXPECT_EQ(Found(), New);
    EXPECT_TRUE(Strays().isEmpty());
}

// New files follow the umask; recovery copies are nobody else's business. Folders, devices and nothing are no targets.
TEST_F(WriteWhole, NewFilesAndOddTargets)
{
    const mode_t mask = umask(027);
    EXPECT_TRUE(paths::WriteWhole(folder.Path(QStringLiteral("plain")), New));
    umask(mask);
    EXPECT_EQ(ModeOf(folder.Path(QStringLiteral("plain"))), mode_t(0640));
    EXPECT_TRUE(paths::WriteWholePrivate(folder.Path(QStringLiteral("deep/er/secret")), New));
    EXPECT_EQ(ModeOf(folder.Path(QStringLiteral("deep/er/secret"))), mode_t(0600));
    EXPECT_EQ(ModeOf(folder.Path(QStringLiteral("deep/er"))), mode_t(0700));
    for (const QString& path :
         {folder.Path(QStringLiteral("deep")), folder.Path(QStringLiteral("deep/")), QStringLiteral("/dev/null"),
          folder.Path(QStringLiteral("no/such/folder")), QString(), folder.Path(QString(300, u'x'))})
        EXPECT_FALSE(paths::WriteWhole(path, New)) << path;
    EXPECT_TRUE(paths::WriteWhole(folder.Path(QString(255, u'x')), New)) << "the longest name the system has";
}

// A read-only file must not be replaced by way of its folder, nor a writable one be refused because of its folder.
TEST_F(WriteWhole, PermissionsOfFileAndFolder)
{
    const QString path = Prepare(Ways[0]);
    const AsOrdinaryUser user{folder.Path(), path, state.Path()};
    const QByteArray name = QFile::encodeName(path);
    ASSERT_EQ(chmod(name, 0444), 0);
    const auto refused = paths::WriteWhole(path, New);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().Reason, qt_error_string(EACCES));
    EXPECT_EQ(refused.error().Path, path);
    EXPECT_EQ(Found(), Old);

    ASSERT_EQ(chmod(name, 0644), 0);
    ASSERT_EQ(chmod(QFile::encodeName(folder.Path()), 0555), 0);
    EXPECT_TRUE(paths::WriteWhole(path, New));
    EXPECT_EQ(Found(), New);
    EXPECT_TRUE(Strays().isEmpty());
    EXPECT_FALSE(paths::WriteWhole(folder.Path(QStringLiteral("other")), New));
    ASSERT_EQ(chmod(QFile::encodeName(folder.Path()), 0755), 0);
}

// Another's file that a group may write: the new file would be ours, so it is written in place.
TEST_F(WriteWhole, AnothersFileStaysAnothers)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "needs root to give a file away";
    const QString path = Prepare(Ways[0]);
    chmod(QFile::encodeName(path), 0666);
    {
        const AsOrdinaryUser user{folder.Path(), state.Path()};
        EXPECT_TRUE(paths::WriteWhole(path, New));
    }
    FileFacts facts{};
    ASSERT_EQ(stat(QFile::encodeName(path), &facts), 0);
    EXPECT_EQ(facts.st_uid, 0u);
    EXPECT_EQ(Found(), New);
}

// Catches: a file of a save that still runs, or of no save at all, taken away; one that a killed save left in a folder
// to which nobody saves again.
TEST_F(WriteWhole, SweepsWhatKilledSavesHaveLeft)
{
    const pid_t gone = fork();
    if (gone == 0)
        _exit(0);
    waitpid(gone, nullptr, 0);
    const timespec longAgo[] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    const auto leave = [&](pid_t process, bool old) {
        const QString path = folder.Write(QStringLiteral(".gemforge-%1-%2").arg(process).arg(old), "half");
        if (old)
            utimensat(AT_FDCWD, QFile::encodeName(path).constData(), longAgo, 0);
        return path;
    };
    const QString dead = leave(gone, true), fresh = leave(gone, false), living = leave(getpid(), true);
    const QString other = folder.Write(QStringLiteral(".gemforge-notes"), "kept");
    ASSERT_TRUE(paths::WriteWhole(folder.Path(QStringLiteral("a.conf")), New));
    EXPECT_FALSE(QFile::exists(dead));
    EXPECT_TRUE(QFile::exists(fresh) && QFile::exists(living) && QFile::exists(other));

    // What is noted was written here, so that it needs no age.
    const QString elsewhere = folder.Path(), parents = leave(getppid(), true);
    for (const pid_t process : {gone, getppid()})
        state.Write(QStringLiteral("gemforge/beside/%1").arg(process),
                    QByteArray(QByteArray("/no/such/folder/\0", 17) + QFile::encodeName(elsewhere) + '\0'));
    const QString folderOfGone = QStringLiteral(".gemforge-%1-7").arg(gone);
    folder.Write(folderOfGone + QStringLiteral("/inner/half"), "half");
    QFile::link(other, folder.Path(folderOfGone + QStringLiteral("/leads_out")));
    beside::SweepNoted();
    EXPECT_FALSE(QFile::exists(folder.Path(folderOfGone)));
    EXPECT_FALSE(QFile::exists(fresh) || QFile::exists(state.Path(QStringLiteral("gemforge/beside/%1").arg(gone))));
    EXPECT_TRUE(QFile::exists(living) && QFile::exists(parents) && QFile::exists(other));
}

// Files of a temporary folder: written over at will, but never through a link to what somebody keeps.
TEST_F(WriteWhole, ScratchFiles)
{
    const QString precious = folder.Write(QStringLiteral("precious"), Old), path = Prepare(Ways[1]);
    ASSERT_TRUE(paths::WriteScratch(path, Old) && paths::WriteScratch(path, New) && paths::AppendScratch(path, Old));
    EXPECT_EQ(Found(), New + Old);
    QFile::remove(path);
    ASSERT_EQ(link(QFile::encodeName(precious), QFile::encodeName(path)), 0);
    EXPECT_TRUE(paths::WriteScratch(path, New));
    EXPECT_EQ(Found(), New);
    QFile::remove(path);
    QFile::link(precious, path);
    EXPECT_FALSE(paths::AppendScratch(path, New));
    EXPECT_TRUE(paths::WriteScratch(path, New));
    EXPECT_EQ(Found(), New);
    EXPECT_EQ(folder.Read(QStringLiteral("precious")), Old);
    const FileSizeLimit limit(1000);
    EXPECT_FALSE(paths::WriteScratch(path, QByteArray(100000, 'x')));
    EXPECT_FALSE(paths::AppendScratch(path, QByteArray(100000, 'x')));
}

// A backup must never fall on an existing one; a reader must not wait on a fifo nor take a file of any size.
TEST_F(WriteWhole, CopiesAndReads)
{
    const QString path = Prepare(Ways[0]);
    chmod(QFile::encodeName(path), 0600);
    const QString copy = folder.Path(QStringLiteral("copy"));
    ASSERT_TRUE(paths::CopyFileTo(path, copy));
    EXPECT_EQ(folder.Read(QStringLiteral("copy")), Old);
    EXPECT_EQ(ModeOf(copy), mode_t(0600));
    folder.Write(QStringLiteral("file"), New);
    EXPECT_FALSE(paths::CopyFileTo(path, copy));
    EXPECT_EQ(folder.Read(QStringLiteral("copy")), Old);
    EXPECT_FALSE(paths::CopyFileTo(folder.Path(QStringLiteral("none")), folder.Path(QStringLiteral("copy2"))));
    const QByteArray big(3 << 20, 'b');
    folder.Write(QStringLiteral("big"), big);
    {
        const FileSizeLimit limit(1 << 20);
        EXPECT_FALSE(paths::CopyFileTo(folder.Path(QStringLiteral("big")), folder.Path(QStringLiteral("big2"))));
    }
    EXPECT_FALSE(QFile::exists(folder.Path(QStringLiteral("big2"))));

    EXPECT_EQ(*paths::ReadWhole(folder.Path(QStringLiteral("BIG")), big.size()), big);
    EXPECT_FALSE(paths::ReadWhole(folder.Path(QStringLiteral("big")), big.size() - 1));
    ASSERT_EQ(mkfifo(QFile::encodeName(folder.Path(QStringLiteral("fifo"))), 0600), 0);
    for (const QString& odd : {folder.Path(QStringLiteral("fifo")), folder.Path(), folder.Path(QStringLiteral("none"))})
        EXPECT_FALSE(paths::ReadWhole(odd, 1000)) << odd;
    EXPECT_FALSE(paths::ReadWhole(QStringLiteral("/proc/self/mountinfo"), 1 << 20)->isEmpty()) << "size told as 0";
}
