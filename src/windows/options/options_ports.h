#pragma once

#include <functional>

/// What the options ask of the main window.
struct OptionsPorts
{
    std::function<void()> SaveCoolbar;
    std::function<void()> SaveWindowPosition;
};
