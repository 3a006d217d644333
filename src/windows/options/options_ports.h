#pragma once

#include "platform/result.h"

#include <QString>
#include <functional>

/// What the options ask of the main window and of rooms that they do not know.
struct OptionsPorts
{
    std::function<void()> SaveCoolbar;
    std::function<void()> SaveWindowPosition;
    /// Runs a program to see whether it is the game; a failure tells why it is not.
    std::function<Result<>(const QString& program)> ProveGame;
};
