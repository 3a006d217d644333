#pragma once

#include <QByteArray>

/// What the viewer remembers from run to run. Anything missing or broken is left at its default.
struct WindowMemory
{
    QByteArray Geometry, Split;
};

WindowMemory RecallWindow();
/// What is empty stays as it was kept before.
void KeepWindow(const WindowMemory& memory);
