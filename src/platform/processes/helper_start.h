#pragma once

#include <QByteArray>
#include <QString>
#include <sys/types.h>

/// A helper program that runs, and the socket to its standard input.
struct StartedHelper
{
    pid_t Child = 0;
    int Socket = -1; ///< the caller's to close
};

/// Starts a helper: its standard input is a socket to us; it prints nothing, whatever its libraries complain about; no
/// signal is blocked or ignored, and no other open file gets through. 0 or the error number.
/// `argument`: what it is told on its command line, if anything.
[[nodiscard]] int StartHelper(const QString& program, StartedHelper& started, QByteArray argument = {});
