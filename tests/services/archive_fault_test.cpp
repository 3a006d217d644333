#include "fault_steps.h"
#include "services/archive_tool.h"
#include "services/made_archive.h"
#include "test_support.h"

#include <QDir>
#include <QFile>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

/// A way an archive is changed, and what it holds afterwards.
struct Change
{
    const char* Name;
    bool (*Do)(const TestFolder& folder, const QString& archive);
    QStringList After;
};

const Change Changes[] = {
    {"adding a resource",
     [](const TestFolder& folder, const QString& archive) {
         return AddToResource(folder.Path(QStringLiteral("Set/big")), archive).has_value();
     },
     {QStringLiteral("basic.txt"), QStringLiteral("kept"), QStringLiteral("big")}},
    {"removing one",
     [](const TestFolder&, const QString& archive) {
         return DeleteFromResource(QStringLiteral("kept"), archive).has_value();
     },
     {QStringLiteral("basic.txt")}},
    {"zipping a folder",
     [](const TestFolder& folder, const QString& archive) {
         return ZipFiles(folder.Path(QStringLiteral("Set")), archive).has_value();
     },
     {QStringLiteral("basic.txt"), QStringLiteral("kept"), QStringLiteral("Set/big")}},
};

class ArchiveFaults : public testing::Test
{
protected:
    ArchiveFaults()
    {
        qputenv("XDG_STATE_HOME", QFile::encodeName(state.Path()));
        QByteArray noise(300000, Qt::Uninitialized); // packs badly, so that it takes several writes
        for (quint32 at = 0, value = 1; at < quint32(noise.size()); ++at)
            noise[at] = char((value = value * 1664525 + 1013904223) >> 24);
        folder.Write(QStringLiteral("Set/big"), noise);
        Prepare();
        old = folder.Read(QStringLiteral("a.gfb"));
    }
    ~ArchiveFaults() override { qunsetenv("XDG_STATE_HOME"); }

    void Prepare() const { MakeArchive(archive, {{"basic.txt", "end"}, {"kept", QByteArray(5000, 'k')}}); }
    /// The system's calls without the waits of a sync.
    static FileSteps Table()
    {
        FileSteps steps = FileSteps::OfSystem();
        steps.Sync = [](int) { return 0; };
        return steps;
    }
    bool IsOld() const { return folder.Read(QStringLiteral("a.gfb")) == old; }
    /// The whole of the new archive: every entry reads and passes its sum.
    bool IsNew(const Change& change) const
    {
        const TestFolder target;
        return ListResource(archive).value_or(ArchiveList()) == change.After &&
               UnzipFiles(QStringLiteral("/"), archive, target.Path());
    }
    QStringList Strays() const
    {
        QStringList names = QDir(folder.Path()).entryList(QDir::Files | QDir::Hidden);
        names.removeAll(QStringLiteral("a.gfb"));
        return names;
    }

    const TestFolder folder, state;
    const QString archive = folder.Path(QStringLiteral("a.gfb"));
    QByteArray old;
};

} // namespace

// A step whose failure is not looked at: a cut archive, or a success told for one that is not there.
TEST_F(ArchiveFaults, AnyFailingStepLeavesAllOldOrAllNew)
{
    for (const Change& change : Changes) {
        for (const int error : {ENOSPC, EIO}) {
            int calls = 0, passedOver = 0;
            for (int nth = 1; nth == calls + 1; ++nth) {
                SCOPED_TRACE(std::string(change.Name) + ", step " + std::to_string(nth));
                Prepare();
                const auto count = std::make_shared<int>(0);
                bool done = false;
                {
                    const FileStepsScope scope(FailingAt(Table(), nth, error, count));
                    done = change.Do(folder, archive);
                }
                calls = std::min(*count, nth);
                passedOver += done && *count >= nth;
                EXPECT_TRUE(done ? IsNew(change) : IsOld() || IsNew(change));
                EXPECT_EQ(Strays(), QStringList());
            }
            EXPECT_GE(calls, 12) << change.Name;
            EXPECT_LE(passedOver, 3) << change.Name << ": closing what was only read or synced";
        }
    }
}

TEST_F(ArchiveFaults, EndOfProcessAtAnyStepLeavesAllOldOrAllNew)
{
    for (const Change& change : Changes) {
        int status = 0;
        for (int nth = 1; status == 0; ++nth) {
            SCOPED_TRACE(std::string(change.Name) + ", step " + std::to_string(nth));
            Prepare();
            const pid_t child = fork();
            if (child == 0) {
                const FileStepsScope scope(FailingAt(Table(), nth, -1, std::make_shared<int>(0)));
                _exit(change.Do(folder, archive) && nth > 12 ? 1 : 2);
            }
            waitpid(child, &status, 0);
            ASSERT_TRUE(WIFEXITED(status));
            EXPECT_NE(WEXITSTATUS(status), 2) << "failed by itself, or too few steps seen";
            EXPECT_TRUE(IsOld() || IsNew(change));
        }
    }
}

// A disk that is really full, and a folder in which the archive may only be written in place.
TEST_F(ArchiveFaults, FullDiskAndClosedFolder)
{
    for (const Change& change : {Changes[0], Changes[2]}) {
        const FileSizeLimit limit(100000);
        EXPECT_FALSE(change.Do(folder, archive));
        EXPECT_TRUE(IsOld());
        EXPECT_EQ(Strays(), QStringList());
    }
    for (const Change& change : Changes) {
        Prepare();
        FileSteps steps = Table();
        steps.Open = [open = steps.Open, closed = QFile::encodeName(folder.Path())](auto path, int flags, auto mode) {
            if ((flags & O_CREAT) == 0 || !QByteArray(path).startsWith(closed))
                return open(path, flags, mode);
            errno = EACCES;
            return -1;
        };
        const FileStepsScope scope(steps);
        EXPECT_TRUE(change.Do(folder, archive)) << change.Name;
        EXPECT_TRUE(IsNew(change)) << change.Name;
    }
    EXPECT_EQ(QDir(state.Path(QStringLiteral("gemforge/overwritten"))).entryList(QDir::Files | QDir::Hidden),
              QStringList());
}

// Two names of one archive: both must hold what was added.
TEST_F(ArchiveFaults, FurtherNamesKeepTheArchive)
{
    const QString other = folder.Path(QStringLiteral("other.gfb"));
    ASSERT_EQ(link(QFile::encodeName(archive), QFile::encodeName(other)), 0);
    EXPECT_TRUE(Changes[0].Do(folder, archive));
    EXPECT_EQ(*ListResource(other), Changes[0].After);
}
