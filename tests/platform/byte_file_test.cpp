#include "fault_steps.h"
#include "platform/files/byte_file.h"
#include "platform/files/in_place.h"
#include "test_support.h"

#include <QDir>
#include <QFile>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

class ByteFiles : public testing::Test
{
public:
    ByteFiles() { qputenv("XDG_STATE_HOME", QFile::encodeName(state.Path())); }
    ~ByteFiles() override { qunsetenv("XDG_STATE_HOME"); }

protected:
    QByteArray Found() const { return folder.Read(QStringLiteral("f")); }
    QStringList Kept() const
    {
        return QDir(state.Path(QStringLiteral("gemforge/overwritten"))).entryList(QDir::Files | QDir::Hidden);
    }

    const TestFolder folder, state;
    const QString path = folder.Write(QStringLiteral("f"), "0123456789");
};

} // namespace

TEST_F(ByteFiles, ReadsAndWritesWhereTheyStand)
{
    ByteFile file(folder.Path(QStringLiteral("F")));
    EXPECT_EQ(*file.Size(), 10);
    EXPECT_EQ(*file.Read(8, 5), "89");
    EXPECT_EQ(*file.Read(50, 5), "");
    ASSERT_TRUE(file.Write(3, "xy"));
    ASSERT_TRUE(file.Write(10, "z"));
    EXPECT_EQ(*file.Read(2, 4), "2xy5");
    EXPECT_EQ(Found(), "012xy56789z");
    EXPECT_FALSE(file.Write(12, "z"));
    EXPECT_FALSE(file.Write(-1, "z"));
    EXPECT_TRUE(file.Sync());

    // Another program replaces the file: what is read and written then is the new one.
    QFile::rename(path, folder.Path(QStringLiteral("moved")));
    folder.Write(QStringLiteral("f"), "another");
    EXPECT_EQ(*file.Read(0, 3), "ano");
    ASSERT_TRUE(file.Write(0, "A"));
    EXPECT_EQ(Found(), "Another");
    EXPECT_EQ(folder.Read(QStringLiteral("moved")), "012xy56789z");
    for (const QString& odd : {folder.Path(), folder.Path(QStringLiteral("none")), QStringLiteral("/dev/null")})
        EXPECT_FALSE(ByteFile(odd).Read(0, 1) || ByteFile(odd).Write(0, "x") || ByteFile(odd).Size()) << odd;
}

// A file far larger than memory should be asked for a byte: nothing but that byte is read or written.
TEST_F(ByteFiles, HugeFiles)
{
    constexpr qint64 Far = qint64(5) << 30;
    if (truncate(QFile::encodeName(path), Far) != 0)
        GTEST_SKIP() << "no sparse files here";
    ByteFile file(path);
    ASSERT_TRUE(file.Write(Far - 1, "e"));
    ASSERT_TRUE(file.Write(Far, "f"));
    EXPECT_EQ(*file.Size(), Far + 1);
    EXPECT_EQ(*file.Read(Far - 2, 9), QByteArray("\0ef", 3));
    FileFacts facts{};
    ASSERT_EQ(stat(QFile::encodeName(path), &facts), 0);
    EXPECT_LT(facts.st_blocks, 64) << "the holes are still there";
}

// What the disk does not take at the sync must not stay half: all since the last one goes back.
TEST_F(ByteFiles, OldBytesComeBackWhenTheDiskRefuses)
{
    ByteFile file(path);
    ASSERT_TRUE(file.Write(0, "a"));
    ASSERT_TRUE(file.Sync());
    ASSERT_TRUE(file.Write(0, "b"));
    ASSERT_TRUE(file.Write(0, "cd"));
    ASSERT_TRUE(file.Write(10, "ef"));
    {
        FileSteps steps = FileSteps::OfSystem();
        steps.Sync = [](int) { return errno = EIO, -1; };
        const FileStepsScope scope(steps);
        const auto synced = file.Sync();
        ASSERT_FALSE(synced);
        EXPECT_EQ(synced.error().Reason, qt_error_string(EIO));
    }
    EXPECT_EQ(Found(), "a123456789");
    EXPECT_TRUE(file.Sync());
    {
        FileSteps steps = FileSteps::OfSystem();
        steps.Write = [calls = 0](int at, const void* from, size_t, off_t where) mutable {
            return ++calls == 2 ? (errno = ENOSPC, ssize_t(-1)) : pwrite(at, from, 1, where);
        };
        const FileStepsScope scope(steps);
        EXPECT_FALSE(file.Write(9, "xyz")) << "the second byte does not fit any more";
    }
    EXPECT_EQ(Found(), "a123456789");
}

// Two bytes on two pages are two writes for the system: a process that ends between them must not leave one.
TEST_F(ByteFiles, EndOfProcessBetweenTwoPages)
{
    const QByteArray old = QByteArray(4095, 'o') + "AB" + QByteArray(100, 'o');
    QByteArray changed = old;
    changed.replace(4095, 2, "ab");
    int status = 0, nth = 1, finished = 0;
    for (; status == 0; ++nth) {
        SCOPED_TRACE(nth);
        folder.Write(QStringLiteral("f"), old);
        const pid_t child = fork();
        if (child == 0) {
            FileSteps steps = FileSteps::OfSystem();
            steps.Sync = [](int) { return 0; };
            steps.Write = [](int file, const void* from, size_t, off_t at) { return pwrite(file, from, 1, at); };
            const FileStepsScope scope(FailingAt(std::move(steps), nth, -1, std::make_shared<int>(0)));
            _exit(ByteFile(path).Write(4095, "ab") ? 1 : 2);
        }
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_NE(WEXITSTATUS(status), 2);
        finished += int(in_place::FinishInterrupted().size());
        EXPECT_TRUE(Found() == old || Found() == changed);
        EXPECT_EQ(Kept(), QStringList());
    }
    EXPECT_EQ(Found(), changed);
    EXPECT_GT(finished, 0) << "the case that this is about was met";
}
