#pragma once

/// The stand-in's window, where there is a display and it is to be seen. Closing it ends the stand-in with 0.
class MenuWindow
{
public:
    MenuWindow();
    ~MenuWindow();
    MenuWindow(const MenuWindow&) = delete;
    MenuWindow& operator=(const MenuWindow&) = delete;

    [[noreturn]] static void WaitForClose(); ///< without a window: for ever
    [[noreturn]] static void WaitForever();  ///< deaf for the close box
};
