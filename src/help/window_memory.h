#pragma once

#include <QByteArray>

/// What the help window remembers from run to run, in the user's configuration folder. Anything missing or broken is
/// left at its default.
struct WindowMemory
{
    QByteArray Geometry, Split;
    int Zoom = 100;
};

WindowMemory RecallWindow();
/// False if it could not be written, which the help need not tell.
bool KeepWindow(const WindowMemory& memory);
