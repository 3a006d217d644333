#pragma once

#include <sys/types.h>

/// Asks every window of the processes of a session (see setsid) to close, as its close box does. How many were asked;
/// 0 where there is no X server.
int CloseWindowsOfSession(pid_t session);
