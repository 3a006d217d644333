#include "platform/processes/signals.h"

#include "platform/platform_state.h"

#include <QSocketNotifier>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {

void Handle(int number)
{
    const int error = errno;
    const char byte = char(number);
    [[maybe_unused]] const ssize_t written = write(Platform.SignalPipe, &byte, 1);
    errno = error;
}

} // namespace

void OutliveFileLimits()
{
    std::signal(SIGXFSZ, SIG_IGN);
}

EndSignals::EndSignals(QObject* parent) : QObject(parent)
{
    if (pipe2(pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    Platform.SignalPipe = pipe[1];
    auto* const notifier = new QSocketNotifier(pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &EndSignals::Drain);
    struct sigaction action
    {
    };
    action.sa_handler = Handle;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (size_t i = 0; i < Numbers.size(); ++i)
        sigaction(Numbers[i], &action, &before[i]);
}

EndSignals::~EndSignals()
{
    if (pipe[0] < 0)
        return;
    for (size_t i = 0; i < Numbers.size(); ++i)
        sigaction(Numbers[i], &before[i], nullptr);
    Platform.SignalPipe = -1;
    close(pipe[0]);
    close(pipe[1]);
}

void EndSignals::Drain()
{
    char number = 0;
    while (read(pipe[0], &number, 1) == 1)
        emit EndWanted(number);
}
