#include "platform/screen/session_windows.h"

#include <memory>
#include <unistd.h>
#include <vector>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

struct CloseDisplay
{
    void operator()(Display* display) const { XCloseDisplay(display); }
};
struct FreeBytes
{
    void operator()(void* bytes) const { XFree(bytes); }
};

/// A window may go at any moment; the default handler would end this program for it.
int PassOver(Display*, XErrorEvent*)
{
    return 0;
}

class SessionWindows
{
public:
    SessionWindows(Display& server, pid_t wanted)
        : display(server),
          session(wanted),
          processAtom(XInternAtom(&server, "_NET_WM_PID", False)),
          protocolsAtom(XInternAtom(&server, "WM_PROTOCOLS", False)),
          deleteAtom(XInternAtom(&server, "WM_DELETE_WINDOW", False))
    {
    }

    /// A window manager puts a window of its own around each, so the windows wanted lie one or two levels down.
    int CloseBelow(Window parent, int depth = 0)
    {
        Window root = 0, above = 0;
        Window* list = nullptr;
        unsigned count = 0;
        if (!XQueryTree(&display, parent, &root, &above, &list, &count))
            return 0;
        const std::unique_ptr<Window, FreeBytes> children(list);
        int asked = 0;
        for (unsigned i = 0; i < count; ++i) {
            const Window window = list[i];
            if (IsOfSession(window))
                asked += AskToClose(window);
            else if (depth < 2)
                asked += CloseBelow(window, depth + 1);
        }
        return asked;
    }

private:
    bool IsOfSession(Window window) const
    {
        Atom type = 0;
        int format = 0;
        unsigned long items = 0, rest = 0;
        unsigned char* value = nullptr;
        if (XGetWindowProperty(&display, window, processAtom, 0, 1, False, XA_CARDINAL, &type, &format, &items, &rest,
                               &value) != Success)
            return false;
        const std::unique_ptr<unsigned char, FreeBytes> owned(value);
        return value && format == 32 && items == 1 &&
               getsid(pid_t(*reinterpret_cast<const unsigned long*>(value))) == session;
    }

    int AskToClose(Window window) const
    {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = protocolsAtom;
        event.xclient.format = 32;
        event.xclient.data.l[0] = long(deleteAtom);
        event.xclient.data.l[1] = CurrentTime;
        return XSendEvent(&display, window, False, NoEventMask, &event) ? 1 : 0;
    }

    Display& display;
    pid_t session;
    Atom processAtom, protocolsAtom, deleteAtom;
};

} // namespace

int CloseWindowsOfSession(pid_t session)
{
    const std::unique_ptr<Display, CloseDisplay> display(XOpenDisplay(nullptr));
    if (!display)
        return 0;
    const XErrorHandler before = XSetErrorHandler(PassOver);
    const int asked = SessionWindows(*display, session).CloseBelow(DefaultRootWindow(display.get()));
    XSync(display.get(), False);
    XSetErrorHandler(before);
    return asked;
}
