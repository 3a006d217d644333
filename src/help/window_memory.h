#pragma once

#include <QByteArray>

/// What the help window remembers from run to run, in the user's configuration folder. Anything missing or broken is
/// left at its default; a failure to write it is no failure of the help.
struct WindowMemory
{
    QByteArray Geometry, Split;
    int Zoom = 100;
};

WindowMemory RecallWindow();
void KeepWindow(const WindowMemory& memory);
