#include "platform/processes/started_program.h"

#include <QProcess>
#include <csignal>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace processes {

StartedProgram::StartedProgram(qint64 number) : process(number), watch(int(syscall(SYS_pidfd_open, pid_t(number), 0)))
{
}

StartedProgram::StartedProgram(StartedProgram&& other) noexcept
    : process(other.process), watch(std::exchange(other.watch, -1))
{
}

StartedProgram::~StartedProgram()
{
    if (watch >= 0)
        close(watch);
}

Result<StartedProgram> StartedProgram::Start(const QString& program, const QStringList& arguments,
                                             const QString& folder)
{
    QProcess starter;
    starter.setProgram(program);
    starter.setArguments(arguments);
    starter.setWorkingDirectory(folder);
    starter.setStandardInputFile(QProcess::nullDevice());
    starter.setStandardOutputFile(QProcess::nullDevice());
    starter.setStandardErrorFile(QProcess::nullDevice());
    qint64 number = 0;
    if (!starter.startDetached(&number))
        return Fail(program, starter.errorString());
    return StartedProgram(number);
}

bool StartedProgram::HasEnded() const
{
    if (watch < 0) // gone before it could be watched, or a kernel that cannot watch
        return kill(pid_t(process), 0) != 0;
    pollfd asked{watch, POLLIN, 0};
    return poll(&asked, 1, 0) > 0;
}

} // namespace processes
