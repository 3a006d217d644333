#include "platform/processes/console.h"

#include "platform/files/file_steps.h"

#include <QSocketNotifier>
#include <cerrno>
#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>
#include <utility>

Console::Console(QObject* parent) : QObject(parent) {}

Console::~Console()
{
    notifier.reset();
    CloseChildEnd();
    if (ownEnd >= 0)
        close(ownEnd);
}

int Console::Open()
{
    ownEnd = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    char name[128];
    if (ownEnd < 0 || grantpt(ownEnd) != 0 || unlockpt(ownEnd) != 0 || ptsname_r(ownEnd, name, sizeof name) != 0)
        return errno;
    childEnd = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (childEnd < 0)
        return errno;
    termios form{};
    if (tcgetattr(childEnd, &form) != 0)
        return errno;
    cfmakeraw(&form); // line ends stay as they are printed
    if (tcsetattr(childEnd, TCSANOW, &form) != 0)
        return errno;
    notifier = std::make_unique<QSocketNotifier>(ownEnd, QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, [this] { ReadPiece(); });
    return 0;
}

void Console::CloseChildEnd()
{
    if (childEnd >= 0)
        close(std::exchange(childEnd, -1));
}

void Console::ReadRest()
{
    constexpr int MostPieces = 1024; // what lives on behind the child may print for ever
    for (int piece = 0; piece < MostPieces && ReadPiece(); ++piece) {
    }
}

/// One piece at a time, so that a child that prints without end leaves room for other events.
bool Console::ReadPiece()
{
    QByteArray piece(65536, Qt::Uninitialized);
    const ssize_t got = Persist([&] { return read(ownEnd, piece.data(), size_t(piece.size())); });
    if (got > 0) {
        piece.resize(got);
        emit Printed(piece);
        return true;
    }
    if (got == 0 || errno != EAGAIN) // the last holder of the child's end has gone
        notifier->setEnabled(false);
    return false;
}
