#include "windows/main/guarded_application.h"

#include "frame/frame_state.h"
#include "frame/messages/messages.h"
#include "frame/recovery/recovery.h"
#include "platform/processes/memory_reserve.h"
#include "windows/parts/close_guard.h"

#include <QThread>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <new>
#include <unistd.h>
#include <utility>

namespace {

constexpr int NoMemory = 3;          // the exit code
constexpr unsigned LastSeconds = 20; // for writing copies in a process that is no longer sound

/// The main thread alone may look at the texts.
bool InMainThread()
{
    const QCoreApplication* application = QCoreApplication::instance();
    return application && QThread::currentThread() == application->thread();
}

void KeepWhatIsLeft()
{
    if (!Frame.Keeper || !InMainThread())
        return;
    memory_reserve::Spend();
    static_cast<void>(std::exchange(Frame.Keeper, nullptr)->KeepAllNow());
}

/// A library that gets no memory, or finds a fault, ends the process by this.
void BeforeAbort(int number)
{
    std::signal(number, SIG_DFL);
    alarm(LastSeconds);
    KeepWhatIsLeft();
    std::raise(number);
}

} // namespace

GuardedApplication::GuardedApplication(int& argc, char** argv) : QApplication(argc, argv)
{
    memory_reserve::Lay();
    std::signal(SIGABRT, BeforeAbort);
}

bool GuardedApplication::notify(QObject* receiver, QEvent* event)
try {
    const bool taken = QApplication::notify(receiver, event);
    if (memory_reserve::IsSpent() && !ending)
        EndWithoutMemory();
    return taken;
} catch (const std::bad_alloc&) {
    memory_reserve::Spend();
    EndWithoutMemory();
}

void GuardedApplication::EndWithoutMemory()
{
    if (std::exchange(ending, true) || !InMainThread())
        std::_Exit(NoMemory);
    const Result<> kept = KeepEverything();
    Frame.HoldMessages = false;
    ShowMessage(message::OutOfMemory, kept ? QStringLiteral("Unsaved text was kept and is offered at the next start.")
                                           : QStringLiteral("Unsaved text can not be kept:^^") + kept.error().Text());
    std::_Exit(NoMemory);
}
