#include "platform/processes/helper_start.h"

#include <QFile>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace {

class SpawnPlan
{
public:
    explicit SpawnPlan(int socket)
    {
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, socket, STDIN_FILENO);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
        posix_spawnattr_init(&attributes);
        sigset_t set;
        sigemptyset(&set);
        posix_spawnattr_setsigmask(&attributes, &set);
        sigfillset(&set);
        posix_spawnattr_setsigdefault(&attributes, &set);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnPlan()
    {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;

    int Run(pid_t& child, const QString& program, QByteArray argument) const
    {
        QByteArray path = QFile::encodeName(program);
        char* const arguments[] = {path.data(), argument.isEmpty() ? nullptr : argument.data(), nullptr};
        return posix_spawn(&child, path.constData(), &actions, &attributes, arguments, environ);
    }

private:
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

} // namespace

int StartHelper(const QString& program, StartedHelper& started, QByteArray argument)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return errno;
    pid_t child = 0;
    const int error = SpawnPlan(ends[1]).Run(child, program, std::move(argument));
    close(ends[1]);
    if (error != 0) {
        close(ends[0]);
        return error;
    }
    started = {.Child = child, .Socket = ends[0]};
    return 0;
}
