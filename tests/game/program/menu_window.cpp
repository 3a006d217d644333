#include "game/program/menu_window.h"

#include <cstdlib>
#include <cstring>
#include <unistd.h>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace {

Display* Server = nullptr;

} // namespace

MenuWindow::MenuWindow()
{
    const char* driver = std::getenv("SDL_VIDEODRIVER");
    if (driver && std::strcmp(driver, "dummy") == 0)
        return;
    Server = XOpenDisplay(nullptr);
    if (!Server)
        return;
    const Window window = XCreateSimpleWindow(Server, DefaultRootWindow(Server), 0, 0, 320, 240, 0, 0, 0x204020);
    XStoreName(Server, window, "Stand-in for the game");
    Atom wanted = XInternAtom(Server, "WM_DELETE_WINDOW", False);
    XSetWMProtocols(Server, window, &wanted, 1);
    const long process = getpid();
    XChangeProperty(Server, window, XInternAtom(Server, "_NET_WM_PID", False), XA_CARDINAL, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(&process), 1);
    XMapWindow(Server, window);
    XFlush(Server);
}

MenuWindow::~MenuWindow()
{
    if (Server)
        XCloseDisplay(Server);
}

void MenuWindow::WaitForClose()
{
    while (Server) {
        XEvent event;
        XNextEvent(Server, &event);
        if (event.type == ClientMessage)
            std::exit(0);
    }
    WaitForever();
}

void MenuWindow::WaitForever()
{
    for (;;)
        pause();
}
