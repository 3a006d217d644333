#pragma once

#include "frame/settings/shortcuts.h"

#include <functional>

/// What the options ask of the main window.
struct OptionsPorts
{
    std::function<void()> SaveCoolbar;
    std::function<void()> SaveWindowPosition;
    std::function<ShortcutTable()> Shortcuts; ///< of all commands, as they are in force
};
