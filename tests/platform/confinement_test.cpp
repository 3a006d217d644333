#include "decoder/channel.h"
#include "platform/processes/helper_start.h"
#include "test_support.h"

#include <QCoreApplication>
#include <QFile>
#include <QSet>
#include <arpa/inet.h>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// A socket that listens; closed with the object.
class Listener
{
public:
    Listener(int family, const void* address, socklen_t size) : handle(socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        EXPECT_EQ(bind(handle, static_cast<const sockaddr*>(address), size), 0);
        EXPECT_EQ(listen(handle, 8), 0);
    }
    ~Listener() { close(handle); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    int Port() const
    {
        sockaddr_in address{};
        socklen_t size = sizeof(address);
        getsockname(handle, reinterpret_cast<sockaddr*>(&address), &size);
        return ntohs(address.sin_port);
    }

private:
    int handle;
};

/// What the probe can reach, and its report.
class Walls : public testing::Test
{
protected:
    /// The attempts and their errors. "walls" tells whether all was built.
    QMap<QByteArray, int> Report(const QByteArray& walls) const
    {
        const TestFolder folder;
        for (const char* name : {"a", "b", "d"})
            folder.Write(QLatin1String(name), "bytes");
        sockaddr_un local{}, abstract{};
        local.sun_family = abstract.sun_family = AF_UNIX;
        qstrncpy(local.sun_path, QFile::encodeName(folder.Path(QStringLiteral("door"))), sizeof(local.sun_path));
        qstrncpy(abstract.sun_path + 1, QByteArray(QByteArray::number(getpid()) + "-gemforge-probe"),
                 sizeof(abstract.sun_path) - 1);
        sockaddr_in network{};
        network.sin_family = AF_INET;
        network.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const Listener first(AF_UNIX, &local, sizeof(local)), second(AF_UNIX, &abstract, sizeof(abstract)),
            third(AF_INET, &network, sizeof(network));

        StartedHelper probe;
        EXPECT_EQ(StartHelper(QCoreApplication::applicationDirPath() + QStringLiteral("/tests-probe"), probe), 0);
        const int file = open(QFile::encodeName(folder.Path(QStringLiteral("a"))), O_RDWR | O_CLOEXEC);
        const QByteArray told = walls + ' ' + QFile::encodeName(folder.Path()).chopped(1) + '\n';
        EXPECT_TRUE(decoder::SendAll(probe.Socket, std::as_bytes(std::span(told)), file));
        const QByteArray port = QByteArray::number(third.Port()) + '\n';
        EXPECT_TRUE(decoder::SendAll(probe.Socket, std::as_bytes(std::span(port))));
        QByteArray all;
        char piece[4096];
        for (ssize_t got = 0; (got = read(probe.Socket, piece, sizeof(piece))) > 0;)
            all.append(piece, got);
        close(probe.Socket);
        close(file);
        waitpid(probe.Child, nullptr, 0);

        QMap<QByteArray, int> report;
        for (const QByteArray& line : all.split('\n'))
            if (!line.isEmpty())
                report[line.split(' ').value(0)] = line.split(' ').value(1).toInt();
        EXPECT_TRUE(report.contains("end")) << all.toStdString();
        return report;
    }

    static QSet<QByteArray> WentThrough(QMap<QByteArray, int> report)
    {
        report.remove("end");
        report.remove("walls");
        QSet<QByteArray> names;
        for (auto attempt = report.begin(); attempt != report.end(); ++attempt)
            if (attempt.value() == 0)
                names << attempt.key();
        return names;
    }

    static long LandlockVersion() { return syscall(444, nullptr, 0, 1u); }
};

} // namespace

// Catches: an attempt that proves nothing because it fails anywhere.
TEST_F(Walls, WithoutThemEverythingGoesThrough)
{
    const auto report = Report("none");
    EXPECT_GT(report.size(), 35);
    EXPECT_EQ(WentThrough(report).size(), report.size() - 2) << report.size();
    for (auto attempt = report.begin(); attempt != report.end(); ++attempt)
        EXPECT_EQ(attempt.value(), 0) << attempt.key().toStdString();
}

// Catches: a call that is let through to whoever has taken over a helper: files changed, programs started, processes
// ended, the network reached, memory that runs; and a list for threads that lets a process through.
TEST_F(Walls, TheListLetsNothingThrough)
{
    const auto strict = Report("list");
    EXPECT_EQ(strict["walls"], 0);
    EXPECT_EQ(WentThrough(strict), QSet<QByteArray>());
    EXPECT_EQ(strict["exec"], EPERM);

    const auto threads = Report("threads");
    EXPECT_EQ(threads["walls"], 0);
    EXPECT_EQ(WentThrough(threads), (QSet<QByteArray>{"thread", "name"}));
}

// Catches: a right of Landlock that its version knows and that is not taken away.
TEST_F(Walls, FilesAreOutOfReachEvenWithoutTheList)
{
    if (LandlockVersion() < 1)
        GTEST_SKIP() << "this system has no Landlock";
    const auto report = Report("files");
    EXPECT_EQ(report["walls"], 0);
    QSet<QByteArray> shut = {"open", "list", "create", "symlink", "mkdir", "unlink", "rename", "link"};
    if (LandlockVersion() >= 3)
        shut << "truncate";
    if (LandlockVersion() >= 4)
        shut << "connect-network";
    if (LandlockVersion() >= 6)
        shut << "connect-abstract"
             << "kill";
    for (const QByteArray& attempt : shut)
        EXPECT_NE(report[attempt], 0) << attempt.toStdString();
    EXPECT_EQ(report["fork"], 0) << "that is the list's business";
}

// Catches: a helper that reads what it is handed before its walls stand, or without any.
TEST_F(Walls, StandBeforeAHelperIsAskedAnything)
{
    for (const char* program : {"/gemforge-decoder", "/gemforge-film"}) {
        StartedHelper helper;
        ASSERT_EQ(StartHelper(QCoreApplication::applicationDirPath() + QLatin1String(program), helper), 0);
        QByteArray facts;
        for (int look = 0; look < 500 && !facts.contains("Seccomp:\t2"); ++look) {
            usleep(10'000);
            QFile status(QStringLiteral("/proc/%1/status").arg(helper.Child));
            facts = status.open(QIODevice::ReadOnly) ? status.readAll() : QByteArray();
        }
        EXPECT_TRUE(facts.contains("Seccomp:\t2")) << program;
        close(helper.Socket);
        waitpid(helper.Child, nullptr, 0);
    }
}
